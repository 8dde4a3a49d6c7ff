// Singular and plural in translated formats.
#include "platform/base/PluralForms.h"

#include <gtest/gtest.h>

namespace {

template <class... Args>
CString Chosen(const wchar_t* format, const Args&... args) {
    const TextArgument list[sizeof...(Args) + 1] = {TextArgument(args)..., TextArgument(0)};
    return ChooseForms(format, list, sizeof...(Args));
}

}  // namespace

TEST(PluralForms, AreSingularForOneAlone) {
    EXPECT_EQ(Chosen(L"%d {day|days} left", 1), L"%d day left");
    for (const int count : {-1, 0, 2, 11, 21, 101})
        EXPECT_EQ(Chosen(L"%d {day|days} left", count), L"%d days left") << count;
    EXPECT_EQ(Chosen(L"%s {minute|minutes}", L"1"), L"%s minute");
    for (const wchar_t* text : {L"", L"0", L"10", L"1.5", L"1.0", L"-1", L"one"})
        EXPECT_EQ(Chosen(L"%s {minute|minutes}", text), L"%s minutes") << ToUtf8(text);
    EXPECT_EQ(Chosen(L"%.2f {hour|hours}", 1.0), L"%.2f hours");
}

TEST(PluralForms, GoByTheValueBeforeThem) {
    EXPECT_EQ(Chosen(L"%d {day|days}, %d {hour|hours}", 1, 2), L"%d day, %d hours");
    EXPECT_EQ(Chosen(L"%d {day|days}, %d {hour|hours}", 2, 1), L"%d days, %d hour");
    EXPECT_EQ(Chosen(L"of %s %.2d {lies|lie} in {it|them}", L"7", 1), L"of %s %.2d lies in it");
    EXPECT_EQ(Chosen(L"100%% of %d {box|boxes}", 1), L"100%% of %d box") << "two signs are no value";
    EXPECT_EQ(Chosen(L"%-5lf {|s} %05d{|s}", 1.0, 1), L"%-5lf s %05d") << "a form may be empty";
}

TEST(PluralForms, LeaveOtherBracesAlone) {
    for (const wchar_t* format :
         {L"{day|days} %d", L"%d {days}", L"%d {a|b|c}", L"%d {a|b", L"%d a|b}", L"%d {}", L"%d }{"})
        EXPECT_EQ(Chosen(format, 1), format) << ToUtf8(format);
    EXPECT_EQ(Chosen(L"%d {{a|b}", 1), L"%d {a") << "the inner ones are two forms";
    EXPECT_EQ(Chosen(L"", 1), L"");
}

TEST(PluralForms, AreNotLookedForInWhatIsFilledIn) {
    CString text;
    text.Format(Chosen(L"%d {picture|pictures} in %s", 1, L"{a|b}"), 1, L"{a|b}");
    EXPECT_EQ(text, L"1 picture in {a|b}");
}
