// Buttons that do what an action of the menus does.
#pragma once

class QAction;
class QPushButton;

// The button can be pressed when the action can be chosen, says the same about itself, and then chooses it. Its text is
// its own.
void FollowAction(QPushButton& button, QAction& action);
