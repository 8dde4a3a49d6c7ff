// What is stopped on its way to the XML library.
#include "platform/base/XmlGuard.h"

#include <gtest/gtest.h>

#include <string>

namespace {

// All at once, and byte by byte.
bool Passes(const std::string& bytes) {
    XmlGuard whole;
    XmlGuard pieces;
    bool passes = true;
    for (const char byte : bytes)
        passes = passes && pieces.Take({&byte, 1});
    EXPECT_EQ(whole.Take(bytes), passes) << bytes.substr(0, 100);
    return passes;
}

std::string Wide(const std::string& ascii, bool isBigEndian, bool hasMark) {
    std::string bytes = !hasMark ? "" : isBigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (const char c : ascii)
        bytes += isBigEndian ? std::string{'\0', c} : std::string{c, '\0'};
    return bytes;
}

std::string Element(int attributes, const std::string& attribute) {
    std::string tag = "<a";
    for (int i = 0; i < attributes; ++i)
        tag += attribute;
    return tag + ">";
}

TEST(XmlGuard, StopsADocumentTypeBeforeItsFirstDeclaration) {
    for (const std::string bytes :
         {"<!D", "<!DOCTYPE", " <!D", "\xEF\xBB\xBF<!D", "<?xml version='1.0'?>\n<!-- x --><!D", "<![", "<?p?><!D"}) {
        EXPECT_FALSE(Passes(bytes)) << bytes;
        for (const bool isBigEndian : {false, true})
            EXPECT_FALSE(Passes(Wide(bytes, isBigEndian, true))) << bytes;
    }
    EXPECT_FALSE(Passes(Wide("<!D", false, false)));
    EXPECT_FALSE(Passes(Wide("<!D", true, false)));
}

TEST(XmlGuard, LetsPassWhatOnlyLooksLikeADocumentType) {
    for (const std::string bytes : {"<!-- <!DOCTYPE -->", "<!--><!D-->", "<?p <!D ?>", "<?p ? > <!D ?>", "<r><!D",
                                    "<r/><!D", "<r a='<!D'", "", "<", "<!", "<!-"}) {
        EXPECT_TRUE(Passes(bytes)) << bytes;
        EXPECT_TRUE(Passes(Wide(bytes, false, true))) << bytes;
    }
}

TEST(XmlGuard, CountsTheAttributesOfEachTagByItself) {
    for (const std::string attribute : {" a='1'", " a = \"1\"", " a='>'", " a='\"'", " a=\"'\""}) {
        EXPECT_TRUE(Passes(Element(1000, attribute))) << attribute;
        EXPECT_FALSE(Passes(Element(1001, attribute))) << attribute;
        EXPECT_TRUE(Passes(Element(700, attribute) + Element(700, attribute))) << attribute;
        EXPECT_FALSE(Passes(Wide(Element(1001, attribute), true, true))) << attribute;
        EXPECT_TRUE(Passes(Wide(Element(1000, attribute), true, true))) << attribute;
    }
}

TEST(XmlGuard, CountsNoQuotesOutsideOfTags) {
    std::string quotes;
    for (int i = 0; i < 3000; ++i)
        quotes += "\"x\" = 'y' ";
    EXPECT_TRUE(Passes("<!--" + quotes + "--><?p " + quotes + "?><r>" + quotes + "<!--" + quotes + "--><?p " + quotes +
                       "?><![CDATA[" + quotes + "]]></r>"));
}

TEST(XmlGuard, SeesATagWhateverStoodBefore) {
    // What looks like an open comment or value must not hide the tag behind it.
    for (const std::string before :
         {"<r><![CDATA[<!--]]>", "<r><![CDATA[<a b=']]>", "<r><?p '?>", "<r>'", "<r>\"<b c='>"})
        EXPECT_FALSE(Passes(before + Element(1001, " a='1'"))) << before;
}

}  // namespace
