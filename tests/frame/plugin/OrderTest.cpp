// The order in which the module does what the host's messages ask for, and in which its static objects come about.
#include <dlfcn.h>

#include <cstring>
#include <map>

#include "PlugIn.h"
#include "RecordedCalls.h"
#include "platform/base/QcDtDictionary.h"
#include "platform/host/ModuleLoader.h"

namespace {

using Calls = std::vector<std::string>;

// The objects that have been begun, in one letter each: settings, path of recordings, zones, settings' and terms'
// dictionary. The loader makes their memory zero, and none has a zero at its beginning once it is begun.
std::string Begun() {
    const std::map<char, const char*> symbols = {
        {'1', "g_SunDataSet"}, {'2', "g_sRecordFile"},  {'3', "g_dictSunZone"},
        {'4', "g_dictSunSet"}, {'5', "g_dictSunSterm"},
    };
    std::string begun;
    if (void* module = dlopen(ORVO_MODULE_FILE, RTLD_LAZY | RTLD_NOLOAD)) {
        for (const auto& [letter, symbol] : symbols) {
            const void* word = nullptr;
            std::memcpy(&word, dlsym(module, symbol), sizeof(word));
            if (word != nullptr)
                begun += letter;
        }
        dlclose(module);
    }
    return begun;
}

// Notes what is begun when the settings ask for the first of their texts.
class FirstQuestion : public TeskLanguageSwitch {
public:
    CString Translate(const wchar_t* text) const override {
        if (m_begun.empty())
            m_begun = Begun();
        return text;
    }
    mutable std::string m_begun;
};

}  // namespace

TEST_F(PlugIn, InitialisesInItsOrder) {
    ModuleLoader loader;
    CString error;
    CallRecord record;
    ASSERT_TRUE(loader.Load(kModule, error)) << ToUtf8(error.View());
    EXPECT_EQ(record.Take(), (Calls{"AfxInitExtensionModule", "library", "acrxUnlockApplication", "registerAppMDIAware",
                                    "QcDefineCommand OrvoDataBase", "FindFile zone.xml", "FindFile SunTerm.xml",
                                    "FindFile SunSet.xml"}));
}

TEST_F(PlugIn, UnloadsInItsOrder) {
    ModuleLoader loader;
    CString error;
    ASSERT_TRUE(loader.Load(kModule, error)) << ToUtf8(error.View());
    CallRecord record;
    EXPECT_EQ(loader.Unload(), ModuleLoader::Unloaded::Gone);
    EXPECT_EQ(record.Take(),
              (Calls{"FindFile SunSet.xml", "removeGroup OrvoDataBase", "AfxTermExtensionModule", "no library"}));
}

TEST_F(PlugIn, ConstructsItsStaticObjectsInTheirOrder) {
    FirstQuestion asked;
    g_pTeskLangSwitch = &asked;
    CallRecord record;
    Calls begun;
    record.m_onDictionary = [&begun](const void*) { begun.push_back(Begun()); };
    void* module = dlopen(ORVO_MODULE_FILE, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(module, nullptr) << dlerror();
    EXPECT_EQ(asked.m_begun, "1") << "nothing but the settings, which are just being made";
    EXPECT_EQ(begun, (Calls{"12", "123", "1234"})) << "before each dictionary";
    EXPECT_EQ(Begun(), "12345");
    g_pTeskLangSwitch = nullptr;
    dlclose(module);
}
