// The keys and what the mouse does in the window: a list of them, and the small window that shows it.
#pragma once

#include <QDialog>
#include <vector>

class QTreeWidget;

// What is pressed or done, and what it does; both in Chinese, to be translated.
struct KeyRow {
    const wchar_t* keys;
    const wchar_t* effect;
};
struct KeyPart {
    const wchar_t* title;  // of the window's part that takes them
    std::vector<KeyRow> rows;
};
const std::vector<KeyPart>& WindowKeys();

// Stands beside its window for as long as one wants to look at it; Escape closes it.
class KeysWindow : public QDialog {
public:
    explicit KeysWindow(QWidget* parent);
    void Retranslate();

private:
    QTreeWidget* m_list;
};
