// The files that are made of an answer: the buttons for them, and where the last one is.
// Why: docs/decisions/workbench.md
#pragma once

#include <QUrl>
#include <QWidget>
#include <functional>

#include "platform/base/CString.h"

class QLabel;
class QPushButton;

class ResultFiles : public QWidget {
public:
    explicit ResultFiles(QWidget* parent);

    // Whether there is a drawing to make them of.
    void SetReady(bool isReady);
    // Whether there are isolines, which have a report of their own.
    void SetHasLines(bool hasLines);
    // What was made last: what it is, in words, and its path; from then on a button opens it.
    void SetMade(const CString& what, const CString& path);
    void Clear();
    void Retranslate();

    std::function<void()> m_onReport;
    std::function<void()> m_onLinesReport;
    std::function<void()> m_onFilm;
    // Opens a file with the program that the desktop has for it; false when there is none.
    std::function<bool(const QUrl&)> m_open;
    std::function<void(const CString&)> m_complain;

private:
    void Open() const;

    QPushButton* m_report;
    QPushButton* m_film;
    QPushButton* m_lines;
    QLabel* m_made;
    QPushButton* m_opener;
    CString m_path;  // of what was made last; empty for nothing
};
