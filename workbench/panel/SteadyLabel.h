// A text with room for all that may come to stand in its place, so that nothing around it moves when it changes.
#pragma once

#include <QLabel>
#include <QStringList>
#include <map>

// Keeps its room while it is hidden, too, unless that is for no line and no texts.
class SteadyLabel : public QLabel {
public:
    SteadyLabel(QWidget* parent, int leastLines);

    // Texts that may follow in the same place, of the label's own format.
    void SetChoices(const QStringList& choices);

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize minimumSizeHint() const override;

protected:
    void changeEvent(QEvent* event) override;

private:
    int m_leastLines;
    QStringList m_choices;
    mutable std::map<int, int> m_heights;  // of the choices, by width: a layout asks often
};
