// The host's messages: what each does, in its order, and that no failure reaches the host.
#include <gtest/gtest.h>

#include "frame/ConfigSandbox.h"
#include "frame/Resources.h"
#include "platform/host/CommandStack.h"
#include "platform/host/DynamicLinker.h"
#include "platform/host/ExtensionModule.h"
#include "platform/host/HostMessages.h"
#include "platform/host/RxRegistry.h"

namespace {

void* const kHandle = &g_SunDataSet;

AcEdCommandStack& Commands() {
    return *dynamic_cast<AcEdCommandStack*>(acrxSysRegistry()->at(L"ACAD_REGISTERED_COMMANDS"));
}

AcRxDynamicLinker& Linker() {
    return *dynamic_cast<AcRxDynamicLinker*>(acrxSysRegistry()->at(L"DynamicLinker"));
}

class ModuleEntry : public ConfigSandbox {
protected:
    void TearDown() override {
        Commands().removeGroup(L"OrvoDataBase");
        Linker().forget(kHandle);
        ConfigSandbox::TearDown();
    }
};

}  // namespace

TEST_F(ModuleEntry, InitialisesTheModule) {
    EXPECT_EQ(AfxGetFirstDynLinkLibrary(), nullptr);
    EXPECT_EQ(acrxEntryPoint(1, kHandle), 0);
    ASSERT_NE(AfxGetFirstDynLinkLibrary(), nullptr);
    EXPECT_EQ(AfxGetFirstDynLinkLibrary()->GetNext(), nullptr);
    EXPECT_NE(GetModuleResourceHandle(), nullptr);
    EXPECT_EQ(AfxGetFirstDynLinkLibrary()->GetModule(), GetModuleResourceHandle());
    EXPECT_FALSE(acrxApplicationIsLocked(kHandle));
    EXPECT_TRUE(Linker().isRegistered(kHandle));
    EXPECT_TRUE(Commands().hasGroup(L"OrvoDataBase"));
    acrxEntryPoint(2, kHandle);
}

TEST_F(ModuleEntry, ReadsTheThreeFilesInOrder) {
    EXPECT_EQ(acrxEntryPoint(1, kHandle), 0);
    ASSERT_EQ(m_lines.size(), 3U);
    EXPECT_GE(m_lines[0].Find(L"zone.xml"), 0);
    EXPECT_GE(m_lines[1].Find(L"SunTerm.xml"), 0);
    EXPECT_GE(m_lines[2].Find(L"SunSet.xml"), 0);
    acrxEntryPoint(2, kHandle);
}

TEST_F(ModuleEntry, FillsDictionariesAndSettings) {
    OrvoDataSet settings;
    settings.m_strCurCity = L"广州";
    QcDtDictionary dict(L"S");
    settings.SaveSunDataSetDict(&dict);
    ASSERT_TRUE(dict.SaveToXML(m_folder.File("SunSet.xml")));
    m_folder.Write("zone.xml", "<ORVO_ZONEDATA><a><b/></a></ORVO_ZONEDATA>");
    m_folder.Write("SunTerm.xml", "<t><u><v/></u></t>");
    EXPECT_EQ(acrxEntryPoint(1, kHandle), 0);
    EXPECT_NE(g_dictSunZone.FindDict(L"a"), nullptr);
    EXPECT_NE(g_dictSunSterm.FindDict(L"u"), nullptr);
    EXPECT_NE(g_dictSunSet.FindDict(L"CUR_SUNSETDATA"), nullptr);
    EXPECT_EQ(g_SunDataSet.m_strCurCity, L"广州");
    acrxEntryPoint(2, kHandle);
}

TEST_F(ModuleEntry, SavesTheSettingsAndNothingElseWhenUnloaded) {
    OrvoDataSet settings;
    QcDtDictionary dict(L"S");
    settings.SaveSunDataSetDict(&dict);
    ASSERT_TRUE(dict.SaveToXML(m_folder.File("SunSet.xml")));
    const std::string zone = "<ORVO_ZONEDATA><a><b/></a></ORVO_ZONEDATA>";
    m_folder.Write("zone.xml", zone);
    m_folder.Write("SunTerm.xml", zone);
    acrxEntryPoint(1, kHandle);
    g_SunDataSet.m_strCurCity = L"广州";
    g_dictSunZone.RemoveAll();
    g_dictSunSterm.RemoveAll();
    EXPECT_EQ(acrxEntryPoint(2, kHandle), 0);
    EXPECT_NE(m_folder.Read("SunSet.xml").find("广州"), std::string::npos);
    EXPECT_EQ(m_folder.Read("zone.xml"), zone);
    EXPECT_EQ(m_folder.Read("SunTerm.xml"), zone);
    EXPECT_FALSE(Commands().hasGroup(L"OrvoDataBase"));
    EXPECT_EQ(AfxGetFirstDynLinkLibrary(), nullptr);
}

TEST_F(ModuleEntry, RemovesItsCommandsAlsoWhenTheSettingsCannotBeSaved) {
    acrxEntryPoint(1, kHandle);
    m_lines.clear();
    EXPECT_EQ(acrxEntryPoint(2, kHandle), 0);
    ASSERT_EQ(m_lines.size(), 1U);
    EXPECT_GE(m_lines[0].Find(L"SunSet.xml"), 0);
    EXPECT_FALSE(Commands().hasGroup(L"OrvoDataBase"));
}

TEST_F(ModuleEntry, GoesOnWhenTheFrameworkFails) {
    SetExtensionModuleFailureForTest(true);
    EXPECT_EQ(acrxEntryPoint(1, kHandle), 0);
    SetExtensionModuleFailureForTest(false);
    EXPECT_EQ(AfxGetFirstDynLinkLibrary(), nullptr);
    EXPECT_FALSE(acrxApplicationIsLocked(kHandle));
    EXPECT_TRUE(Linker().isRegistered(kHandle));
    EXPECT_TRUE(Commands().hasGroup(L"OrvoDataBase"));
    EXPECT_EQ(m_lines.size(), 3U);
    EXPECT_EQ(acrxEntryPoint(2, kHandle), 0);
}

TEST_F(ModuleEntry, DoesNothingOnAnyOtherMessage) {
    const AFX_MODULE_STATE before = *AfxGetModuleState();
    const int groups = Commands().groupCount();
    for (const int message : {3, 4, 5, 0, 6, -1, 2147483647})
        EXPECT_EQ(acrxEntryPoint(message, kHandle), 0) << message;
    EXPECT_EQ(acrxEntryPoint(3, nullptr), 0);
    EXPECT_TRUE(m_lines.empty());
    EXPECT_EQ(Commands().groupCount(), groups);
    EXPECT_EQ(AfxGetModuleState()->m_hCurrentResourceHandle, before.m_hCurrentResourceHandle);
    EXPECT_EQ(AfxGetFirstDynLinkLibrary(), nullptr);
    EXPECT_TRUE(std::filesystem::is_empty(m_folder.Path()));
}

TEST_F(ModuleEntry, RegistersItsGroupWithItsTwoCommands) {
    acrxEntryPoint(1, kHandle);
    EXPECT_EQ(Commands().commandCount(L"OrvoDataBase"), 2);
    acrxEntryPoint(2, kHandle);
    EXPECT_EQ(Commands().commandCount(L"OrvoDataBase"), 0);
    EXPECT_EQ(Commands().lookupCmd(L"QSetSunPrec"), nullptr);
}

namespace {

// What a message has done so far when it first has something to say.
struct Progress {
    int lines = 0;
    bool isUnlocked = false;
    bool isRegistered = false;
    bool hasGroup = false;
    bool hasLibrary = false;

    static void Note(const wchar_t*, void* target) {
        auto& progress = *static_cast<Progress*>(target);
        if (progress.lines++ > 0)
            return;
        progress.isUnlocked = !acrxApplicationIsLocked(kHandle);
        progress.isRegistered = Linker().isRegistered(kHandle);
        progress.hasGroup = Commands().hasGroup(L"OrvoDataBase");
        progress.hasLibrary = AfxGetFirstDynLinkLibrary() != nullptr;
    }
};

}  // namespace

TEST_F(ModuleEntry, ReadsTheFilesAfterEverythingElse) {
    Progress progress;
    SetCommandLineSink(Progress::Note, &progress);
    acrxEntryPoint(1, kHandle);
    EXPECT_EQ(progress.lines, 3);
    EXPECT_TRUE(progress.isUnlocked);
    EXPECT_TRUE(progress.isRegistered);
    EXPECT_TRUE(progress.hasGroup);
    EXPECT_TRUE(progress.hasLibrary);
    acrxEntryPoint(2, kHandle);
}

TEST_F(ModuleEntry, SavesTheSettingsBeforeEverythingElse) {
    acrxEntryPoint(1, kHandle);
    Progress progress;
    SetCommandLineSink(Progress::Note, &progress);
    acrxEntryPoint(2, kHandle);
    EXPECT_EQ(progress.lines, 1);
    EXPECT_TRUE(progress.hasGroup);
    EXPECT_TRUE(progress.hasLibrary);
    EXPECT_FALSE(Commands().hasGroup(L"OrvoDataBase"));
    EXPECT_EQ(AfxGetFirstDynLinkLibrary(), nullptr);
}

TEST_F(ModuleEntry, ChangesNoSettingsAndNoDictionaryForDrawings) {
    g_SunDataSet.m_strCurCity = L"广州";
    for (QcDtDictionary* dict : {&g_dictSunZone, &g_dictSunSterm, &g_dictSunSet})
        dict->FindOrAddDict(L"kept");
    for (const int message : {3, 4, 5}) {
        EXPECT_EQ(acrxEntryPoint(message, kHandle), 0);
        EXPECT_EQ(g_SunDataSet.m_strCurCity, L"广州");
        for (const QcDtDictionary* dict : {&g_dictSunZone, &g_dictSunSterm, &g_dictSunSet})
            EXPECT_EQ(dict->GetCount(), 1) << message;
    }
}
