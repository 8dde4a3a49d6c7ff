// The script of the module's dialogs, found in the module itself.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "frame/ConfigSandbox.h"
#include "frame/Resources.h"
#include "platform/host/CommandStack.h"
#include "platform/host/DynamicLinker.h"
#include "platform/host/ExtensionModule.h"
#include "platform/host/HostMessages.h"
#include "platform/host/ResourceText.h"
#include "platform/host/RxRegistry.h"
#include "platform/window/MessageBox.h"
#include "resources/ModuleDialogs.h"
#include "settings/OrvoDataSetDlgBase.h"

namespace {

void* const kHandle = &g_SunDataSet;

class ModuleDialogText : public ConfigSandbox {
protected:
    void TearDown() override {
        SetExtensionModuleFailureForTest(false);
        dynamic_cast<AcEdCommandStack*>(acrxSysRegistry()->at(L"ACAD_REGISTERED_COMMANDS"))
            ->removeGroup(L"OrvoDataBase");
        dynamic_cast<AcRxDynamicLinker*>(acrxSysRegistry()->at(L"DynamicLinker"))->forget(kHandle);
        ConfigSandbox::TearDown();
    }
};

void ExpectSame(const DialogTemplate& one, const DialogTemplate& other) {
    EXPECT_EQ(one.id, other.id);
    EXPECT_EQ(one.caption, other.caption);
    EXPECT_EQ(one.cx, other.cx);
    ASSERT_EQ(one.items.size(), other.items.size());
    for (std::size_t index = 0; index < one.items.size(); ++index) {
        EXPECT_EQ(one.items[index].id, other.items[index].id);
        EXPECT_EQ(one.items[index].text, other.items[index].text);
        EXPECT_EQ(one.items[index].style, other.items[index].style);
        EXPECT_EQ(one.items[index].x, other.items[index].x);
        EXPECT_EQ(one.items[index].y, other.items[index].y);
    }
}

}  // namespace

TEST_F(ModuleDialogText, IsFoundByTheModulesHandle) {
    acrxEntryPoint(1, kHandle);
    EXPECT_FALSE(AfxGetResourceText(GetModuleResourceHandle()).empty());
    EXPECT_TRUE(AfxGetResourceText(nullptr).empty()) << "the program's is another one";
    acrxEntryPoint(2, kHandle);
}

TEST_F(ModuleDialogText, IsFoundByAnyAddressInTheModuleAndByNoOther) {
    const std::string_view text = AfxGetResourceText(&g_SunDataSet);
    EXPECT_FALSE(text.empty());
    EXPECT_EQ(AfxGetResourceText(&g_dictSunZone).data(), text.data());
    const int ofTheTest = 0;
    EXPECT_TRUE(AfxGetResourceText(&kHandle).empty()) << "the test program has none";
    EXPECT_TRUE(AfxGetResourceText(&ofTheTest).empty()) << "in no file at all";
    EXPECT_TRUE(AfxGetResourceText(AfxGetModuleState()).empty()) << "the platform has none";
}

TEST_F(ModuleDialogText, IsThatOfTheSources) {
    acrxEntryPoint(1, kHandle);
    ResourceScript script;
    CString message;
    EXPECT_TRUE(script.Parse(AfxGetResourceText(GetModuleResourceHandle()), message)) << ToUtf8(message.View());
    acrxEntryPoint(2, kHandle);
    ASSERT_FALSE(ModuleDialogs().Dialogs().empty());
    ASSERT_EQ(script.Dialogs().size(), ModuleDialogs().Dialogs().size());
    for (std::size_t index = 0; index < script.Dialogs().size(); ++index)
        ExpectSame(script.Dialogs()[index], ModuleDialogs().Dialogs()[index]);
}

// A fault that somebody puts into the script is reported with the line that an editor shows.
TEST_F(ModuleDialogText, CountsTheLinesOfItsFile) {
    acrxEntryPoint(1, kHandle);
    std::string text(AfxGetResourceText(GetModuleResourceHandle()));
    acrxEntryPoint(2, kHandle);
    const std::string file = SourceText("module/resources/OrvoDataBase.rc");
    const std::size_t lines = static_cast<std::size_t>(std::count(file.begin(), file.end(), '\n'));
    ResourceScript script;
    CString message;
    EXPECT_FALSE(script.Parse(text + "?", message));
    CString line;
    line.Format(L"第 %d 行", static_cast<int>(lines + 1));
    EXPECT_EQ(message.Find(line), 0) << ToUtf8(message.View());
}

namespace {

// Notes whose resources are current when it is run.
class NotingPlaces : public OrvoPlaceDlg {
public:
    explicit NotingPlaces(HINSTANCE& current) : OrvoPlaceDlg(nullptr), m_current(current) {}
    INT_PTR DoModal() override {
        m_current = AfxGetResourceHandle();
        return IDCANCEL;
    }

private:
    HINSTANCE& m_current;
};

class ChoosingPlaces : public OrvoDataSetDlgBase {
public:
    explicit ChoosingPlaces(OrvoPlaceDlg* places) { m_pPlaceDlg = places; }
};

}  // namespace

TEST_F(ModuleDialogText, IsInForceForWhateverDialogOfPlacesIsRun) {
    acrxEntryPoint(1, kHandle);
    AfxSetResourceHandle(&kHandle);  // some other module's
    HINSTANCE current = nullptr;
    ChoosingPlaces dialog(new NotingPlaces(current));  // the dialog's from here on
    EXPECT_EQ(dialog.PlaceDlgDoModal(), IDCANCEL);
    EXPECT_EQ(current, GetModuleResourceHandle());
    EXPECT_EQ(AfxGetResourceHandle(), &kHandle) << "given back";
    AfxSetResourceHandle(nullptr);
    acrxEntryPoint(2, kHandle);
}

TEST_F(ModuleDialogText, LeavesTheProgramsAloneInAModuleThatTheFrameworkRefuses) {
    ASSERT_TRUE(AfxSetResourceText(nullptr, "of the program"));
    SetExtensionModuleFailureForTest(true);
    acrxEntryPoint(1, kHandle);
    EXPECT_EQ(AfxGetResourceText(nullptr), "of the program");
    acrxEntryPoint(2, kHandle);
    EXPECT_EQ(AfxGetResourceText(nullptr), "of the program");
    EXPECT_TRUE(AfxSetResourceText(nullptr, {}));
}
