// What the framework keeps of a library.
#include "platform/host/ExtensionModule.h"

#include <gtest/gtest.h>

namespace {

const int g_module = 0;
const int g_otherModule = 0;

// What the framework found when this program's static objects were made.
const AFX_MODULE_STATE* const g_earlyState = AfxGetModuleState();

class Library : public CDynLinkLibrary {
public:
    Library(const AFX_EXTENSION_MODULE& state, int& gone) : CDynLinkLibrary(state), m_gone(gone) {}
    ~Library() override { ++m_gone; }

private:
    int& m_gone;
};

TEST(ExtensionModule, IsZeroAtFirst) {
    const AFX_EXTENSION_MODULE state;
    EXPECT_FALSE(state.bInitialized);
    EXPECT_EQ(state.hModule, nullptr);
    EXPECT_EQ(state.hResource, nullptr);
}

TEST(ExtensionModule, NotesItsHandleOnce) {
    AFX_EXTENSION_MODULE state;
    EXPECT_TRUE(AfxInitExtensionModule(state, &g_module));
    EXPECT_TRUE(state.bInitialized);
    EXPECT_EQ(state.hModule, &g_module);
    EXPECT_EQ(state.hResource, &g_module);
    EXPECT_TRUE(AfxInitExtensionModule(state, &g_otherModule));
    EXPECT_EQ(state.hModule, &g_module);
    AfxTermExtensionModule(state);
    EXPECT_FALSE(state.bInitialized);
    EXPECT_EQ(state.hModule, nullptr);
    EXPECT_EQ(state.hResource, nullptr);
    EXPECT_TRUE(AfxInitExtensionModule(state, &g_otherModule));
    EXPECT_EQ(state.hModule, &g_otherModule);
}

TEST(ExtensionModule, FailsWithoutAHandle) {
    AFX_EXTENSION_MODULE state;
    EXPECT_FALSE(AfxInitExtensionModule(state, nullptr));
    EXPECT_FALSE(state.bInitialized);
}

TEST(ExtensionModule, FailsWhenATestWantsIt) {
    AFX_EXTENSION_MODULE state;
    SetExtensionModuleFailureForTest(true);
    EXPECT_FALSE(AfxInitExtensionModule(state, &g_module));
    EXPECT_FALSE(state.bInitialized);
    EXPECT_EQ(state.hModule, nullptr);
    SetExtensionModuleFailureForTest(false);
    EXPECT_TRUE(AfxInitExtensionModule(state, &g_module));
}

TEST(DynLinkLibrary, IsInTheListNewestFirstWhileItExists) {
    AFX_EXTENSION_MODULE state;
    ASSERT_TRUE(AfxInitExtensionModule(state, &g_module));
    ASSERT_EQ(AfxGetFirstDynLinkLibrary(), nullptr);
    {
        const CDynLinkLibrary first(state);
        EXPECT_EQ(AfxGetFirstDynLinkLibrary(), &first);
        EXPECT_EQ(first.GetModule(), &g_module);
        EXPECT_EQ(first.GetResources(), &g_module);
        EXPECT_EQ(first.GetNext(), nullptr);
        const CDynLinkLibrary second(state);
        EXPECT_EQ(AfxGetFirstDynLinkLibrary(), &second);
        EXPECT_EQ(second.GetNext(), &first);
    }
    EXPECT_EQ(AfxGetFirstDynLinkLibrary(), nullptr);
}

TEST(DynLinkLibrary, LeavesTheListFromTheMiddle) {
    AFX_EXTENSION_MODULE state;
    ASSERT_TRUE(AfxInitExtensionModule(state, &g_module));
    int gone = 0;
    auto* first = new Library(state, gone);
    auto* middle = new Library(state, gone);
    auto* last = new Library(state, gone);
    delete middle;
    EXPECT_EQ(AfxGetFirstDynLinkLibrary(), last);
    EXPECT_EQ(last->GetNext(), first);
    EXPECT_EQ(first->GetNext(), nullptr);
    AfxTermExtensionModule(state);
    EXPECT_EQ(gone, 3);
}

TEST(DynLinkLibrary, IsDeletedWithItsModuleAndNoOther) {
    AFX_EXTENSION_MODULE state;
    AFX_EXTENSION_MODULE other;
    ASSERT_TRUE(AfxInitExtensionModule(state, &g_module));
    ASSERT_TRUE(AfxInitExtensionModule(other, &g_otherModule));
    int gone = 0;
    int otherGone = 0;
    new Library(state, gone);
    const auto* kept = new Library(other, otherGone);
    new Library(state, gone);
    AfxTermExtensionModule(state);
    EXPECT_EQ(gone, 2);
    EXPECT_EQ(otherGone, 0);
    EXPECT_EQ(AfxGetFirstDynLinkLibrary(), kept);
    AfxTermExtensionModule(state);  // a second time changes nothing
    EXPECT_EQ(otherGone, 0);
    AfxTermExtensionModule(other);
    EXPECT_EQ(otherGone, 1);
    EXPECT_EQ(AfxGetFirstDynLinkLibrary(), nullptr);
}

TEST(DynLinkLibrary, SurvivesTheEndOfAModuleThatNeverBegan) {
    AFX_EXTENSION_MODULE never;
    const CDynLinkLibrary library(never);
    AfxTermExtensionModule(never);
    EXPECT_EQ(AfxGetFirstDynLinkLibrary(), &library);
}

TEST(ModuleState, IsOneObjectAlsoForStaticConstructors) {
    ASSERT_NE(AfxGetModuleState(), nullptr);
    EXPECT_EQ(AfxGetModuleState(), g_earlyState);
}

TEST(ModuleState, HoldsTheCurrentResourceHandle) {
    EXPECT_EQ(AfxGetResourceHandle(), nullptr);
    AfxSetResourceHandle(&g_module);
    EXPECT_EQ(AfxGetModuleState()->m_hCurrentResourceHandle, &g_module);
    AfxGetModuleState()->m_hCurrentResourceHandle = &g_otherModule;
    EXPECT_EQ(AfxGetResourceHandle(), &g_otherModule);
    AfxSetResourceHandle(nullptr);
    EXPECT_EQ(AfxGetModuleState()->m_hCurrentResourceHandle, nullptr);
}

}  // namespace
