// The host's services by name.
#include "platform/host/RxRegistry.h"

#include <gtest/gtest.h>

namespace {

TEST(RxRegistry, GivesTheServicesByName) {
    AcRxDictionary* registry = acrxSysRegistry();
    ASSERT_NE(registry, nullptr);
    EXPECT_EQ(registry, acrxSysRegistry());
    EXPECT_EQ(registry->at(L"DynamicLinker"), &HostDynamicLinker());
    EXPECT_NE(dynamic_cast<AcRxDynamicLinker*>(registry->at(L"DynamicLinker")), nullptr);
    EXPECT_EQ(registry->at(L"ACAD_REGISTERED_COMMANDS"), &HostCommandStack());
    EXPECT_NE(dynamic_cast<AcEdCommandStack*>(registry->at(L"ACAD_REGISTERED_COMMANDS")), nullptr);
}

TEST(RxRegistry, HasNothingUnderOtherNames) {
    for (const wchar_t* name : {L"", L"dynamiclinker", L"DynamicLinker ", L"ACAD_REGISTERED"})
        EXPECT_EQ(acrxSysRegistry()->at(name), nullptr);
    EXPECT_EQ(acrxSysRegistry()->at(nullptr), nullptr);
}

TEST(DynamicLinker, RemembersWhoRegisteredUntilTold) {
    AcRxDynamicLinker linker;
    int first = 0;
    int second = 0;
    EXPECT_FALSE(linker.isRegistered(&first));
    EXPECT_TRUE(linker.registerAppMDIAware(&first));
    EXPECT_TRUE(linker.registerAppMDIAware(&first));
    EXPECT_TRUE(linker.isRegistered(&first));
    EXPECT_FALSE(linker.isRegistered(&second));
    linker.forget(&first);
    EXPECT_FALSE(linker.isRegistered(&first));
    linker.forget(&second);
}

TEST(DynamicLinker, TakesNoNullHandle) {
    AcRxDynamicLinker linker;
    EXPECT_FALSE(linker.registerAppMDIAware(nullptr));
    EXPECT_FALSE(linker.isRegistered(nullptr));
    EXPECT_FALSE(linker.setLocked(nullptr, false));
    EXPECT_TRUE(linker.isLocked(nullptr));
}

TEST(DynamicLinker, HoldsAPlugInLockedUntilItIsUnlocked) {
    AcRxDynamicLinker linker;
    int plugin = 0;
    EXPECT_TRUE(linker.isLocked(&plugin));
    EXPECT_TRUE(linker.setLocked(&plugin, false));
    EXPECT_FALSE(linker.isLocked(&plugin));
    EXPECT_TRUE(linker.setLocked(&plugin, true));
    EXPECT_TRUE(linker.isLocked(&plugin));
    linker.setLocked(&plugin, false);
    linker.forget(&plugin);
    EXPECT_TRUE(linker.isLocked(&plugin));
}

TEST(DynamicLinker, IsWhatTheLockFunctionsActOn) {
    int plugin = 0;
    EXPECT_TRUE(acrxApplicationIsLocked(&plugin));
    EXPECT_TRUE(acrxUnlockApplication(&plugin));
    EXPECT_FALSE(acrxApplicationIsLocked(&plugin));
    EXPECT_FALSE(HostDynamicLinker().isLocked(&plugin));
    EXPECT_FALSE(acrxUnlockApplication(nullptr));
}

}  // namespace
