// A line of text that says by an ellipsis that there is more of it.
#pragma once

#include <QLabel>

// Takes whatever room there is. Where its text has too little, the rest is in the tool tip.
class ElidedLabel : public QLabel {
public:
    explicit ElidedLabel(QWidget* parent);

    // Shows a text as it is, also in the tool tip.
    void ShowText(const QString& text);

protected:
    void paintEvent(QPaintEvent* event) override;
};
