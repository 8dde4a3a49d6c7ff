// A page of a property sheet and what its sheet hears.
#include "platform/window/CPropertyPage.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "window/DialogForTests.h"

namespace {

TEST(CPropertyPage, TellsItsSheetOfChanges) {
    DialogForTests sheet("PUSHBUTTON \"x\", 10, 7, 7, 40, 14\n");
    std::vector<std::pair<UINT, WPARAM>> heard;
    sheet.m_onMessage = [&](UINT message, WPARAM wParam, LPARAM) {
        if (message == PSM_CHANGED || message == PSM_UNCHANGED)
            heard.emplace_back(message, wParam);
    };
    sheet.Run([&](const ModalWindow&) {
        CPropertyPage page(100, &sheet);
        const ModalDriver driver([&](const ModalWindow&) {
            EXPECT_FALSE(page.IsModified());
            page.SetModified();
            EXPECT_TRUE(page.IsModified());
            page.SetModified(FALSE);
            EXPECT_FALSE(page.IsModified());
            const auto window = reinterpret_cast<WPARAM>(page.m_hWnd);
            EXPECT_EQ(heard, (std::vector<std::pair<UINT, WPARAM>>{{PSM_CHANGED, window}, {PSM_UNCHANGED, window}}));
            return IDCANCEL;
        });
        EXPECT_EQ(page.DoModal(), IDCANCEL);
        EXPECT_EQ(driver.GetCount(), 1);
    });
}

TEST(CPropertyPage, IsHarmlessWithoutAWindowOrSheet) {
    CPropertyPage page(100);
    page.SetModified();
    EXPECT_TRUE(page.IsModified());
    EXPECT_EQ(page.m_hWnd, nullptr);
}

}  // namespace
