// Keeps a button as its action is.
#include "workbench/panel/ActionButton.h"

#include <QAction>
#include <QPushButton>

void FollowAction(QPushButton& button, QAction& action) {
    const auto follow = [&button, &action] {
        button.setEnabled(action.isEnabled());
        button.setToolTip(action.toolTip());
    };
    QObject::connect(&action, &QAction::changed, &button, follow);
    QObject::connect(&button, &QPushButton::clicked, &action, [&action] { action.trigger(); });
    follow();
}
