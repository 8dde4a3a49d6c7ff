// The files that are made of an answer: the buttons for them, and where the last one is.
// Why: docs/decisions/workbench.md
#pragma once

#include <QUrl>
#include <QWidget>
#include <functional>

#include "platform/base/CString.h"

class ElidedLabel;
class QAction;
class QPushButton;

class ResultFiles : public QWidget {
public:
    explicit ResultFiles(QWidget* parent);

    // The buttons do what these do.
    void Follow(QAction& report, QAction& film);
    // Whether there are isolines, which have a report of their own.
    void SetHasLines(bool hasLines);
    // What was made last: what it is, in words, and its path; from then on buttons open it and its folder.
    void SetMade(const CString& what, const CString& path);
    void Clear();
    void Retranslate();

    std::function<void()> m_onLinesReport;
    // Opens a file or a folder with the program that the desktop has for it, and calls the second one when that fails.
    std::function<void(const QUrl&, const std::function<void()>&)> m_open;
    std::function<void(const CString&)> m_complain;

private:
    void Open(const CString& path) const;

    QPushButton* m_report;
    QPushButton* m_film;
    QPushButton* m_lines;
    ElidedLabel* m_made;
    QPushButton* m_opener;
    QPushButton* m_folder;
    CString m_path;  // of what was made last; empty for nothing
};
