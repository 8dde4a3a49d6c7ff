// The messages about values that cannot be read.
#include "workbench/commands/ValueErrors.h"

#include "platform/base/PlainText.h"
#include "workbench/Texts.h"

namespace {

CString FaceForm() {
    return Say(L"；请写 3 或 4 个角点，如 --face \"0,0,0;4,0,0;4,3,0\"（分号连同引号一起写）");
}

CString LightForm() {
    return Say(L"；请写光线前进的方向，如 --light 1,0,-2");
}

}  // namespace

CString BadDateText(const CString& value) {
    return SayFormat(L"“%s”不是日期：请按 年-月-日 写一个存在的日期，例如 2025-12-22，或节气名，例如 大寒、2026大寒",
                     Printable(value));
}

CString BadClockText(const wchar_t* option, const CString& value) {
    return SayFormat(L"%s 的值“%s”不是时刻：请按 时:分 写，从 0:00 到 24:00，例如 9:00", OptionWord(option),
                     Printable(value));
}

CString BadNumberText(const wchar_t* option, const CString& value, int least, int most) {
    return SayFormat(L"%s 的值“%s”不对：请写一个从 %d 到 %d 的整数", OptionWord(option), Printable(value), least, most);
}

CString UnreasonableTermsText() {
    return Say(L"节气文件中的赤纬或时差不合理，算不出太阳的时刻。");
}

CString BadCornerText(const CString& face, int corner) {
    return SayFormat(L"--face 的值“%s”不对：第 %d 个角点不是三个数 x,y,z", Printable(face), corner) + FaceForm();
}

CString BadCornerCountText(const CString& face, int count) {
    return SayFormat(L"--face 的值“%s”不对：有 %d 个角点", Printable(face), count) + FaceForm();
}

CString BadLightText(const CString& value) {
    return SayFormat(L"--light 的值“%s”不对：不是三个数 dx,dy,dz", Printable(value)) + LightForm();
}

CString ZeroLightText(const CString& value) {
    return SayFormat(L"--light 的值“%s”不对：零向量没有方向", Printable(value)) + LightForm();
}
