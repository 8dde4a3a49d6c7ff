// Keeps the hints in empty fields readable, whatever colours the desktop has.
// Why: docs/decisions/workbench.md
#pragma once

#include <QObject>

class QPalette;
class QWidget;

// Some desktops are dark and leave out the colour of hints: then these have the toolkit's, which is half black. In the
// window that it belongs to they get the colour of texts, half of it, for as long as that is so.
class HintColors : public QObject {
public:
    explicit HintColors(QWidget& window);

    // Whether hints can be told from the field that they stand in.
    static bool AreReadable(const QPalette& palette);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Mend();

    QWidget& m_window;
};
