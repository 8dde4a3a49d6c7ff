// The two commands that the module gives the host's user, run from the host's command stack.
#include <dlfcn.h>

#include <QLineEdit>
#include <QTest>
#include <QWidget>
#include <optional>

#include "frame/Commands.h"
#include "frame/ConfigSandbox.h"
#include "frame/Resources.h"
#include "platform/base/Language.h"
#include "platform/host/CommandStack.h"
#include "platform/host/DynamicLinker.h"
#include "platform/host/ExtensionModule.h"
#include "platform/host/HostMessages.h"
#include "platform/host/RxRegistry.h"
#include "platform/window/ModalDriver.h"
#include "settings/AnalysisParameters.h"
#include "window/DialogForTests.h"

namespace {

// The resources that were current when a command asked for the frame, which it does to make its dialog.
std::optional<HINSTANCE> g_resourcesAtTheMaking;

}  // namespace

// Stands before the platform's own, so that a test sees when it is asked.
CWnd* acedGetAcadFrame() {
    g_resourcesAtTheMaking = AfxGetResourceHandle();
    static const auto original = reinterpret_cast<CWnd* (*)()>(dlsym(RTLD_NEXT, "_Z16acedGetAcadFramev"));
    return original();
}

namespace {

void* const kHandle = &g_SunDataSet;

AcEdCommandStack& Stack() {
    return *dynamic_cast<AcEdCommandStack*>(acrxSysRegistry()->at(L"ACAD_REGISTERED_COMMANDS"));
}

void RunCommand(const wchar_t* name) {
    const AcEdCommand* command = Stack().lookupCmd(name);
    ASSERT_NE(command, nullptr);
    command->function();
}

std::string NameOf(const ModalWindow& window) {
    return static_cast<QWidget*>(window.widget)->objectName().toStdString();
}

// The module as the host has it, with one place and no standards.
class CommandsOfTheModule : public ConfigSandbox {
protected:
    void SetUp() override {
        ConfigSandbox::SetUp();
        m_folder.Write("zone.xml",
                       "<ORVO_ZONEDATA><北京市 type=\"PROVINCE\"><北京 type=\"CITY\" longitude=\"116.4\" "
                       "latitude=\"39.9\"/></北京市></ORVO_ZONEDATA>");
        acrxEntryPoint(1, kHandle);
        ASSERT_EQ(g_dictSunZone.GetCount(), 1);
    }
    void TearDown() override {
        acrxEntryPoint(2, kHandle);
        dynamic_cast<AcRxDynamicLinker*>(acrxSysRegistry()->at(L"DynamicLinker"))->forget(kHandle);
        g_strCurLanguage = L"Chs";
        g_nSunAngPrec = 0.00001;
        g_nSunDistPrec = 0.05;
        g_nSunWinOffset = 5.0;
        ConfigSandbox::TearDown();
    }
};

// The frame of the host, for as long as it lives.
class Frame : public DialogForTests {
public:
    Frame() : DialogForTests("PUSHBUTTON \"Cancel\", 2, 10, 10, 40, 14\n") {}
};

}  // namespace

TEST_F(CommandsOfTheModule, AreTheTwoOfTheTableInTheirOrder) {
    static_assert(std::is_same_v<decltype(g_commandTable), QcCmdTable[2]>, "writable, two rows");
    EXPECT_EQ(kCommandCount, 2);
    ASSERT_EQ(Stack().commandCount(L"OrvoDataBase"), 2);
    EXPECT_EQ(Stack().commandAt(L"OrvoDataBase", 0)->name, L"QcCityData");
    EXPECT_EQ(Stack().commandAt(L"OrvoDataBase", 1)->name, L"QSetSunPrec");
    for (int index = 0; index < 2; ++index) {
        EXPECT_EQ(Stack().commandAt(L"OrvoDataBase", index)->flags, 0) << index;
        EXPECT_EQ(g_commandTable[index].m_nReserved, 0) << index;
        EXPECT_EQ(g_commandTable[index].m_pFunction, Stack().commandAt(L"OrvoDataBase", index)->function) << index;
    }
}

TEST_F(CommandsOfTheModule, MakeTheirDialogsWithinTheModulesResourcesAndBeforeThem) {
    const HINSTANCE before = AfxGetResourceHandle();
    ASSERT_NE(before, GetModuleResourceHandle());
    const ModalDriver driver([](const ModalWindow&) { return int{IDCANCEL}; });
    g_resourcesAtTheMaking.reset();
    RunCommand(L"QcCityData");
    EXPECT_EQ(g_resourcesAtTheMaking, GetModuleResourceHandle());
    g_resourcesAtTheMaking.reset();
    RunCommand(L"QSetSunPrec");
    EXPECT_EQ(g_resourcesAtTheMaking, before) << "its resources become current only after it is made";
    EXPECT_EQ(driver.GetCount(), 2);
}

TEST_F(CommandsOfTheModule, OpenTheEditorOfThePlaces) {
    const ModalDriver driver([](const ModalWindow& window) {
        EXPECT_EQ(NameOf(window), "IDD_2000");
        EXPECT_EQ(window.caption, L"地理位置");
        return int{IDCANCEL};
    });
    RunCommand(L"QcCityData");
    EXPECT_EQ(driver.GetCount(), 1);
}

TEST_F(CommandsOfTheModule, OpenTheDialogOfThePrecisionsForSunlight) {
    const ModalDriver driver([](const ModalWindow& window) {
        EXPECT_EQ(NameOf(window), "IDD_2004") << "not the one for light pollution";
        EXPECT_EQ(window.caption, L"日照设置");
        return int{IDCANCEL};
    });
    RunCommand(L"QSetSunPrec");
    EXPECT_EQ(driver.GetCount(), 1);
}

TEST_F(CommandsOfTheModule, FollowTheLanguageFromOneRunToTheNext) {
    std::vector<std::string> shown;
    const ModalDriver driver([&](const ModalWindow& window) {
        shown.push_back(NameOf(window));
        return int{IDCANCEL};
    });
    for (const wchar_t* language : {L"Chs", L"Enu", L"Chs"}) {
        g_strCurLanguage = language;
        RunCommand(L"QcCityData");
        RunCommand(L"QSetSunPrec");
    }
    EXPECT_EQ(shown,
              (std::vector<std::string>{"IDD_2000", "IDD_2004", "IDD_2001", "IDD_2015", "IDD_2000", "IDD_2004"}));
}

TEST_F(CommandsOfTheModule, RunWithTheModulesResourcesAndBringTheOthersBack) {
    const HINSTANCE before = AfxGetResourceHandle();
    ASSERT_NE(before, GetModuleResourceHandle());
    QcDtDictionary* const language = g_pCurModuleLang;
    for (const wchar_t* command : {L"QcCityData", L"QSetSunPrec"}) {
        const ModalDriver driver([](const ModalWindow&) {
            EXPECT_EQ(AfxGetResourceHandle(), GetModuleResourceHandle());
            return int{IDCANCEL};
        });
        RunCommand(command);
        EXPECT_EQ(driver.GetCount(), 1);
        EXPECT_EQ(AfxGetResourceHandle(), before);
        EXPECT_EQ(g_pCurModuleLang, language);
    }
}

TEST_F(CommandsOfTheModule, OpenTheirDialogsOverTheHostsFrame) {
    Frame frame;
    frame.Run([&frame](const ModalWindow&) {
        acedSetAcadFrame(&frame);
        for (const wchar_t* command : {L"QcCityData", L"QSetSunPrec"}) {
            const ModalDriver driver([&frame](const ModalWindow& window) {
                EXPECT_EQ(window.owner, frame.m_hWnd);
                return int{IDCANCEL};
            });
            RunCommand(command);
            EXPECT_EQ(driver.GetCount(), 1);
        }
        acedSetAcadFrame(nullptr);
    });
}

TEST_F(CommandsOfTheModule, OpenAFreshDialogEachTime) {
    const auto typeOffset = [](const ModalWindow& window, const char* text) {
        auto* edit = Control<QLineEdit>(window, 2009);
        EXPECT_EQ(edit->text(), "5") << "nothing of the run before";
        edit->setFocus();
        edit->selectAll();
        QTest::keyClicks(edit, text);
    };
    {
        const ModalDriver driver([&](const ModalWindow& window) {
            typeOffset(window, "7");
            return int{IDCANCEL};
        });
        RunCommand(L"QSetSunPrec");
        EXPECT_EQ(g_nSunWinOffset, 5.0);
    }
    for (const auto& [text, value] : {std::pair{"8", 8.0}, std::pair{"9", 9.0}}) {
        const ModalDriver driver([&, text = text](const ModalWindow& window) {
            typeOffset(window, text);
            return int{IDOK};
        });
        RunCommand(L"QSetSunPrec");
        EXPECT_EQ(driver.GetCount(), 1);
        EXPECT_EQ(g_nSunWinOffset, value);
    }
}

TEST_F(CommandsOfTheModule, EditThePlacesTwiceInARow) {
    int shown = 0;
    const ModalDriver driver([&](const ModalWindow&) {
        ++shown;
        return int{IDOK};
    });
    RunCommand(L"QcCityData");
    RunCommand(L"QcCityData");
    EXPECT_EQ(shown, 2);
    ASSERT_NE(g_dictSunZone.FindDict(L"北京市"), nullptr);
    EXPECT_NE(g_dictSunZone.FindDict(L"北京市")->FindItem(L"北京"), nullptr) << "saved as it was";
}

TEST_F(CommandsOfTheModule, AreFoundWhateverTheCaseOfTheirNames) {
    const ModalDriver driver([](const ModalWindow&) { return int{IDCANCEL}; });
    RunCommand(L"qsetsunprec");
    RunCommand(L"QCCITYDATA");
    EXPECT_EQ(driver.GetCount(), 2);
}
