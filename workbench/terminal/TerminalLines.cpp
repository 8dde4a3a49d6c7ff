// The line editor.
#include "workbench/terminal/TerminalLines.h"

#include <unistd.h>

#include <cerrno>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <iterator>
#include <utility>
#include <vector>

#include "platform/base/PlainText.h"

namespace {

volatile std::sig_atomic_t g_wasInterrupted = 0;
volatile std::sig_atomic_t g_wasResized = 0;
volatile std::sig_atomic_t g_wasContinued = 0;

void NoteSignal(int number) {
    if (number == SIGINT)
        g_wasInterrupted = 1;
    else if (number == SIGWINCH)
        g_wasResized = 1;
    else
        g_wasContinued = 1;
}

constexpr int kSignals[] = {SIGINT, SIGWINCH, SIGCONT};

// While a line is read, signals end the waiting for a key: an interrupt gives up the line and not the program.
class SignalGuard {
public:
    SignalGuard() {
        struct sigaction action = {};
        action.sa_handler = NoteSignal;  // without SA_RESTART
        g_wasInterrupted = 0;
        for (std::size_t i = 0; i < std::size(kSignals); ++i)
            sigaction(kSignals[i], &action, &m_before[i]);
    }
    ~SignalGuard() {
        for (std::size_t i = 0; i < std::size(kSignals); ++i)
            sigaction(kSignals[i], &m_before[i], nullptr);
    }
    SignalGuard(const SignalGuard&) = delete;
    SignalGuard& operator=(const SignalGuard&) = delete;

private:
    struct sigaction m_before[std::size(kSignals)] = {};
};

// One byte from the terminal: 1, 0 at the end, -1 when the line is given up or the terminal is gone.
int ReadByte(EditLine* editor, unsigned char& byte) {
    for (;;) {
        const ssize_t count = g_wasInterrupted ? -1 : read(STDIN_FILENO, &byte, 1);
        if (count >= 0)
            return static_cast<int>(count);
        if (g_wasInterrupted || errno != EINTR)
            return -1;
        if (g_wasContinued) {
            el_set(editor, EL_PREP_TERM, 1);
            el_set(editor, EL_REFRESH);
        }
        if (g_wasResized)
            el_resize(editor);
        g_wasContinued = 0;
        g_wasResized = 0;
    }
}

// How many bytes follow the first one of a character in UTF-8.
int BytesBehind(unsigned char first) {
    return first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : first >= 0xC0 ? 1 : 0;
}

// One character from the terminal, as the editor asks for it. The editor's own way of reading would take up its waiting
// again after an interrupt.
int ReadCharacter(EditLine* editor, wchar_t* character) {
    unsigned char byte = 0;
    const int got = ReadByte(editor, byte);
    if (got <= 0)
        return got;
    std::string bytes(1, static_cast<char>(byte));
    for (int i = BytesBehind(byte); i > 0; --i) {
        if (ReadByte(editor, byte) <= 0)
            return -1;
        bytes += static_cast<char>(byte);
    }
    *character = FromUtf8(bytes).GetAt(0);
    return 1;
}

void ShowMatches(const std::vector<CString>& matches) {
    constexpr std::size_t kMostShown = 60;
    std::string list = "\n";
    for (std::size_t i = 0; i < matches.size() && i < kMostShown; ++i)
        list += ToUtf8(Printable(matches[i]).View()) + "  ";
    if (matches.size() > kMostShown)
        list += "...";
    list += "\n";
    std::fwrite(list.data(), 1, list.size(), stdout);
    std::fflush(stdout);
}

}  // namespace

TerminalLines::TerminalLines(LineCompleter completer) : m_completer(std::move(completer)) {
    // The editor draws and reads by the character set of the process. Only that part of the locale is chosen here, and
    // the texts of the program are UTF-8 in any case.
    std::setlocale(LC_CTYPE, "C.UTF-8");
    m_editor = el_init("orvo", stdin, stdout, stderr);
    if (!IsUsable())
        return;
    el_set(m_editor, EL_CLIENTDATA, this);
    el_set(m_editor, EL_GETCFN, ReadCharacter);
    el_set(m_editor, EL_PROMPT, &TerminalLines::PromptOf);
    el_set(m_editor, EL_EDITOR, "emacs");
    el_set(m_editor, EL_HIST, history, m_history.GetHandle());
    // By its wide form, which keeps the two texts instead of copies that nobody frees.
    el_wset(m_editor, EL_ADDFN, L"orvo-complete", L"completes the word", &TerminalLines::Complete);
    el_set(m_editor, EL_BIND, "^I", "orvo-complete", nullptr);
}

TerminalLines::~TerminalLines() {
    if (m_editor)
        el_end(m_editor);
}

char* TerminalLines::PromptOf(EditLine*) {
    static char prompt[] = "orvo> ";
    return prompt;
}

unsigned char TerminalLines::Complete(EditLine* editor, int) {
    const LineInfo* info = el_line(editor);
    const CString line =
        FromUtf8(std::string_view(info->buffer, static_cast<std::size_t>(info->cursor - info->buffer)));
    TerminalLines* self = nullptr;
    el_get(editor, EL_CLIENTDATA, &self);
    const LineCompletion completion = self->m_completer(line);
    if (completion.choices.empty())
        return CC_REFRESH_BEEP;
    if (completion.rest.IsEmpty()) {
        ShowMatches(completion.choices);
        return CC_REDISPLAY;
    }
    el_deletestr(editor, completion.replaced);
    return el_insertstr(editor, ToUtf8(completion.rest.View()).c_str()) == 0 ? CC_REFRESH : CC_ERROR;
}

LineSource::Got TerminalLines::Next(CString& line) {
    const SignalGuard guard;
    // Before the prompt appears, and not only when the first key is waited for: what is typed at once, such as Ctrl-D,
    // would otherwise be taken up by the terminal itself.
    el_set(m_editor, EL_PREP_TERM, 1);
    int length = 0;
    const char* read = el_gets(m_editor, &length);
    if (g_wasInterrupted) {
        std::fputc('\n', stdout);
        el_reset(m_editor);
        return Got::Canceled;
    }
    if (!read || length <= 0)
        return length < 0 ? Got::Failed : Got::End;
    std::string_view text(read, static_cast<std::size_t>(length));
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r'))
        text.remove_suffix(1);
    line = FromUtf8(text);
    if (text.find_first_not_of(" \t") != std::string_view::npos)
        m_history.Remember(line);
    return Got::Line;
}
