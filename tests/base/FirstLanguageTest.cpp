// The language that static objects of a program find.
#include <gtest/gtest.h>

#include "base/Installation.h"

namespace {

using FirstLanguage = Installation;

TEST_F(FirstLanguage, IsChineseAlreadyInStaticConstructors) {
    EXPECT_EQ(Ask({"first-language"}).output, "Chs");
}

}  // namespace
