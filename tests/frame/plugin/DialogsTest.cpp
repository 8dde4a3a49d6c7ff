// Every dialog that the module shows, once, through the loaded plug-in and with the module's own resources, while those
// of another module are the current ones.
#include <dlfcn.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QTest>
#include <functional>
#include <string>
#include <vector>

#include "PlugIn.h"
#include "platform/host/CommandStack.h"
#include "platform/host/ExtensionModule.h"
#include "platform/host/ModuleLoader.h"
#include "platform/host/ResourceText.h"
#include "platform/host/RxRegistry.h"
#include "platform/window/CWnd.h"
#include "platform/window/MessageBox.h"
#include "platform/window/ModalDriver.h"
#include "support/Folders.h"

namespace {

using Names = std::vector<std::string>;

// The other module has dialogs of the same numbers, each with one button, 999.
int g_otherModule = 0;
const HINSTANCE kOther = &g_otherModule;

std::string OtherScript() {
    std::string script;
    for (int id = 2000; id < 2020; ++id)
        script += std::to_string(id) +
                  " DIALOGEX 0, 0, 80, 40\nSTYLE WS_POPUP | WS_CAPTION\nCAPTION \"foreign\"\nFONT 9, \"sans\"\nBEGIN\n"
                  "PUSHBUTTON \"Cancel\", 999, 7, 7, 50, 14\nEND\n";
    return script;
}

template <class Widget>
Widget& Item(const ModalWindow& window, int id) {
    auto* widget = static_cast<QWidget*>(window.widget)->findChild<Widget*>(QString("IDC_%1").arg(id));
    if (widget == nullptr)
        throw std::runtime_error("no control " + std::to_string(id));
    return *widget;
}

class PlugInDialogs : public PlugIn {
protected:
    void SetUp() override {
        PlugIn::SetUp();
        for (const char* file : {"zone.xml", "SunTerm.xml", "SunSet.xml"})
            m_folder.Write(file, FileBytes(SourceFolder() + "/data/" + file));
        ASSERT_TRUE(AfxSetResourceText(kOther, m_script));
        CString error;
        ASSERT_TRUE(m_loader.Load(kModule, error)) << ToUtf8(error.View());
        m_module = dlopen(ORVO_MODULE_FILE, RTLD_LAZY | RTLD_NOLOAD);
        ASSERT_NE(m_module, nullptr);
        AfxSetResourceHandle(kOther);
        g_strCurLanguage = L"Chs";
    }
    void TearDown() override {
        EXPECT_EQ(AfxGetResourceHandle(), kOther) << "given back";
        AfxSetResourceHandle(nullptr);
        AfxSetResourceText(kOther, {});
        g_strCurLanguage = L"Chs";
        dlclose(m_module);
        m_loader.Unload();
        PlugIn::TearDown();
    }

    template <class Function>
    Function* Find(const char* symbol) const {
        return reinterpret_cast<Function*>(dlsym(m_module, symbol));
    }
    static void RunCommand(const wchar_t* name) {
        const auto* stack = dynamic_cast<AcEdCommandStack*>(acrxSysRegistry()->at(L"ACAD_REGISTERED_COMMANDS"));
        const AcEdCommand* command = stack->lookupCmd(name);
        ASSERT_NE(command, nullptr);
        command->function();
    }

    // Lets `modal` show dialogs. In the first one, `cause` leads to further ones, which are only looked at. While it
    // does so, the other module's resources are current again, as in a handler of that module's. Gives the names of
    // all.
    static Names Shown(const std::function<void()>& modal,
                       const std::function<void(const ModalWindow&)>& cause = nullptr) {
        Names names;
        const ModalDriver driver([&](const ModalWindow& window) {
            const auto* widget = static_cast<QWidget*>(window.widget);
            names.push_back(widget->objectName().toStdString());
            EXPECT_EQ(widget->findChild<QWidget*>("IDC_999"), nullptr) << names.back() << " is the other module's";
            if (names.size() > 1 || !cause)
                return int{IDCANCEL};
            const HINSTANCE own = AfxGetResourceHandle();
            AfxSetResourceHandle(kOther);
            cause(window);
            EXPECT_EQ(AfxGetResourceHandle(), kOther) << "given back to whom it was taken from";
            AfxSetResourceHandle(own);
            return int{IDCANCEL};
        });
        modal();
        return names;
    }
    static std::function<void(const ModalWindow&)> Clicking(const std::vector<int>& buttons) {
        return [buttons](const ModalWindow& window) {
            for (const int id : buttons)
                QTest::mouseClick(&Item<QAbstractButton>(window, id), Qt::LeftButton);
        };
    }
    // The entries that lead on are the last ones.
    static std::function<void(const ModalWindow&)> ChoosingLast(const std::vector<int>& combos) {
        return [combos](const ModalWindow& window) {
            for (const int id : combos) {
                auto& combo = Item<QComboBox>(window, id);
                combo.setFocus();
                combo.setCurrentIndex(combo.count() - 2);
                QTest::keyClick(&combo, Qt::Key_Down);
            }
        };
    }

    const std::string m_script = OtherScript();
    ModuleLoader m_loader;
    void* m_module = nullptr;
};

}  // namespace

TEST_F(PlugInDialogs, TheStandardsAndTheirNames) {
    auto* run = Find<INT_PTR(CWnd*)>("_Z16SunStdDlgDoModalP4CWnd");
    ASSERT_NE(run, nullptr);
    const auto modal = [run] { EXPECT_EQ(run(nullptr), IDCANCEL); };
    EXPECT_EQ(Shown(modal, Clicking({2028, 2029})), (Names{"IDD_2010", "IDD_2009", "IDD_2009"}));
    g_strCurLanguage = L"en";
    EXPECT_EQ(Shown(modal, Clicking({2028, 2029})), (Names{"IDD_2017", "IDD_2013", "IDD_2013"}));
}

TEST_F(PlugInDialogs, ThePrecisionAndWhatItLeadsTo) {
    const auto modal = [] { RunCommand(L"QSetSunPrec"); };
    EXPECT_EQ(Shown(modal, ChoosingLast({2004, 2005})), (Names{"IDD_2004", "IDD_2010", "IDD_2008"}));
    g_strCurLanguage = L"en";
    EXPECT_EQ(Shown(modal, ChoosingLast({2004, 2005})), (Names{"IDD_2015", "IDD_2017", "IDD_2014"}));
}

TEST_F(PlugInDialogs, ThePlacesAndTheirEditor) {
    auto* run = Find<INT_PTR(CString&, CString&, CWnd*)>("_Z17SunZoneDlgDoModalR7CStringS0_P4CWnd");
    ASSERT_NE(run, nullptr);
    const auto modal = [run] {
        CString province;
        CString city;
        EXPECT_EQ(run(province, city, nullptr), IDCANCEL);
    };
    EXPECT_EQ(Shown(modal, Clicking({2021})), (Names{"IDD_2008", "IDD_2000"}));
    g_strCurLanguage = L"en";
    EXPECT_EQ(Shown(modal, Clicking({2021})), (Names{"IDD_2014", "IDD_2001"}));
}

TEST_F(PlugInDialogs, TheEditorOfPlacesAlone) {
    auto* run = Find<INT_PTR(CWnd*)>("_Z16SunZoneDbDoModalP4CWnd");
    ASSERT_NE(run, nullptr);
    EXPECT_EQ(Shown([run] { EXPECT_EQ(run(nullptr), IDCANCEL); }), Names{"IDD_2000"});
    EXPECT_EQ(Shown([] { RunCommand(L"QcCityData"); }), Names{"IDD_2000"});
    g_strCurLanguage = L"en";
    EXPECT_EQ(Shown([run] { EXPECT_EQ(run(nullptr), IDCANCEL); }), Names{"IDD_2001"});
}
