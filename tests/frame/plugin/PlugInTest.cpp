// The module as a plug-in: opened with dlopen, driven by messages, closed, and really gone.
#include <dlfcn.h>

#include <string>
#include <string_view>
#include <vector>

#include "PlugIn.h"
#include "platform/base/QcDtDictionary.h"
#include "platform/host/ExtensionModule.h"
#include "platform/host/ModuleLoader.h"
#include "platform/host/ResourceText.h"

namespace {

bool IsMapped() {
    void* handle = dlopen(ORVO_MODULE_FILE, RTLD_LAZY | RTLD_NOLOAD);
    if (!handle)
        return false;
    dlclose(handle);
    return true;
}

// Put into a dictionary of the module, it tells when that dictionary is destroyed.
class Witness : public QcDtDictStringItem {
public:
    Witness(const char* name, std::vector<std::string>& log) : m_name(name), m_log(log) {}
    ~Witness() override { m_log.push_back(m_name); }
    Witness(const Witness&) = delete;
    Witness& operator=(const Witness&) = delete;

private:
    std::string m_name;
    std::vector<std::string>& m_log;
};

QcDtDictionary* DictionaryOf(void* module, const char* symbol) {
    return static_cast<QcDtDictionary*>(dlsym(module, symbol));
}

// Notes the texts that are translated, and the modules that ask for their dictionaries, while the module's static
// objects are constructed.
class RecordingSwitch : public TeskLanguageSwitch {
public:
    CString Translate(const wchar_t* text) const override {
        m_texts.emplace_back(text);
        return text;
    }
    QcDtDictionary* GetModuleDictionary(const wchar_t* key) override {
        m_keys.emplace_back(key);
        return nullptr;
    }
    mutable std::vector<CString> m_texts;
    std::vector<CString> m_keys;
};

}  // namespace

TEST_F(PlugIn, LoadsAndIsGoneAfterwards) {
    ModuleLoader loader;
    CString error;
    ASSERT_FALSE(IsMapped());
    ASSERT_TRUE(loader.Load(kModule, error)) << ToUtf8(error.View());
    EXPECT_TRUE(IsMapped());
    EXPECT_EQ(loader.Send(3), 0);
    EXPECT_EQ(loader.Unload(), ModuleLoader::Unloaded::Gone);
    EXPECT_FALSE(IsMapped());
}

TEST_F(PlugIn, BringsTheScriptOfItsDialogsWithItAndTakesItAway) {
    void* const module = dlopen(ORVO_MODULE_FILE, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(module, nullptr) << dlerror();
    const void* const entry = dlsym(module, "acrxEntryPoint");
    EXPECT_NE(AfxGetResourceText(entry).find("DIALOGEX"), std::string_view::npos);
    void* const dependent = dlopen(ORVO_WORKBENCH_FILE, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(dependent, nullptr) << dlerror();
    EXPECT_TRUE(AfxGetResourceText(dlsym(dependent, "acrxEntryPoint")).empty()) << "it has none, what it links has";
    ASSERT_EQ(dlclose(dependent), 0);
    ASSERT_EQ(dlclose(module), 0);
    EXPECT_TRUE(AfxGetResourceText(entry).empty());
}

TEST_F(PlugIn, DestroysItsStaticObjectsInsideDlclose) {
    void* module = dlopen(ORVO_MODULE_FILE, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(module, nullptr) << dlerror();
    std::vector<std::string> log;
    for (const char* symbol : {"g_dictSunZone", "g_dictSunSet", "g_dictSunSterm"}) {
        QcDtDictionary* dict = DictionaryOf(module, symbol);
        ASSERT_NE(dict, nullptr) << symbol;
        ASSERT_TRUE(dict->AppendItem(new Witness(symbol, log)));
    }
    EXPECT_TRUE(log.empty());
    ASSERT_EQ(dlclose(module), 0);
    // In the reverse of the order in which they are constructed.
    EXPECT_EQ(log, (std::vector<std::string>{"g_dictSunSterm", "g_dictSunSet", "g_dictSunZone"}));
}

TEST_F(PlugIn, ConstructsItsDictionariesWithoutNames) {
    void* module = dlopen(ORVO_MODULE_FILE, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(module, nullptr) << dlerror();
    for (const char* symbol : {"g_dictSunZone", "g_dictSunSet", "g_dictSunSterm"}) {
        const QcDtDictionary* dict = DictionaryOf(module, symbol);
        ASSERT_NE(dict, nullptr) << symbol;
        EXPECT_EQ(dict->GetName(), L"");
        EXPECT_EQ(dict->GetLocalName(), L"");
        EXPECT_EQ(dict->GetCount(), 0);
    }
    dlclose(module);
}

TEST_F(PlugIn, TranslatesItsDefaultsWhileItIsConstructed) {
    RecordingSwitch language;
    g_pTeskLangSwitch = &language;
    void* module = dlopen(ORVO_MODULE_FILE, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(module, nullptr) << dlerror();
    const auto asked = [&language](const wchar_t* text) {
        for (const CString& one : language.m_texts)
            if (one == text)
                return true;
        return false;
    };
    EXPECT_TRUE(asked(L"未定义"));
    EXPECT_TRUE(asked(L"北京"));
    ASSERT_FALSE(language.m_keys.empty());
    for (const CString& key : language.m_keys)
        EXPECT_EQ(key, L"ORVODATABASE");  // by the name of its own file, and not the program's
    dlclose(module);
}

TEST_F(PlugIn, HasNoResourcesWhenTheFrameworkFails) {
    const auto resources = [](void* module) {
        return reinterpret_cast<const void* (*)()>(dlsym(module, "_Z23GetModuleResourceHandlev"))();
    };
    const auto send = [](void* module, int message) {
        return reinterpret_cast<int (*)(int, void*)>(dlsym(module, "acrxEntryPoint"))(message, &module);
    };
    for (const bool fails : {true, false}) {
        void* module = dlopen(ORVO_MODULE_FILE, RTLD_NOW | RTLD_LOCAL);
        ASSERT_NE(module, nullptr) << dlerror();
        EXPECT_EQ(resources(module), nullptr);
        SetExtensionModuleFailureForTest(fails);
        EXPECT_EQ(send(module, 1), 0);
        SetExtensionModuleFailureForTest(false);
        EXPECT_EQ(resources(module) == nullptr, fails);
        send(module, 2);
        dlclose(module);
    }
}

TEST_F(PlugIn, FindsItsLanguageByItsOwnFileName) {
    std::filesystem::create_directory(m_folder.Path() / "languages");
    m_folder.Write("languages/en.xml",
                   "<l><ORVODATABASE><t dt:name=\"北京\" dt:kind=\"5\" "
                   "xmlns:dt=\"urn:orvo:dictionary\">Peking</t></ORVODATABASE></l>");
    TeskLanguageSwitch language;
    ASSERT_TRUE(language.SetLanguage(L"en"));
    g_pTeskLangSwitch = &language;
    m_folder.Write("SunSet.xml", "<x><y/></x>");
    ModuleLoader loader;
    CString error;
    ASSERT_TRUE(loader.Load(kModule, error)) << ToUtf8(error.View());
    EXPECT_EQ(loader.Unload(), ModuleLoader::Unloaded::Gone);
    EXPECT_NE(m_folder.Read("SunSet.xml").find("Peking"), std::string::npos);
}

TEST_F(PlugIn, LoadsAndUnloadsAHundredTimes) {
    m_folder.Write("zone.xml", "<ORVO_ZONEDATA><a type=\"PROVINCE\"><b type=\"CITY\"/></a></ORVO_ZONEDATA>");
    m_folder.Write("SunTerm.xml", "<t><u><v/></u></t>");
    m_folder.Write("SunSet.xml", "<s><CUR_SUNSETDATA><x/></CUR_SUNSETDATA><n type=\"SunStd\"><m/></n></s>");
    for (int round = 0; round < 100; ++round) {
        ModuleLoader loader;
        CString error;
        ASSERT_TRUE(loader.Load(kModule, error)) << round << ": " << ToUtf8(error.View());
        ASSERT_EQ(loader.Unload(), ModuleLoader::Unloaded::Gone) << round;
    }
}
