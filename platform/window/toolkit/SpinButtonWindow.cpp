// The pair of arrows, and how they step the number in the edit beside them.
#include <QKeyEvent>
#include <QPointer>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <charconv>
#include <cstdint>

#include "platform/window/WindowStyles.h"
#include "platform/window/toolkit/SpinArrows.h"
#include "platform/window/toolkit/WindowEvents.h"
#include "platform/window/toolkit/WindowKinds.h"

namespace {

// The number an edit shows; false when it shows none.
bool ReadNumber(const WindowLink& edit, int& number) {
    CString text = TextOf(edit.Handle());
    const std::string bytes = ToUtf8(text.Trim().View());
    const auto [end, error] = std::from_chars(bytes.data(), bytes.data() + bytes.size(), number);
    return error == std::errc() && end == bytes.data() + bytes.size();
}

class Arrows : public QWidget, public SpinArrows {
public:
    Arrows(QWidget* parent, DWORD style) : QWidget(parent), m_style(style) {
        auto* column = new QVBoxLayout(this);
        column->setContentsMargins(0, 0, 0, 0);
        column->setSpacing(0);
        AddArrow(*column, Qt::UpArrow, 1);
        AddArrow(*column, Qt::DownArrow, -1);
    }

    void SetRange(int lower, int upper) override {
        m_lower = lower;
        m_upper = upper;
    }

    void GetRange(int& lower, int& upper) const override {
        lower = m_lower;
        upper = m_upper;
    }

    int SetPos(int position) override {
        const int before = GetPos();
        m_pos = Clamp(position);
        // The number's edit tells the parent, who may close everything.
        const WindowAtWork atWork(*WindowLink::Of(this));
        if (WindowLink* edit = BuddyLink(); edit && (m_style & UDS_SETBUDDYINT) != 0) {
            CString text;
            text.Format(L"%d", m_pos);
            Dispatch(*edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.GetString()));
            Dispatch(*edit, EM_SETMODIFY, TRUE, 0);
        }
        return before;
    }

    int GetPos() const override {
        int number = 0;
        WindowLink* edit = BuddyLink();
        const bool read = edit && (m_style & UDS_SETBUDDYINT) != 0 && ReadNumber(*edit, number);
        return Clamp(read ? number : m_pos);
    }

    void SetBuddy(QWidget* buddy) override {
        if (!m_buddy.isNull())
            m_buddy->removeEventFilter(this);
        m_buddy = buddy;
        if (buddy != nullptr && (m_style & UDS_ARROWKEYS) != 0)
            buddy->installEventFilter(this);
    }

    QWidget* GetBuddy() const override { return m_buddy.data(); }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() != QEvent::KeyPress)
            return false;
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key != Qt::Key_Up && key != Qt::Key_Down)
            return false;
        Step(key == Qt::Key_Up ? 1 : -1);
        return true;
    }

private:
    void AddArrow(QVBoxLayout& column, Qt::ArrowType shape, int delta) {
        auto* arrow = new QToolButton(this);
        arrow->setArrowType(shape);
        arrow->setAutoRepeat(true);
        arrow->setFocusPolicy(Qt::NoFocus);
        arrow->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
        arrow->setObjectName(delta > 0 ? "Up" : "Down");
        column.addWidget(arrow, 1);
        connect(arrow, &QToolButton::clicked, this, [this, delta] { Step(delta); });
    }

    WindowLink* BuddyLink() const { return WindowLink::Of(m_buddy.data()); }

    int Clamp(std::int64_t position) const {
        return static_cast<int>(
            std::clamp<std::int64_t>(position, std::min(m_lower, m_upper), std::max(m_lower, m_upper)));
    }

    // What a step changes the position by.
    int Change(int delta) const { return m_lower <= m_upper ? delta : -delta; }

    // The next position; past an end it stays there, or goes on at the other one (UDS_WRAP).
    int Next(int position, int delta) const {
        const std::int64_t next = std::int64_t{position} + Change(delta);
        if (Clamp(next) == next || (m_style & UDS_WRAP) == 0)
            return Clamp(next);
        return delta > 0 ? m_lower : m_upper;
    }

    // Asks the parent, which may refuse the step.
    bool IsAllowed(int position, int delta) {
        NMUPDOWN step = {{nullptr, 0, UDN_DELTAPOS}, position, Change(delta)};
        return WindowLink::Of(this)->NotifyParent(step.hdr) == 0;
    }

    void Step(int delta) {
        const int position = GetPos();
        if (IsAllowed(position, delta))
            SetPos(Next(position, delta));
    }

    DWORD m_style;
    int m_lower = 0;
    int m_upper = 100;
    int m_pos = 0;
    QPointer<QWidget> m_buddy;
};

}  // namespace

WindowLink& MakeSpinButton(const ControlRequest& request) {
    auto* arrows = new Arrows(request.parent, request.style);
    return MakeWindow(arrows, request.id, request.style, &CommonProcedure);
}
