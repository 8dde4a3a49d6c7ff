// The box of the toolkit, with our buttons, our captions and our rules for Escape.
#include "platform/window/MessageBox.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPushButton>
#include <QString>
#include <QTimer>
#include <vector>

#include "platform/base/CString.h"
#include "platform/base/Language.h"
#include "platform/base/Message.h"
#include "platform/window/Application.h"
#include "platform/window/ModalDriver.h"

namespace {

struct Choice {
    int command;
    const wchar_t* caption;
    QMessageBox::ButtonRole role;
};
constexpr Choice kOk = {IDOK, L"确定", QMessageBox::AcceptRole};
constexpr Choice kCancel = {IDCANCEL, L"取消", QMessageBox::RejectRole};
constexpr Choice kYes = {IDYES, L"是(&Y)", QMessageBox::YesRole};
constexpr Choice kNo = {IDNO, L"否(&N)", QMessageBox::NoRole};

constexpr UINT kButtonBits = 0x0F;
constexpr UINT kIconBits = 0xF0;
constexpr UINT kDefaultBits = 0xF00;

std::vector<Choice> ChoicesOf(UINT type) {
    switch (type & kButtonBits) {
        case MB_OKCANCEL:
            return {kOk, kCancel};
        case MB_YESNO:
            return {kYes, kNo};
        case MB_YESNOCANCEL:
            return {kYes, kNo, kCancel};
        default:
            return {kOk};
    }
}

QMessageBox::Icon IconOf(UINT type) {
    switch (type & kIconBits) {
        case MB_ICONSTOP:
            return QMessageBox::Critical;
        case MB_ICONQUESTION:
            return QMessageBox::Question;
        case MB_ICONEXCLAMATION:
            return QMessageBox::Warning;
        case MB_ICONINFORMATION:
            return QMessageBox::Information;
        default:
            return QMessageBox::NoIcon;
    }
}

std::size_t DefaultOf(UINT type, std::size_t count) {
    const UINT bits = type & kDefaultBits;
    const std::size_t index = bits == MB_DEFBUTTON2 ? 1 : bits == MB_DEFBUTTON3 ? 2 : 0;
    return index < count ? index : 0;
}

// The answer that changes least.
int CarefulAnswer(const std::vector<Choice>& choices) {
    return choices.back().command;
}

// What Escape and the close button give; 0 where they do nothing.
int EscapeAnswer(const std::vector<Choice>& choices) {
    const int last = choices.back().command;
    return last == IDNO ? 0 : last;
}

QString ToQt(const CString& text) {
    const std::string utf8 = ToUtf8(text.View());
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

// A long path has no blanks to break at: it may be broken behind each separator.
QString Breakable(QString text) {
    constexpr char16_t kZeroWidthSpace = 0x200B;
    for (const char16_t separator : {u'/', u'\\'})
        text.replace(QChar(separator), QString(QChar(separator)) + QChar(kZeroWidthSpace));
    return text;
}

class Box : public QMessageBox {
public:
    Box(QWidget* owner, const QString& text, const QString& caption, UINT type)
        : QMessageBox(owner), m_choices(ChoicesOf(type)) {
        setWindowTitle(caption);
        setTextFormat(Qt::PlainText);
        setText(Breakable(text));
        setIcon(IconOf(type));
        setObjectName("MessageBox");
        setAccessibleName(caption);
        for (const Choice& choice : m_choices) {
            QPushButton* button = addButton(ToQt(PlatformText(choice.caption)), choice.role);
            button->setObjectName(QString("ID_%1").arg(choice.command));
            button->setAccessibleName(button->text().remove('&'));
            m_buttons.push_back(button);
        }
        setDefaultButton(m_buttons[DefaultOf(type, m_buttons.size())]);
    }

    // Shows the box and gives the command of its button.
    int Run(const ModalWindow& window) {
        ModalWindow shown = window;
        shown.widget = this;
        QTimer timer;
        timer.callOnTimeout(this, [this, &timer, &shown] {
            if (!isVisible() || (!isActiveWindow() && ++m_waits < kMostWaits))
                return;
            timer.stop();
            Press(ModalDriver::Ask(shown));
        });
        if (ModalDriver::IsThere())
            timer.start(0);
        exec();
        return m_answer != 0 ? m_answer : CommandOf(clickedButton());
    }

protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Escape) {
            Finish(EscapeAnswer(m_choices));
            return;
        }
        // A letter alone answers, as with Alt.
        for (QPushButton* button : m_buttons) {
            const qsizetype mark = button->text().indexOf('&');
            const QString letter = mark < 0 ? QString() : button->text().mid(mark + 1, 1);
            if (!letter.isEmpty() && event->text().compare(letter, Qt::CaseInsensitive) == 0) {
                button->click();
                return;
            }
        }
        QMessageBox::keyPressEvent(event);
    }

    void closeEvent(QCloseEvent* event) override {
        event->ignore();
        Finish(EscapeAnswer(m_choices));
    }

private:
    static constexpr int kMostWaits = 1000;  // turns of the event loop: some window systems activate nothing

    void Press(int command) {
        if (command == 0)
            return;
        for (std::size_t i = 0; i < m_choices.size(); ++i) {
            if (m_choices[i].command == command) {
                m_buttons[i]->click();
                return;
            }
        }
        Finish(CarefulAnswer(m_choices));
    }

    // Ends the box without a button; an answer of 0 leaves it open.
    void Finish(int answer) {
        if (answer == 0)
            return;
        m_answer = answer;
        done(0);
    }

    int CommandOf(const QAbstractButton* button) const {
        for (std::size_t i = 0; i < m_choices.size(); ++i)
            if (m_buttons[i] == button)
                return m_choices[i].command;
        return CarefulAnswer(m_choices);
    }

    std::vector<Choice> m_choices;
    std::vector<QPushButton*> m_buttons;
    int m_answer = 0;
    int m_waits = 0;
};

}  // namespace

int MessageBox(HWND owner, const wchar_t* text, const wchar_t* caption, UINT type) {
    NeedApplication();
    const CString shownText(text);
    const CString shownCaption(caption);
    if (!CanBeSeen() && !ModalDriver::IsThere()) {
        ReportMessage(shownText);
        return CarefulAnswer(ChoicesOf(type));
    }
    Box box(WidgetOf(owner), ToQt(shownText), ToQt(shownCaption), type);
    return box.Run({shownCaption, shownText, owner, nullptr});
}
