// The maker's dialog: tips, F1, and whose resources it is made from.
#include "platform/window/QcUiDialog.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QTextDocument>
#include <string>

#include "window/DialogForTests.h"

namespace {

constexpr const char* kItems =
    "EDITTEXT 10, 7, 7, 60, 14\n"
    "COMBOBOX 11, 7, 25, 60, 60, CBS_DROPDOWN | WS_TABSTOP\n"
    "EDITTEXT 12, 7, 50, 60, 14\n";

// A tip as it is read.
std::string Read(const QString& tip) {
    QTextDocument document;
    document.setHtml(tip);
    return document.toPlainText().toStdString();
}

bool IsExplained() {
    for (const QWidget* widget : QApplication::topLevelWidgets())
        if (widget->isVisible() && widget->inherits("QWhatsThat"))
            return true;
    return false;
}

TEST(QcUiDialog, TipsAreShownAsTheyAreWritten) {
    DialogForTests dialog(kItems);
    dialog.Run([&](const ModalWindow& window) {
        std::string longText;
        for (int i = 0; i < 400; ++i)
            longText += "日照 ";
        for (const std::string& text : {std::string("short"), std::string("<b>a</b> & \"b\" &lt;"), longText + "end",
                                        std::string("two\nlines"), std::string("two  blanks")}) {
            EXPECT_TRUE(dialog.AddTip(10, FromUtf8(text)));
            EXPECT_EQ(Read(Control(window, 10)->toolTip()), text);
            EXPECT_EQ(Read(Control(window, 10)->whatsThis()), text);
            EXPECT_EQ(Control(window, 10)->accessibleDescription().toStdString(), text);
            EXPECT_TRUE(Qt::mightBeRichText(Control(window, 10)->toolTip())) << "or it would not be wrapped";
        }
        EXPECT_TRUE(Control(window, 12)->toolTip().isEmpty());
    });
}

TEST(QcUiDialog, AnEmptyTextTakesTheTipAway) {
    DialogForTests dialog(kItems);
    dialog.Run([&](const ModalWindow& window) {
        for (const wchar_t* none : {L"", static_cast<const wchar_t*>(nullptr)}) {
            dialog.AddTip(10, L"tip");
            EXPECT_TRUE(dialog.AddTip(10, none));
            EXPECT_TRUE(Control(window, 10)->toolTip().isEmpty());
            EXPECT_TRUE(Control(window, 10)->whatsThis().isEmpty());
            EXPECT_TRUE(Control(window, 10)->accessibleDescription().isEmpty());
        }
    });
}

TEST(QcUiDialog, AnUnknownControlHasNoTip) {
    DialogForTests dialog(kItems);
    EXPECT_FALSE(dialog.AddTip(10, L"tip")) << "no window yet";
    dialog.Run([&](const ModalWindow&) { EXPECT_FALSE(dialog.AddTip(4711, L"tip")); });
}

TEST(QcUiDialog, F1ExplainsTheControlWithTheFocus) {
    DialogForTests dialog(kItems);
    dialog.Run([&](const ModalWindow& window) {
        dialog.AddTip(10, L"the edit");
        dialog.AddTip(11, L"the combo");
        for (const int id : {10, 11, 12}) {
            Control(window, id)->setFocus();
            EXPECT_FALSE(IsExplained());
            QTest::keyClick(Control(window, id), Qt::Key_F1);
            EXPECT_EQ(IsExplained(), id != 12) << id;
            for (QWidget* widget : QApplication::topLevelWidgets())
                if (widget->inherits("QWhatsThat"))
                    delete widget;
        }
        EXPECT_TRUE(static_cast<QWidget*>(window.widget)->isVisible()) << "and the dialog stays";
    });
}

TEST(QcUiDialog, TheCaptionButtonCanBeLeftOut) {
    for (const bool wanted : {true, false}) {
        DialogForTests dialog(kItems);
        EXPECT_TRUE(dialog.HasCaptionButton()) << "at first";
        dialog.ShowCaptionButton(wanted);
        EXPECT_EQ(dialog.HasCaptionButton(), wanted);
        dialog.Run([&](const ModalWindow& window) {
            EXPECT_EQ(static_cast<QWidget*>(window.widget)->windowFlags().testFlag(Qt::WindowContextHelpButtonHint),
                      wanted);
        });
    }
}

TEST(QcUiDialog, IsMadeFromTheResourcesItNames) {
    int module = 0;
    const auto handle = reinterpret_cast<HINSTANCE>(&module);
    const std::string script = DialogScript("EDITTEXT 77, 7, 7, 60, 14\n");
    ASSERT_TRUE(AfxSetResourceText(handle, script));
    const ScriptForTests programs(DialogScript("EDITTEXT 88, 7, 7, 60, 14\n"));
    const HINSTANCE before = AfxGetResourceHandle();
    const auto controlOf = [](QcUiDialog& dialog) {
        int id = 0;
        const ModalDriver driver([&](const ModalWindow& window) {
            for (const int each : {77, 88})
                if (Control(window, each) != nullptr)
                    id = each;
            return IDCANCEL;
        });
        dialog.DoModal();
        return id;
    };
    QcUiDialog named(100, nullptr, handle);
    QcUiDialog current(100);
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(controlOf(named), 77);
        EXPECT_EQ(AfxGetResourceHandle(), before);
        EXPECT_EQ(controlOf(current), 88);
    }
    AfxSetResourceHandle(handle);
    EXPECT_EQ(controlOf(current), 77) << "of the module that is current when it is run";
    AfxSetResourceHandle(before);
    AfxSetResourceText(handle, {});
}

}  // namespace
