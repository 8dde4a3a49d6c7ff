// The box of the toolkit, with our buttons, our captions and our rules for Escape.
#include "platform/window/MessageBox.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPushButton>
#include <QString>
#include <QTextBoundaryFinder>
#include <vector>

#include "platform/base/CString.h"
#include "platform/base/Language.h"
#include "platform/base/Message.h"
#include "platform/window/toolkit/Application.h"
#include "platform/window/toolkit/ModalRun.h"
#include "platform/window/toolkit/QtText.h"

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

// A long path has no blanks to break at: it may be broken behind each separator, and a name that fills a line of its
// own anywhere between two letters. Without that the toolkit cuts the rest of it off.
QString Breakable(QString text) {
    constexpr QChar kZeroWidthSpace(0x200B);
    constexpr qsizetype kLongestWord = 40;
    for (const char16_t separator : {u'/', u'\\'})
        text.replace(QChar(separator), QString(QChar(separator)) + kZeroWidthSpace);

    QString broken;
    QTextBoundaryFinder words(QTextBoundaryFinder::Line, text);
    for (qsizetype start = 0, end = words.toNextBoundary(); end > start; end = words.toNextBoundary()) {
        const QString word = text.mid(start, end - start);
        start = end;
        if (word.size() <= kLongestWord) {
            broken += word;
            continue;
        }
        QTextBoundaryFinder letters(QTextBoundaryFinder::Grapheme, word);
        for (qsizetype from = 0, to = letters.toNextBoundary(); to > from; to = letters.toNextBoundary()) {
            broken += word.mid(from, to - from) + kZeroWidthSpace;
            from = to;
        }
    }
    return broken;
}

// What would make the box higher than a screen, and push its buttons out of it, is left out at the end.
QString Shortened(const QString& text, const QFontMetrics& letters) {
    constexpr int kMostWidth = 750;   // in heights of a letter: some forty lines
    constexpr int kWidthOfLine = 20;  // the narrowest that the toolkit makes a line
    const QChar ellipsis(0x2026);
    int width = kMostWidth * letters.height();
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar unit = text[i];
        if (unit == QChar(u'\n'))
            width -= kWidthOfLine * letters.height();
        else if (!unit.isLowSurrogate())
            width -= unit.isHighSurrogate() ? 2 * letters.height() : letters.horizontalAdvance(unit);
        if (width < 0)
            return text.left(i) + ellipsis;
    }
    return text;
}

class Box : public QMessageBox {
public:
    Box(QWidget* owner, const QString& text, const QString& caption, UINT type)
        : QMessageBox(owner), m_choices(ChoicesOf(type)) {
        setWindowTitle(caption);
        setTextFormat(Qt::PlainText);
        setText(Breakable(Shortened(text, fontMetrics())));
        setIcon(IconOf(type));
        setWindowModality(owner != nullptr ? Qt::WindowModal : Qt::ApplicationModal);
        setObjectName("MessageBox");
        setAccessibleName(caption);
        for (const Choice& choice : m_choices) {
            QPushButton* button = addButton(ToQString(PlatformText(choice.caption)), choice.role);
            button->setObjectName(QString("ID_%1").arg(choice.command));
            button->setAccessibleName(button->text().remove('&'));
            m_buttons.push_back(button);
        }
        setDefaultButton(m_buttons[DefaultOf(type, m_buttons.size())]);
    }

    // Carries out a driver's answer, unless its keys have ended the box already. An answer without a button counts,
    // too.
    void Press(int command) {
        for (std::size_t i = 0; i < m_choices.size(); ++i) {
            if (m_choices[i].command == command) {
                m_buttons[i]->click();
                return;
            }
        }
        Finish(command == ModalDriver::kCareful ? CarefulAnswer(m_choices) : command);
    }

    // The command the box was answered with, when it is over.
    int Answer() const {
        if (m_answer != 0)
            return m_answer;
        for (std::size_t i = 0; i < m_choices.size(); ++i)
            if (m_buttons[i] == clickedButton())
                return m_choices[i].command;
        return CarefulAnswer(m_choices);
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
    // Ends the box without a button; an answer of 0 leaves it open.
    void Finish(int answer) {
        if (answer == 0 || clickedButton() != nullptr)
            return;
        m_answer = answer;
        done(0);
    }

    std::vector<Choice> m_choices;
    std::vector<QPushButton*> m_buttons;
    int m_answer = 0;
};

// Shows the box until it is answered. It goes with its owner, should that be closed meanwhile.
int Run(Box* box, const ModalWindow& window, int carefulAnswer) {
    const auto press = [box](int command) {
        box->Press(command);
        return true;
    };
    if (!RunModal(box, window, press))
        return carefulAnswer;
    const int answer = box->Answer();
    delete box;
    return answer;
}

}  // namespace

int MessageBox(HWND owner, const wchar_t* text, const wchar_t* caption, UINT type) {
    const CString shownText(text);
    const CString shownCaption(caption);
    const int carefulAnswer = CarefulAnswer(ChoicesOf(type));
    if (!CanBeAnswered()) {
        ReportMessage(shownText);
        return carefulAnswer;
    }
    auto* box = new Box(WidgetOf(owner), ToQString(shownText), ToQString(shownCaption), type);
    return Run(box, {shownCaption, shownText, owner, nullptr}, carefulAnswer);
}
