// A plug-in as somebody else would write it: a subcommand that says how it was called, and misbehaves when it is told
// to.
#include <stdexcept>

#include "platform/host/CommandLine.h"
#include "platform/host/ExitCode.h"
#include "platform/host/HostMessages.h"
#include "platform/host/Output.h"
#include "platform/host/Progress.h"
#include "platform/host/RxRegistry.h"
#include "platform/host/Subcommands.h"

namespace {

CString Joined(const std::vector<CString>& words) {
    CString text;
    for (const CString& word : words)
        text += L"<" + word + L">";
    return text;
}

// Counts until nobody wants it any more.
int Work(SubcommandCall& call) {
    constexpr int kParts = 2000000000;
    call.GetOutput().Line(L"half an answer");
    for (int part = 1; part <= kParts; ++part) {
        if (!call.GetProgress().Show(part, kParts, L"part %d of %d")) {
            call.GetOutput().Complain(L"stopped as asked");
            return kExitFailed;
        }
    }
    return kExitOk;
}

int Echo(SubcommandCall& call) {
    const CString text = call.GetValue(L"TEXT").value_or(L"");
    if (text == L"throw")
        throw std::runtime_error("thrown by echo");
    call.GetOutput().Line(L"half an answer");
    if (text == L"throw-number")
        throw 42;
    if (text == L"complain") {
        call.GetOutput().Complain(L"echo complains");
        return kExitFailed;
    }
    call.GetOutput().Write("text <" + ToUtf8(text.View()) + ">\n");
    call.GetOutput().Line(L"more " + Joined(call.GetValues(L"MORE")));
    call.GetOutput().Line(L"color <" + call.GetValue(L"-c").value_or(L"none") + L">");
    call.GetOutput().Line(L"pair " + Joined(call.GetValues(L"--pair")));
    call.GetOutput().Line(L"tags " + Joined(call.GetValues(L"--tag")));
    call.GetOutput().Line(call.HasFlag(L"--loud") ? L"loud" : L"quiet");
    if (text == L"wrong-value")
        call.GetValue(L"-c,--color");
    if (text == L"wrong-values")
        call.GetValues(L"--tags");
    if (text == L"wrong-flag")
        call.HasFlag(L"loud");
    return kExitOk;
}

std::vector<CString> Colors() {
    return {L"crimson", L"cobalt"};
}

std::vector<CString> ThrowWords() {
    throw std::runtime_error("thrown while completing");
}

CString Translated(const wchar_t* text) {
    if (CString(text) == L"has no words")
        throw 42;
    return CString(L"~") + text;
}

Subcommand EchoRow(const wchar_t* name) {
    Subcommand row;
    row.name = name;
    row.description = L"says how it was called";
    SubcommandOption text = ValueOption(L"TEXT", L"", L"what to say", [] { return std::vector<CString>{L"twilight"}; });
    text.isRequired = true;
    row.options = {text,
                   ValueOption(L"-c,--color", L"NAME", L"in which color", Colors),
                   ValueOption(L"--bad", L"", L"has no words", ThrowWords),
                   ValuesOption(L"--pair", 2, L"A B", L"two values"),
                   ValuesOption(L"--tag", SubcommandOption::kMany, L"NAME", L"again and again"),
                   FlagOption(L"--loud", L"louder"),
                   ValuesOption(L"MORE", SubcommandOption::kMany, L"", L"whatever follows")};
    row.examples = {L"orvo echo hello --color cobalt"};
    row.run = Echo;
    row.translate = Translated;
    return row;
}

Subcommand WorkRow(const wchar_t* name) {
    Subcommand row;
    row.name = name;
    row.description = L"works for ever";
    row.run = Work;
    return row;
}

// A command that takes itself away while it runs.
void ThrowNumber() {
    HostCommandStack().removeGroup(ECHO_NAME L"-commands");
    throw 42;
}

void Add(const Subcommand& row, void* applicationHandle) {
    CString reason;
    if (!HostSubcommands().Add(row, applicationHandle, reason))
        acutPrintf(L"\n" ECHO_NAME L": %s", reason);
}

}  // namespace

extern "C" ORVO_API int acrxEntryPoint(int message, void* applicationHandle) {
    if (message == AcRx::kInitAppMsg) {
        acrxUnlockApplication(applicationHandle);
        acutPrintf(L"\n" ECHO_NAME L" comes");
        Add(EchoRow(ECHO_NAME), applicationHandle);
        Add(WorkRow(ECHO_NAME L"-work"), applicationHandle);
        HostCommandStack().addCommand(ECHO_NAME L"-commands", ECHO_NAME L"-command", 0, ThrowNumber);
#ifdef ECHO_WANTS_INFO
        Add(EchoRow(L"info"), applicationHandle);
#endif
#ifdef ECHO_REFUSES
        return AcRx::kRetError;
#endif
    }
    if (message == AcRx::kUnloadAppMsg) {
        HostCommandStack().removeGroup(ECHO_NAME L"-commands");
        acutPrintf(HostSubcommands().Find(L"info") ? L"\n" ECHO_NAME L" goes" : L"\n" ECHO_NAME L" goes too late");
    }
    return AcRx::kRetOK;
}
