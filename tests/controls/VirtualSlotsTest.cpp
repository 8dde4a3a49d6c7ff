// The places of the edits' virtual operations: dialogs and grids in other modules are compiled against them.
#include <gtest/gtest.h>

#include <type_traits>

#include "controls/OrvoDateEdit.h"
#include "controls/OrvoDegreeEdit.h"
#include "controls/OrvoTimeEdit.h"
#include "support/VirtualSlots.h"

namespace {

using Window = void (CWnd::*)();
static_assert(std::is_same_v<decltype(&CWnd::PostNcDestroy), Window>);
static_assert(std::is_same_v<decltype(&OrvoTimeEdit::PostNcDestroy), Window>, "not overridden");
static_assert(std::is_same_v<decltype(&OrvoDegreeEdit::PostNcDestroy), void (OrvoDegreeEdit::*)()>, "overridden");

#if defined(__x86_64__)
// An operation that a class adds stands behind all that its base has.
template <class Base>
class OneMore : public Base {
public:
    using Base::Base;
    virtual void Next() {}
};

template <class Base>
std::size_t SlotsOf() {
    return SlotOf(&OneMore<Base>::Next);
}

TEST(VirtualSlots, TheEditsTestsFollowTheOperationsOfTheirBases) {
    using OfCharacter = bool (QcSunEdit::*)(wchar_t);
    using OfTimePlace = bool (OrvoTimeEdit::*)(UINT);
    using OfDegreePlace = bool (OrvoDegreeEdit::*)(UINT);
    const std::size_t first = SlotsOf<CEdit>();
    EXPECT_EQ(SlotOf(static_cast<OfCharacter>(&QcSunEdit::IsValidChar)), first);
    EXPECT_EQ(SlotsOf<QcSunEdit>(), first + 1);
    EXPECT_EQ(SlotOf(static_cast<OfTimePlace>(&OrvoTimeEdit::IsValidChar)), first + 1);
    EXPECT_EQ(SlotsOf<OrvoTimeEdit>(), first + 2);
    EXPECT_EQ(SlotsOf<OrvoDateEdit>(), first + 1) << "the date's test of places is an ordinary member";
    EXPECT_EQ(SlotOf(static_cast<OfDegreePlace>(&OrvoDegreeEdit::IsValidChar)), first + 1);
}

TEST(VirtualSlots, TheCellEditorsOperationsStandInTheirOrder) {
    EXPECT_EQ(SlotOf(&QcUiGridCellCtrl::GetWnd), 2U) << "the destructor takes two places";
    EXPECT_EQ(SlotOf(&QcUiGridCellCtrl::Create), 3U);
    EXPECT_EQ(SlotOf(&QcUiGridCellCtrl::IsModified), 4U);
    EXPECT_EQ(SlotOf(&QcUiGridCellCtrl::GetText), 5U);
    EXPECT_EQ(SlotOf(&QcUiGridCellCtrl::IsCaretAtBegin), 6U);
    EXPECT_EQ(SlotOf(&QcUiGridCellCtrl::IsCaretAtEnd), 7U);
    EXPECT_EQ(SlotOf(&QcUiGridCellCtrl::WantsArrowKeys), 8U);
    EXPECT_EQ(SlotOf(&QcUiGridCellCtrl::CanEndEdit), 9U);
    EXPECT_EQ(SlotOf(&QcUiGridCellCtrl::SetModified), 10U);
    EXPECT_EQ(SlotOf(&QcUiGridCellCtrl::SetText), 11U);
}
#endif

}  // namespace

TEST(VirtualSlots, DerivedTestsAreTheOnesThatOwnersReach) {
    class Picky : public OrvoTimeEdit {
    public:
        bool IsValidChar(wchar_t character) override { return character == L'1'; }
        bool IsValidChar(UINT character) override { return character == L'2'; }
    };
    Picky picky;
    QcSunEdit& base = picky;
    OrvoTimeEdit& time = picky;
    EXPECT_TRUE(base.IsValidChar(L'1'));
    EXPECT_FALSE(base.IsValidChar(L'2'));
    EXPECT_TRUE(time.IsValidChar(static_cast<UINT>(L'2')));
    EXPECT_FALSE(time.IsValidChar(static_cast<UINT>(L'1')));
}
