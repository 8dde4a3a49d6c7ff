// Sections, one after the other.
#include "ManualPage.h"

#include "Roff.h"
#include "platform/host/Subcommands.h"
#include "workbench/Texts.h"
#include "workbench/commands/CommandLineModel.h"
#include "workbench/commands/UsageText.h"

namespace {

// One page while it grows.
class Page {
public:
    Page(const CString& name, const ManualHead& head, ProseFile& prose) : m_prose(prose) {
        CString title = name;
        title.MakeUpper();
        m_text = ".\\\" Made from the table of subcommands: whatever is changed here goes with the next build.\n";
        m_text += ".TH " + Typed(title) + " 1 " + head.date + " \"orvo " + head.version + "\" \"" +
                  Typed(prose.GetHeading(L"MANUAL")) + "\"\n";
        m_text += ".nh\n.ad l\n";  // no word is divided, and none pulled apart
    }

    void Section(const wchar_t* name) { m_text += ".SH " + Typed(m_prose.GetHeading(name)) + "\n"; }
    void Line(const std::string& line) { m_text += line + "\n"; }
    void Term(const std::string& term, const std::string& text) { m_text += ".TP\n" + term + "\n" + text + "\n"; }

    // The pieces of a part of the prose.
    void Part(const CString& name) {
        bool isFirst = true;
        for (const ProsePiece& piece : m_prose.GetPart(name)) {
            if (!piece.term.IsEmpty())
                Term(Bold(piece.term), Prose(piece.text));
            else
                m_text += (isFirst ? "" : ".PP\n") + Prose(piece.text) + "\n";
            isFirst = false;
        }
    }

    const std::string& Text() const { return m_text; }

private:
    ProseFile& m_prose;
    std::string m_text;
};

CString PageName(const CString& subcommand) {
    return L"orvo-" + subcommand;
}

// "-o, --output FILE", or "FILE".
std::string OptionTerm(const SubcommandOption& option) {
    if (option.IsPositional())
        return Italic(option.name);
    std::string term;
    for (const CString& name : option.GetNames())
        term += (term.empty() ? "" : ", ") + Bold(name);
    return option.type.IsEmpty() ? term : term + " " + Italic(option.type);
}

// The same in a synopsis: by its first name, in brackets where it may be left out.
std::string OptionUse(const SubcommandOption& option) {
    const CString name = option.GetNames().front();
    std::string use = option.IsPositional() ? Italic(name) : Bold(name);
    if (!option.type.IsEmpty())
        use += "\\ " + Italic(option.type);
    if (option.count == SubcommandOption::kMany)
        use += "...";
    return (option.isRequired ? use : "[" + use + "]") + "\\&";  // which ends no sentence
}

void AddOptions(Page& page, const Subcommand* row) {
    page.Section(L"OPTIONS");
    if (row)
        for (const SubcommandOption& option : row->options)
            page.Term(OptionTerm(option), Prose(TextOf(*row, option.description)));
    for (const SubcommandOption& option : ProgramOptions())
        page.Term(OptionTerm(option), Prose(Say(option.description)));
}

void AddExamples(Page& page, const std::vector<CString>& examples) {
    if (examples.empty())
        return;
    page.Section(L"EXAMPLES");
    for (const CString& example : examples) {
        page.Line(&example == &examples.front() ? ".nf" : ".PP\n.nf");  // a heading begins a paragraph by itself
        page.Line("    " + Bold(example));
        page.Line(".fi");
    }
}

// What holds for the program with whatever subcommand.
void AddSharedSections(Page& page) {
    for (const auto& [heading, part] :
         {std::pair(L"EXIT STATUS", L"exit status"), {L"ENVIRONMENT", L"environment"}, {L"FILES", L"files"}}) {
        page.Section(heading);
        page.Part(part);
    }
}

}  // namespace

std::string ProgramPage(const ManualHead& head, ProseFile& prose) {
    Page page(L"orvo", head, prose);
    page.Section(L"NAME");
    page.Line("orvo \\- " + Typed(Say(L"日照分析共享数据的主机程序")));
    page.Section(L"SYNOPSIS");
    page.Line(Bold(L"orvo"));
    for (const SubcommandOption& option : ProgramOptions())
        page.Line(OptionUse(option));
    page.Line("[" + Italic(prose.GetHeading(L"SUBCOMMAND")) + " [" + Italic(prose.GetHeading(L"ARGUMENTS")) + "] | " +
              Italic(L"FILE.dxf") + "]");
    page.Section(L"DESCRIPTION");
    page.Part(L"orvo");
    page.Section(L"SUBCOMMANDS");
    for (const Subcommand* row : HostSubcommands().GetAll())
        page.Term(Bold(PageName(row->name)) + "(1)", Prose(TextOf(*row, row->description)));
    AddOptions(page, nullptr);
    AddSharedSections(page);
    AddExamples(page, ProgramExamples());
    page.Section(L"SEE ALSO");
    bool isFirst = true;
    for (const Subcommand* row : HostSubcommands().GetAll()) {
        if (!isFirst)
            page.Line(",");
        page.Line(Bold(PageName(row->name)) + "(1)\\c");
        isFirst = false;
    }
    page.Line("");
    return page.Text();
}

std::string SubcommandPage(const Subcommand& row, const ManualHead& head, ProseFile& prose) {
    Page page(PageName(row.name), head, prose);
    page.Section(L"NAME");
    page.Line(Typed(PageName(row.name)) + " \\- " + Typed(TextOf(row, row.description)));
    page.Section(L"SYNOPSIS");
    page.Line(Bold(L"orvo " + row.name));
    for (const SubcommandOption& option : row.options)
        page.Line(OptionUse(option));
    page.Section(L"DESCRIPTION");
    page.Part(row.name);
    AddOptions(page, &row);
    AddSharedSections(page);
    AddExamples(page, row.examples);
    page.Section(L"SEE ALSO");
    page.Line(Bold(L"orvo") + "(1)");
    return page.Text();
}
