// What there are pictures of. Each scene opens a dialog by the way the program's user does, works in it, and cancels.
#pragma once

class Album;

// The places: the editor, with an editor in a cell, with its menu, its messages; and the choice of a place.
void TakeZoneEditor(Album& album);
void TakeImports(Album& album);
void TakePlace(Album& album);
// The standards: their dialog, the names, the messages.
void TakeStandards(Album& album);
void TakeStandardNames(Album& album);
void TakeStandardMessages(Album& album);
// The settings for sunlight and glare, and their messages.
void TakeSettings(Album& album);
void TakeSettingsMessages(Album& album);
