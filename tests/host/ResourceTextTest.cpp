// Which module has which resource script.
#include "platform/host/ResourceText.h"

#include <gtest/gtest.h>

#include <array>
#include <string_view>

namespace {

const std::array<int, 65> g_modules{};

TEST(ResourceText, IsEmptyForAModuleThatHasNone) {
    EXPECT_TRUE(AfxGetResourceText(&g_modules[0]).empty());
    EXPECT_TRUE(AfxGetResourceText(nullptr).empty());
}

TEST(ResourceText, IsFoundByItsModuleUntilItIsTakenBack) {
    constexpr std::string_view kFirst = "first";
    EXPECT_TRUE(AfxSetResourceText(&g_modules[0], kFirst));
    EXPECT_TRUE(AfxSetResourceText(&g_modules[1], "second"));
    EXPECT_TRUE(AfxSetResourceText(nullptr, "program"));
    EXPECT_EQ(AfxGetResourceText(&g_modules[0]).data(), kFirst.data()) << "it is the module's own text, not a copy";
    EXPECT_EQ(AfxGetResourceText(&g_modules[1]), "second");
    EXPECT_EQ(AfxGetResourceText(nullptr), "program");
    EXPECT_TRUE(AfxSetResourceText(&g_modules[0], {}));
    EXPECT_TRUE(AfxGetResourceText(&g_modules[0]).empty());
    EXPECT_EQ(AfxGetResourceText(&g_modules[1]), "second");
    EXPECT_TRUE(AfxSetResourceText(&g_modules[1], {}));
    EXPECT_TRUE(AfxSetResourceText(nullptr, {}));
    EXPECT_TRUE(AfxGetResourceText(nullptr).empty());
}

TEST(ResourceText, IsReplacedByAnotherOfTheSameModule) {
    EXPECT_TRUE(AfxSetResourceText(&g_modules[0], "first"));
    EXPECT_TRUE(AfxSetResourceText(&g_modules[0], "second"));
    EXPECT_EQ(AfxGetResourceText(&g_modules[0]), "second");
    EXPECT_TRUE(AfxSetResourceText(&g_modules[0], {}));
    EXPECT_TRUE(AfxGetResourceText(&g_modules[0]).empty()) << "the first is not there any more";
}

TEST(ResourceText, MayBeTakenBackTwice) {
    EXPECT_TRUE(AfxSetResourceText(&g_modules[0], {}));
    EXPECT_TRUE(AfxSetResourceText(&g_modules[0], {}));
}

TEST(ResourceText, HasRoomForSixtyFourModules) {
    for (std::size_t index = 0; index < 64; ++index)
        EXPECT_TRUE(AfxSetResourceText(&g_modules[index], "text"));
    EXPECT_FALSE(AfxSetResourceText(&g_modules[64], "text"));
    EXPECT_TRUE(AfxGetResourceText(&g_modules[64]).empty());
    EXPECT_EQ(AfxGetResourceText(&g_modules[63]), "text");
    EXPECT_TRUE(AfxSetResourceText(&g_modules[63], "other")) << "replacing takes no room";
    EXPECT_TRUE(AfxSetResourceText(&g_modules[64], {})) << "taking back what is not there changes nothing";
    EXPECT_TRUE(AfxSetResourceText(&g_modules[10], {}));
    EXPECT_TRUE(AfxSetResourceText(&g_modules[64], "text")) << "the place of one that went";
    for (const int& module : g_modules)
        EXPECT_TRUE(AfxSetResourceText(&module, {}));
}

}  // namespace
