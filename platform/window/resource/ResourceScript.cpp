// Reads the statements of dialogs. What a statement adds to an item's style by itself is what resource compilers add.
#include "platform/window/resource/ResourceScript.h"

#include <algorithm>
#include <set>

#include "platform/base/Language.h"
#include "platform/window/WindowStyles.h"
#include "platform/window/resource/ResourceParser.h"

namespace {

// An item's statement: the class that it makes, the bits that the style always begins with, and those that are added
// when the statement names no style.
struct ItemStatement {
    std::string_view keyword;
    const wchar_t* windowClass;
    DWORD always;
    DWORD alone;
};

constexpr ItemStatement kStatements[] = {
    {"LTEXT", L"STATIC", SS_LEFT, WS_GROUP},
    {"CTEXT", L"STATIC", SS_CENTER, WS_GROUP},
    {"RTEXT", L"STATIC", SS_RIGHT, WS_GROUP},
    {"PUSHBUTTON", L"BUTTON", BS_PUSHBUTTON | WS_TABSTOP, 0},
    {"DEFPUSHBUTTON", L"BUTTON", BS_DEFPUSHBUTTON | WS_TABSTOP, 0},
    {"CHECKBOX", L"BUTTON", BS_CHECKBOX | WS_TABSTOP, 0},
    {"AUTOCHECKBOX", L"BUTTON", BS_AUTOCHECKBOX | WS_TABSTOP, 0},
    {"RADIOBUTTON", L"BUTTON", BS_RADIOBUTTON, WS_TABSTOP},
    {"AUTORADIOBUTTON", L"BUTTON", BS_AUTORADIOBUTTON, WS_TABSTOP},
    {"GROUPBOX", L"BUTTON", BS_GROUPBOX, 0},
    {"EDITTEXT", L"EDIT", ES_LEFT | WS_BORDER | WS_TABSTOP, 0},
    {"COMBOBOX", L"COMBOBOX", 0, CBS_SIMPLE | WS_TABSTOP},
    {"LISTBOX", L"LISTBOX", LBS_NOTIFY | WS_BORDER, 0},
};

constexpr DWORD kEveryItem = WS_CHILD | WS_VISIBLE;
constexpr DWORD kDialogWithoutStyle = WS_POPUP | WS_BORDER | WS_SYSMENU;

class DialogReader : public ResourceParser {
public:
    using ResourceParser::ResourceParser;

    bool Read(std::vector<DialogTemplate>& dialogs);

private:
    bool ReadNextDialog(std::vector<DialogTemplate>& dialogs);
    bool ReadLanguage();
    bool ReadDialog(DialogTemplate& dialog);
    bool ReadPlace(DialogTemplate& dialog);
    bool ReadHeader(DialogTemplate& dialog);
    bool ReadFont(DialogTemplate& dialog);
    bool ReadItems(DialogTemplate& dialog);
    bool ReadItem(DialogTemplate& dialog);
    bool ReadControl(DialogItemTemplate& item);
    bool ReadClass(CString& windowClass);
    bool ReadStatement(const ItemStatement& statement, DialogItemTemplate& item);
    bool ReadStyles(const ItemStatement& statement, DialogItemTemplate& item);
    bool ReadExStyleAndHelp(DWORD& exStyle);
    bool SkipIcon();
    template <class Template>
    bool ReadRectangle(Template& place);

    std::set<UINT> m_numbers;  // of the dialogs so far
};

bool DialogReader::Read(std::vector<DialogTemplate>& dialogs) {
    while (!IsAtEnd()) {
        if (Token().kind == Kind::kDefine) {
            if (!ReadDefine())
                return false;
        } else if (TakeWord("LANGUAGE")) {
            if (!ReadLanguage())
                return false;
        } else if (!ReadNextDialog(dialogs)) {
            return false;
        }
    }
    return true;
}

bool DialogReader::ReadNextDialog(std::vector<DialogTemplate>& dialogs) {
    const int line = Token().line;
    DialogTemplate dialog;
    if (!ReadDialog(dialog))
        return false;
    if (!m_numbers.insert(dialog.id).second)
        return FailAt(line, PlatformText(L"这个编号的对话框已经有了"));
    dialogs.push_back(std::move(dialog));
    return true;
}

// A language and its variant, as numbers or as names, of which the headers know hundreds: either is passed over.
bool DialogReader::ReadLanguage() {
    for (int part = 0; part < 2; ++part) {
        if (part > 0 && !ReadComma())
            return false;
        if (Token().kind != Kind::kNumber && Token().kind != Kind::kWord)
            return Fail(L"这里应该是语言");
        Advance();
    }
    return true;
}

bool DialogReader::ReadDialog(DialogTemplate& dialog) {
    const int line = Token().line;
    if (!ReadID(dialog.id))
        return false;
    if (dialog.id == 0 || dialog.id == IDC_STATIC)
        return FailAt(line, PlatformText(L"数超出范围"));
    if (!TakeWord("DIALOGEX"))
        return Fail(L"这里应该是 DIALOGEX");
    return ReadPlace(dialog) && ReadHeader(dialog) && ReadItems(dialog);
}

// The words between say how systems of old kept a resource in memory.
bool DialogReader::ReadPlace(DialogTemplate& dialog) {
    constexpr std::string_view kMemory[] = {"DISCARDABLE", "MOVEABLE", "PURE", "PRELOAD", "LOADONCALL", "FIXED"};
    while (
        std::any_of(std::begin(kMemory), std::end(kMemory), [this](std::string_view word) { return TakeWord(word); }))
        continue;
    DWORD help = 0;
    return ReadRectangle(dialog) && (!TakeSign(',') || ReadNumber(help));
}

template <class Template>
bool DialogReader::ReadRectangle(Template& place) {
    return ReadShort(place.x) && ReadComma() && ReadShort(place.y) && ReadComma() && ReadShort(place.cx) &&
           ReadComma() && ReadShort(place.cy);
}

bool DialogReader::ReadHeader(DialogTemplate& dialog) {
    bool hasStyle = false;
    bool isRead = true;
    while (isRead && !IsWord("BEGIN") && !IsSign('{')) {
        if (TakeWord("STYLE")) {
            isRead = ReadStyle(dialog.style);
            hasStyle = true;
        } else if (TakeWord("EXSTYLE")) {
            isRead = ReadStyle(dialog.exStyle);
        } else if (TakeWord("CAPTION")) {
            isRead = ReadText(dialog.caption);
            dialog.style |= WS_CAPTION;
        } else if (TakeWord("FONT")) {
            isRead = ReadFont(dialog);
            dialog.style |= DS_SETFONT;
        } else if (TakeWord("LANGUAGE")) {
            isRead = ReadLanguage();
        } else {
            isRead = Fail(L"这里应该是 BEGIN");
        }
    }
    if (!hasStyle)
        dialog.style |= kDialogWithoutStyle;
    return isRead;
}

// The weight, whether it is italic and the characters' set follow where they are given; every dialog has the upright
// regular font.
bool DialogReader::ReadFont(DialogTemplate& dialog) {
    const int line = Token().line;
    short size = 0;
    if (!ReadShort(size))
        return false;
    if (size <= 0)
        return FailAt(line, PlatformText(L"数超出范围"));
    dialog.pointSize = size;
    if (!ReadComma() || !ReadText(dialog.face))
        return false;
    constexpr int kMostMore = 3;
    for (int more = 0; more < kMostMore && TakeSign(','); ++more) {
        DWORD ignored = 0;
        if (!ReadNumber(ignored))
            return false;
    }
    return true;
}

bool DialogReader::ReadItems(DialogTemplate& dialog) {
    const bool isBrace = IsSign('{');
    Advance();
    while (!(isBrace ? IsSign('}') : IsWord("END")))
        if (!ReadItem(dialog))
            return false;
    Advance();
    return true;
}

bool DialogReader::ReadItem(DialogTemplate& dialog) {
    if (TakeWord("ICON"))
        return SkipIcon();
    DialogItemTemplate item;
    if (TakeWord("CONTROL")) {
        if (!ReadControl(item))
            return false;
    } else {
        const auto* statement = std::find_if(std::begin(kStatements), std::end(kStatements),
                                             [this](const ItemStatement& known) { return IsWord(known.keyword); });
        if (statement == std::end(kStatements))
            return Fail(IsAtEnd() ? L"对话框没有结束" : L"不认识的控件语句");
        Advance();
        if (!ReadStatement(*statement, item))
            return false;
    }
    dialog.items.push_back(std::move(item));
    return true;
}

// CONTROL text, number, class, style, place [, extended style [, help]]
bool DialogReader::ReadControl(DialogItemTemplate& item) {
    item.style = kEveryItem;
    return ReadText(item.text) && ReadComma() && ReadID(item.id) && ReadComma() && ReadClass(item.windowClass) &&
           ReadComma() && ReadStyle(item.style) && ReadComma() && ReadRectangle(item) &&
           ReadExStyleAndHelp(item.exStyle);
}

// The classes of the system count in any case of letters, and are written in one.
bool DialogReader::ReadClass(CString& windowClass) {
    if (Token().kind == Kind::kWord) {
        windowClass = FromUtf8(Token().word);
        Advance();
    } else if (!ReadText(windowClass)) {
        return false;
    }
    for (const wchar_t* system : {L"BUTTON", L"EDIT", L"STATIC", L"LISTBOX", L"COMBOBOX", L"SCROLLBAR"})
        if (windowClass.CompareNoCase(system) == 0)
            windowClass = system;
    return true;
}

// KEYWORD [text,] number, place [, style [, extended style [, help]]]
bool DialogReader::ReadStatement(const ItemStatement& statement, DialogItemTemplate& item) {
    item.windowClass = statement.windowClass;
    const std::wstring_view windowClass = statement.windowClass;
    const bool hasText = windowClass == L"STATIC" || windowClass == L"BUTTON";
    if (hasText && (!ReadText(item.text) || !ReadComma()))
        return false;
    return ReadID(item.id) && ReadComma() && ReadRectangle(item) && ReadStyles(statement, item);
}

bool DialogReader::ReadStyles(const ItemStatement& statement, DialogItemTemplate& item) {
    item.style = kEveryItem | statement.always;
    if (!TakeSign(',')) {
        item.style |= statement.alone;
        return true;
    }
    return ReadStyle(item.style) && ReadExStyleAndHelp(item.exStyle);
}

bool DialogReader::ReadExStyleAndHelp(DWORD& exStyle) {
    DWORD help = 0;
    return !TakeSign(',') || (ReadStyle(exStyle) && (!TakeSign(',') || ReadNumber(help)));
}

// ICON name, number, x, y [, width, height [, style [, extended style]]]
bool DialogReader::SkipIcon() {
    if (Token().kind != Kind::kText && Token().kind != Kind::kNumber && Token().kind != Kind::kWord)
        return Fail(L"这里应该是图标");
    Advance();
    constexpr int kLeast = 3;
    constexpr int kMost = 7;
    for (int count = 0; count < kMost && (count < kLeast || IsSign(',')); ++count) {
        DWORD ignored = 0;
        if (!ReadComma() || !ReadStyle(ignored))
            return false;
    }
    return true;
}

}  // namespace

bool ResourceScript::Parse(std::string_view utf8, CString& message) {
    m_dialogs.clear();
    DialogReader reader(utf8);
    std::vector<DialogTemplate> dialogs;
    const bool isRead = reader.Read(dialogs);
    message = reader.Message();
    if (isRead)
        m_dialogs = std::move(dialogs);
    return isRead;
}

const DialogTemplate* ResourceScript::FindDialog(UINT id) const {
    const auto found = std::find_if(m_dialogs.begin(), m_dialogs.end(),
                                    [id](const DialogTemplate& dialog) { return dialog.id == id; });
    return found == m_dialogs.end() ? nullptr : &*found;
}
