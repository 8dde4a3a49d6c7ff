// Data exchange: both ways, what counts as a number, the checks, and what a refused entry does.
#include "platform/window/DataExchange.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <climits>
#include <cmath>
#include <limits>
#include <optional>
#include <string>

#include "platform/window/CButton.h"
#include "support/TableSwitch.h"
#include "window/DialogForTests.h"

namespace {

constexpr const char* kItems =
    "EDITTEXT 10, 7, 7, 60, 14\n"
    "EDITTEXT 11, 70, 7, 60, 14\n"
    "AUTOCHECKBOX \"check\", 12, 7, 25, 60, 10\n"
    "COMBOBOX 13, 70, 25, 60, 60, CBS_DROPDOWNLIST\n"
    "AUTORADIOBUTTON \"one\", 20, 7, 40, 40, 10, WS_GROUP\n"
    "AUTORADIOBUTTON \"two\", 21, 50, 40, 40, 10\n"
    "PUSHBUTTON \"between\", 24, 50, 50, 40, 10\n"
    "AUTORADIOBUTTON \"three\", 22, 100, 40, 40, 10\n"
    "AUTORADIOBUTTON \"other\", 23, 7, 55, 60, 10, WS_GROUP\n";

struct Exchange : testing::Test {
    DialogForTests dialog{kItems};
    QLineEdit* edit = nullptr;
    QLineEdit* second = nullptr;
    std::vector<std::string> boxes;  // the messages shown

    void Run(const std::function<void(CDataExchange*)>& exchange, const std::function<void()>& work) {
        dialog.m_onInit = [this, exchange] { dialog.m_onExchange = exchange; };
        dialog.Run([&](const ModalWindow& window) {
            edit = Control<QLineEdit>(window, 10);
            second = Control<QLineEdit>(window, 11);
            const ModalDriver driver([this](const ModalWindow& box) {
                boxes.push_back(ToUtf8(box.text.View()));
                EXPECT_EQ(ToUtf8(box.caption.View()), "Test");
                return IDOK;
            });
            work();
        });
        dialog.m_onExchange = nullptr;
    }

    // What an entry is read as; nothing when it is refused.
    template <class Number>
    std::optional<Number> Read(const std::wstring& entry) {
        Number value = 77;
        std::optional<Number> read;
        Run([&](CDataExchange* exchange) { DDX_Text(exchange, 10, value); },
            [&] {
                edit->setText(QString::fromStdWString(entry));
                if (dialog.UpdateData(TRUE))
                    read = value;
                else
                    EXPECT_EQ(value, Number{77}) << "a refused entry changes nothing";
            });
        return read;
    }

    template <class Number>
    std::string Shown(Number value) {
        std::string text;
        Run([&](CDataExchange* exchange) { DDX_Text(exchange, 10, value); },
            [&] {
                EXPECT_TRUE(dialog.UpdateData(FALSE));
                text = edit->text().toStdString();
            });
        return text;
    }

    // Whether a check lets an entry pass.
    bool Passes(const std::function<void(CDataExchange*)>& check) {
        bool passes = false;
        Run(
            [&](CDataExchange* exchange) {
                exchange->PrepareEditCtrl(10);
                check(exchange);
            },
            [&] {
                EXPECT_TRUE(dialog.UpdateData(FALSE)) << "what is shown is not checked";
                passes = dialog.UpdateData(TRUE) != FALSE;
            });
        return passes;
    }
};

TEST_F(Exchange, TextsGoBothWays) {
    CString text = L" 日照 & <b> ";
    Run([&](CDataExchange* exchange) { DDX_Text(exchange, 10, text); },
        [&] {
            EXPECT_TRUE(dialog.UpdateData(FALSE));
            EXPECT_EQ(edit->text().toStdString(), " 日照 & <b> ");
            for (const std::wstring& entry : {std::wstring(), std::wstring(L"  x "), std::wstring(10000, L'长')}) {
                edit->setText(QString::fromStdWString(entry));
                EXPECT_TRUE(dialog.UpdateData(TRUE));
                EXPECT_TRUE(text == entry.c_str());
            }
        });
}

TEST_F(Exchange, IntegersAreReadWhole) {
    const std::pair<const wchar_t*, int> good[] = {{L"0", 0},
                                                   {L"12", 12},
                                                   {L"-12", -12},
                                                   {L"+12", 12},
                                                   {L" \t12 ", 12},
                                                   {L"007", 7},
                                                   {L"\u300012", 12},
                                                   {L"-0", 0},
                                                   {L"2147483647", INT_MAX},
                                                   {L"-2147483648", INT_MIN}};
    for (const auto& [entry, value] : good)
        EXPECT_EQ(Read<int>(entry), std::optional<int>(value)) << ToUtf8(entry);
    EXPECT_TRUE(boxes.empty());
    const wchar_t* const bad[] = {L"",     L" ",     L"abc", L"12abc", L"1 2",        L"1.0",         L"1e2",
                                  L"0x10", L"+",     L"-",   L"+-1",   L"--1",        L"++1",         L"- 1",
                                  L"１２", L"1,000", L"nan", L"inf",   L"2147483648", L"-2147483649", L"一"};
    for (const wchar_t* entry : bad)
        EXPECT_FALSE(Read<int>(entry).has_value()) << ToUtf8(entry);
    EXPECT_FALSE(Read<int>(std::wstring(10000, L'9')).has_value());
    EXPECT_EQ(boxes.size(), std::size(bad) + 1);
    for (const std::string& box : boxes)
        EXPECT_EQ(box, "请键入一个整数。");
    EXPECT_EQ(Read<int>(std::wstring(9999, L'0') + L"5"), std::optional<int>(5));
}

// The focus cannot go to it, so the message has to say which one is wrong.
TEST_F(Exchange, ABadNumberInADisabledEditIsToldWithItsName) {
    double value = 4;
    Run([&](CDataExchange* exchange) { DDX_Text(exchange, 10, value); },
        [&] {
            edit->setAccessibleName(QString::fromUtf8("最大宽度(mm)"));
            edit->setText("wide");
            edit->setEnabled(false);
            EXPECT_FALSE(dialog.UpdateData(TRUE));
            edit->setEnabled(true);
            EXPECT_FALSE(dialog.UpdateData(TRUE));
        });
    EXPECT_EQ(value, 4);
    EXPECT_EQ(boxes, (std::vector<std::string>{"最大宽度(mm): 请键入一个数字。", "请键入一个数字。"}));
}

TEST_F(Exchange, RealNumbersAreReadWhole) {
    const std::pair<const wchar_t*, double> good[] = {{L"0", 0},       {L"1.5", 1.5},    {L"-.5", -0.5},
                                                      {L"5.", 5},      {L"+2.25", 2.25}, {L" 1e3 ", 1e3},
                                                      {L"1E-2", 0.01}, {L"0.1", 0.1},    {L"1e308", 1e308}};
    for (const auto& [entry, value] : good)
        EXPECT_EQ(Read<double>(entry), std::optional<double>(value)) << ToUtf8(entry);
    EXPECT_TRUE(boxes.empty());
    const wchar_t* const bad[] = {L"",     L"  ",  L".",  L"1,5",  L"12abc", L"1e400", L"-1e400", L"nan",     L"inf",
                                  L"-inf", L"0x1", L"1e", L"1 .5", L"+-1",   L"１.5",  L"1..2",   L"infinity"};
    for (const wchar_t* entry : bad)
        EXPECT_FALSE(Read<double>(entry).has_value()) << ToUtf8(entry);
    EXPECT_EQ(boxes.size(), std::size(bad));
    for (const std::string& box : boxes)
        EXPECT_EQ(box, "请键入一个数字。");
}

TEST_F(Exchange, NumbersAreShownWithUpToFifteenDigits) {
    EXPECT_EQ(Shown(0), "0");
    EXPECT_EQ(Shown(INT_MIN), "-2147483648");
    EXPECT_EQ(Shown(INT_MAX), "2147483647");
    EXPECT_EQ(Shown(0.1), "0.1");
    EXPECT_EQ(Shown(0.1 + 0.2), "0.3");
    EXPECT_EQ(Shown(-2.5), "-2.5");
    EXPECT_EQ(Shown(1.0 / 3.0), "0.333333333333333");
    EXPECT_EQ(Shown(100000.0), "100000");
    EXPECT_EQ(Shown(1e300), "1e+300");
    EXPECT_EQ(Read<double>(L"1e+300"), std::optional<double>(1e300)) << "what is shown can be read";
}

TEST_F(Exchange, ChecksGoBothWays) {
    int value = 1;
    Run([&](CDataExchange* exchange) { DDX_Check(exchange, 12, value); },
        [&] {
            dialog.UpdateData(FALSE);
            EXPECT_EQ(dialog.IsDlgButtonChecked(12), 1U);
            value = 5;
            dialog.UpdateData(TRUE);
            EXPECT_EQ(value, 1);
            value = 0;
            dialog.UpdateData(FALSE);
            EXPECT_EQ(dialog.IsDlgButtonChecked(12), 0U);
            value = 5;
            dialog.UpdateData(TRUE);
            EXPECT_EQ(value, 0);
            dialog.UpdateData(FALSE);
            value = -7;
            dialog.UpdateData(FALSE);
            EXPECT_EQ(dialog.IsDlgButtonChecked(12), 1U) << "whatever is not 0";
        });
}

TEST_F(Exchange, RadioButtonsCountFromTheFirstOfTheirGroup) {
    int value = 2;
    Run([&](CDataExchange* exchange) { DDX_Radio(exchange, 20, value); },
        [&] {
            const auto checks = [&] {
                std::string all;
                for (const int id : {20, 21, 22, 23})
                    all += std::to_string(dialog.IsDlgButtonChecked(id));
                return all;
            };
            value = 99;
            EXPECT_TRUE(dialog.UpdateData(TRUE));
            EXPECT_EQ(value, -1) << "none is checked";
            dialog.CheckDlgButton(23, BST_CHECKED);
            const std::pair<int, const char*> shown[] = {{2, "0011"}, {0, "1001"},  {1, "0101"},
                                                         {3, "0001"}, {-1, "0001"}, {INT_MIN, "0001"}};
            for (const auto& [index, all] : shown) {
                value = index;
                EXPECT_TRUE(dialog.UpdateData(FALSE));
                EXPECT_EQ(checks(), all) << index;
                EXPECT_TRUE(dialog.UpdateData(TRUE));
                EXPECT_EQ(value, index >= 0 && index < 3 ? index : -1);
            }
        });
}

TEST_F(Exchange, IndexesOfBoxesGoBothWays) {
    int inCombo = 1;
    Run([&](CDataExchange* exchange) { DDX_CBIndex(exchange, 13, inCombo); },
        [&] {
            for (const wchar_t* text : {L"a", L"b"})
                dialog.GetDlgItem(13)->SendMessage(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
            EXPECT_TRUE(dialog.UpdateData(FALSE));
            EXPECT_EQ(dialog.GetDlgItem(13)->SendMessage(CB_GETCURSEL), 1);
            inCombo = 9;
            EXPECT_TRUE(dialog.UpdateData(TRUE));
            EXPECT_EQ(inCombo, 1);
            inCombo = 2;
            EXPECT_TRUE(dialog.UpdateData(FALSE));
            EXPECT_TRUE(dialog.UpdateData(TRUE));
            EXPECT_EQ(inCombo, -1) << "there is no such entry";
        });
}

TEST_F(Exchange, ControlsAreAttachedOnce) {
    CButton check;
    CButton other;
    Run([&](CDataExchange* exchange) { DDX_Control(exchange, 12, check); },
        [&] {
            EXPECT_TRUE(dialog.UpdateData(FALSE));
            const HWND window = check.m_hWnd;
            EXPECT_EQ(CWnd::FromHandlePermanent(window), &check);
            EXPECT_TRUE(dialog.UpdateData(TRUE));
            EXPECT_EQ(check.m_hWnd, window);
            CDataExchange again(&dialog, FALSE);
            DDX_Control(&again, 12, other);
            EXPECT_EQ(other.m_hWnd, nullptr) << "another has it";
        });
    EXPECT_EQ(check.m_hWnd, nullptr) << "the window is gone";
}

TEST_F(Exchange, RealRangesHoldBothEnds) {
    const auto check = [](double value) {
        return [=](CDataExchange* exchange) { DDV_MinMaxDouble(exchange, value, 0.1, 180); };
    };
    for (const double value : {0.1, 90.0, 180.0})
        EXPECT_TRUE(Passes(check(value))) << value;
    EXPECT_TRUE(boxes.empty());
    for (const double value :
         {std::nextafter(0.1, 0.0), std::nextafter(180.0, 200.0), std::numeric_limits<double>::quiet_NaN(), HUGE_VAL})
        EXPECT_FALSE(Passes(check(value))) << value;
    EXPECT_EQ(boxes, std::vector<std::string>(4, "请键入一个介于 0.1 和 180 之间的数字。"));
}

TEST_F(Exchange, MessagesAreInTheLanguageOfTheInterface) {
    const TableSwitch english{{L"请键入一个整数。", L"Please enter a whole number."},
                              {L"请键入一个介于 %s 和 %s 之间的数字。", L"Between %s and %s, please."}};
    EXPECT_FALSE(Read<int>(L"x").has_value());
    EXPECT_FALSE(Passes([](CDataExchange* exchange) { DDV_MinMaxDouble(exchange, 9, 1, 2); }));
    EXPECT_EQ(boxes, (std::vector<std::string>{"Please enter a whole number.", "Between 1 and 2, please."}));
}

TEST_F(Exchange, ARefusalStopsTheRunAndPutsTheUserThere) {
    int first = 1;
    int other = 2;
    CString third = L"before";
    Run(
        [&](CDataExchange* exchange) {
            DDX_Text(exchange, 10, first);
            DDX_Text(exchange, 11, other);
            DDV_MinMaxDouble(exchange, other, 0, 9);
            DDX_Text(exchange, 10, third);
        },
        [&] {
            edit->setText("5");
            second->setText("10");
            edit->setFocus();
            EXPECT_FALSE(dialog.UpdateData(TRUE));
            EXPECT_EQ(first, 5);
            EXPECT_EQ(third, L"before");
            EXPECT_EQ(second->window()->focusWidget(), second);
            EXPECT_EQ(second->selectedText(), "10") << "ready to be typed over";
            EXPECT_EQ(boxes.size(), 1U);
            second->setText("9");
            EXPECT_TRUE(dialog.UpdateData(TRUE));
            EXPECT_EQ(third, L"5");
        });
}

TEST_F(Exchange, ANumberThatTheDialogLacksEndsTheRunQuietly) {
    int value = 1;
    bool after = false;
    Run(
        [&](CDataExchange* exchange) {
            DDX_Check(exchange, 4711, value);
            after = true;
        },
        [&] {
            EXPECT_FALSE(dialog.UpdateData(TRUE));
            EXPECT_FALSE(dialog.UpdateData(FALSE));
        });
    EXPECT_FALSE(after);
    EXPECT_EQ(value, 1);
    EXPECT_TRUE(boxes.empty());
}

TEST_F(Exchange, TheDialogMayGoWhileTheUserIsTold) {
    int value = 1;
    Run([&](CDataExchange* exchange) { DDX_Text(exchange, 10, value); },
        [&] {
            edit->setText("x");
            const ModalDriver driver([this](const ModalWindow&) {
                dialog.DestroyWindow();
                return 0;
            });
            EXPECT_FALSE(dialog.UpdateData(TRUE));
        });
    EXPECT_EQ(dialog.m_hWnd, nullptr);
}

TEST_F(Exchange, ADialogWithoutAWindowExchangesNothing) {
    dialog.m_onExchange = [](CDataExchange*) { ADD_FAILURE(); };
    EXPECT_FALSE(dialog.UpdateData(TRUE));
    EXPECT_FALSE(dialog.UpdateData(FALSE));
}

}  // namespace
