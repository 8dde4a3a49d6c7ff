// Runs a thread and an event loop side by side.
#include "workbench/window/LongWork.h"

#include <QEventLoop>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>
#include <algorithm>
#include <exception>
#include <thread>

#include "workbench/view/WidgetText.h"

namespace {

constexpr int kMomentMilliseconds = 250;
constexpr int kStepMilliseconds = 50;
constexpr int kSteps = 1000;

std::function<void()>& Hold() {
    static std::function<void()> hold;
    return hold;
}

// What must not be used meanwhile. What could not be used before is left alone.
class Disabled {
public:
    // The window has a focus of its own also before it is the active one.
    Disabled(const QWidget& window, const std::vector<QWidget*>& widgets) : m_focus(window.focusWidget()) {
        for (QWidget* widget : widgets)
            if (widget->isEnabledTo(widget->parentWidget())) {
                widget->setEnabled(false);
                m_widgets.push_back(widget);
            }
    }
    ~Disabled() {
        for (QWidget* widget : m_widgets)
            widget->setEnabled(true);
        if (m_focus)
            m_focus->setFocus();
    }
    Disabled(const Disabled&) = delete;
    Disabled& operator=(const Disabled&) = delete;

private:
    QPointer<QWidget> m_focus;
    std::vector<QWidget*> m_widgets;
};

}  // namespace

LongWork::LongWork(QStatusBar& bar) : m_bar(new QProgressBar(&bar)), m_button(new QPushButton(&bar)) {
    m_bar->setObjectName("Progress");
    m_button->setObjectName("CancelWork");
    bar.addPermanentWidget(m_bar);
    bar.addPermanentWidget(m_button);
    m_bar->hide();
    m_button->hide();
    QObject::connect(m_button, &QPushButton::clicked, m_button, [this] { Cancel(); });
    Retranslate();
}

void LongWork::Retranslate() {
    m_button->setText(ShownSay(L"取消"));  // it takes the shortcut away
    m_button->setShortcut(Qt::Key_Escape);
    m_bar->setAccessibleName(ShownSay(L"进度"));
}

void LongWork::Cancel() {
    if (m_progress)
        m_progress->isCancelled = true;
}

void LongWork::GiveUp() {
    if (m_progress)
        m_progress->isGivenUp = true;
    Cancel();
}

void LongWork::Run(const QString& title, const std::vector<QWidget*>& disabled,
                   std::function<void(SceneProgress&)> work, bool canBeCancelled) {
    SceneProgress progress;
    m_progress = &progress;
    m_title = title;
    std::exception_ptr failure;
    {
        const Disabled locked(*m_bar->window(), disabled);
        QEventLoop loop;
        std::thread thread([&] {
            try {
                if (Hold())
                    Hold()();
                work(progress);
            } catch (...) {
                failure = std::current_exception();
            }
            QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
        });
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, &loop, [&] {
            timer.setInterval(kStepMilliseconds);
            ShowProgress(title, canBeCancelled);
        });
        timer.start(kMomentMilliseconds);
        loop.exec();
        thread.join();
    }
    m_progress = nullptr;
    m_bar->hide();
    m_button->hide();
    if (failure)
        std::rethrow_exception(failure);
}

void LongWork::HoldForTest(std::function<void()> hold) {
    Hold() = std::move(hold);
}

// The toolkit breaks a text that has no room into lines, of which the bar shows the middle.
void LongWork::FitText(const QString& title) {
    constexpr int kLetters = 36;
    constexpr int kEdges = 12;
    const QFontMetrics letters = m_bar->fontMetrics();
    const int window = m_bar->window()->width();
    m_bar->setFixedWidth(std::min(kLetters * letters.averageCharWidth(), window / 3));
    const int room = m_bar->width() - kEdges - letters.horizontalAdvance(" 100%");
    m_bar->setFormat(letters.elidedText(title, Qt::ElideRight, room) + " %p%");
    m_bar->setToolTip(title);
}

// Of a file that is still being read nobody knows how far it is.
void LongWork::ShowProgress(const QString& title, bool canBeCancelled) {
    const std::size_t total = m_progress->total;
    const std::size_t done = m_progress->done;
    m_bar->setRange(0, total == 0 ? 0 : kSteps);
    if (total > 0)
        m_bar->setValue(static_cast<int>(static_cast<double>(done) * kSteps / static_cast<double>(total)));
    FitText(title);
    m_bar->show();
    m_button->setEnabled(!m_progress->isCancelled);
    if (!canBeCancelled || !m_button->isHidden())
        return;
    m_button->show();
    m_button->setFocus();  // once: whoever turns the view meanwhile keeps the keys
}
