// What is fixed so that pictures come out the same on every run: environment, looks, date and settings.
#pragma once

#include <QSize>

class QTemporaryDir;

// Hides a person's desktop and session, which could show in a picture or be changed by taking it. `settings` is a
// folder that exists; the toolkit has not started yet. `scale` is pixels of the screen for one of the window, `screen`
// how many it has, empty for as many as it may have.
void FixEnvironment(const QTemporaryDir& settings, const char* scale, const QSize& screen);

// Style, font and colours, of dark desktops or of light ones.
void FixAppearance(bool isDark);

// Starts the module as a host does, with the shipped settings in a folder of their own. False when the language is not
// known or something is missing.
bool StartModule(const char* language);
