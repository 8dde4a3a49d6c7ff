// Names fields in the place of options, before values are filled in, so that no layer's or file's name is taken for
// one.
#include "workbench/Texts.h"

#include <string_view>

namespace {

struct FieldWord {
    std::wstring_view option;
    const wchar_t* field;
};
// What begins as another one stands before that.
constexpr FieldWord kFields[] = {
    {L"--window-height", L"“窗高（米）”"},
    {L"--windows", L"“窗的图层”"},
    {L"--height", L"图层列表的“高度（米）”"},
    {L"--need", L"“需要（小时）”"},
    {L"--north", L"“正北（度）”"},
    {L"--proposed", L"“方案图层”"},
    {L"--areas", L"“区域图层”"},
    {L"--spacing", L"“点距（米）”"},
    {L"--sill", L"“窗台标高（米）”"},
    {L"--storeys", L"“层数=层高”"},
    {L"--facing", L"“窗朝向（度）”"},
    {L"--least-altitude", L"“最低高度角”"},
    {L"--scope", L"“略去太远的遮挡”"},
    {L"--every", L"“录像每隔（分）”"},
    {L"--size", L"“录像大小”"},
    {L"--film", L"“录像”"},
    {L"--report", L"“报告”"},
    {L"--level", L"命令行的“points --level”"},  // the panel has no field for it
    {L"--place", L"“日照设置”"},
    {L"--standard", L"“日照设置”"},
    {L"orvo set --step", L"“日照设置”"},
    {L"orvo set", L"“日照设置”"},
    {L"orvo standards", L"命令行的 standards"},
};

// How many there are. In the room that a thread has from its beginning: what a library that came later adds is found by
// guesses of the leak checker, which fail at times.
[[gnu::tls_model("initial-exec")]] constinit thread_local int theFieldWords = 0;

bool IsOfWord(wchar_t sign) {
    return (sign >= L'a' && sign <= L'z') || sign == L'-';
}

const FieldWord* FieldAt(std::wstring_view text) {
    for (const FieldWord& each : kFields)
        if (text.starts_with(each.option) && (text.size() == each.option.size() || !IsOfWord(text[each.option.size()])))
            return &each;
    return nullptr;
}

}  // namespace

FieldWords::FieldWords() {
    ++theFieldWords;
}

FieldWords::~FieldWords() {
    --theFieldWords;
}

CString OptionWord(const wchar_t* option) {
    const FieldWord* const field = theFieldWords > 0 ? FieldAt(option) : nullptr;
    return field ? TranslateFor(kWorkbenchTexts, field->field) : CString(option);
}

CString Say(const wchar_t* text) {
    CString translated = TranslateFor(kWorkbenchTexts, text);
    if (theFieldWords == 0)
        return translated;
    CString named;
    std::wstring_view rest = translated.View();
    while (!rest.empty()) {
        const FieldWord* const field = FieldAt(rest);
        named += field ? TranslateFor(kWorkbenchTexts, field->field) : CString(rest.substr(0, 1));
        rest.remove_prefix(field ? field->option.size() : 1);
    }
    return named;
}
