// Work that takes its time, in a thread of its own, while the window lives: with a bar and a button in the status bar.
// Why: docs/decisions/workbench.md
#pragma once

#include <QString>
#include <functional>
#include <vector>

#include "scene/SceneProgress.h"

class QProgressBar;
class QPushButton;
class QStatusBar;
class QWidget;

class LongWork {
public:
    explicit LongWork(QStatusBar& bar);

    // Runs `work`, and events meanwhile, until it has ended. The widgets given are disabled for that time, and then
    // have the focus that they had. The bar appears when it takes longer than a moment, and the button with it unless
    // the work has to come to its end. One at a time.
    void Run(const QString& title, const std::vector<QWidget*>& disabled, std::function<void(SceneProgress&)> work,
             bool canBeCancelled = true);
    // Asks what runs to leave off, if anything does.
    void Cancel();
    // The same, and to leave nothing of what it has made so far.
    void GiveUp();
    bool IsRunning() const { return m_progress != nullptr; }
    bool IsCancelled() const { return m_progress && m_progress->isCancelled; }
    // Of what runs, or ran last.
    const QString& GetTitle() const { return m_title; }
    void Retranslate();

    // Is called before each work begins, in its thread, until there is none any more: so a test has the time to do what
    // somebody does meanwhile.
    static void HoldForTest(std::function<void()> hold);

private:
    void ShowProgress(const QString& title, bool canBeCancelled);
    void FitText(const QString& title);

    QProgressBar* m_bar;
    QPushButton* m_button;
    SceneProgress* m_progress = nullptr;
    QString m_title;
};
