// Turns the events of a widget into the messages of its window. For the sources of this room only.
#pragma once

class WindowLink;

// From now on the link's widget sends its events as messages. Takes the link over: it is deleted with the widget.
void WatchEvents(WindowLink& link);
