// Texts and numbers of pages and pictures.
#include "workbench/report/Markup.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>

#include "support/GermanLocale.h"

TEST(Markup, EscapesWhatBeginsOrEndsTagsAttributesAndReferences) {
    EXPECT_EQ(Markup(L"<a b=\"c\" d='e'>&amp;"), "&lt;a b=&quot;c&quot; d=&#39;e&#39;&gt;&amp;amp;");
}

TEST(Markup, WritesEveryWidthOfUtf8) {
    EXPECT_EQ(Markup(L"z\u00E9\u7A97"), "z\xC3\xA9\xE7\xAA\x97");
    CString wide;
    for (const wchar_t unit : {L'a', static_cast<wchar_t>(0x1F3E0), L'b'})
        wide += unit;
    EXPECT_EQ(Markup(wide),
              "a\xF0\x9F\x8F\xA0"
              "b");
}

TEST(Markup, ReplacesWhatXmlForbids) {
    const std::string unknown = "\xEF\xBF\xBD";
    for (const int code : {1, 8, 0x0B, 0x0C, 0x1F, 0x7F, 0x9F, 0xD800, 0xDBFF, 0xDC00, 0xDFFF, 0xFFFE, 0xFFFF}) {
        CString text(L"x");
        text += static_cast<wchar_t>(code);
        EXPECT_EQ(Markup(text), "x" + unknown) << std::hex << code;
    }
    EXPECT_EQ(Markup(L"a\tb\nc"), "a\tb\nc");
}

TEST(Coordinate, HasAsManyDecimalsAsSaySomethingAndThreeAtMost) {
    EXPECT_EQ(Coordinate(0.0), "0");
    EXPECT_EQ(Coordinate(-0.0), "0");
    EXPECT_EQ(Coordinate(-0.0004), "0");
    EXPECT_EQ(Coordinate(12.0), "12");
    EXPECT_EQ(Coordinate(100.0), "100");
    EXPECT_EQ(Coordinate(-1.25), "-1.25");
    EXPECT_EQ(Coordinate(0.1256), "0.126");
}

TEST(Coordinate, IsANumberWhateverComesAndWhateverTheLocale) {
    EXPECT_EQ(Coordinate(std::numeric_limits<double>::quiet_NaN()), "0");
    EXPECT_EQ(Coordinate(std::numeric_limits<double>::infinity()), "0");
    EXPECT_EQ(Coordinate(1e300), "1000000000000");
    EXPECT_EQ(Coordinate(-1e300), "-1000000000000");
    EXPECT_EQ(Coordinate(1e-300), "0");
    const GermanLocale german;
    EXPECT_EQ(Coordinate(0.5), "0.5");
}
