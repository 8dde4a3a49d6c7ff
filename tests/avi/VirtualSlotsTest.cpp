// The places of the recorder's virtual operations: recorders in other modules are compiled against them.

#include "avi/OrvoAVIFile.h"
#include "support/VirtualSlots.h"

namespace {

#if defined(__x86_64__)
TEST(VirtualSlots, TheRecordersOperationsFollowThoseOfItsBase) {
    using AddFile = BOOL (OrvoAVIFile::*)(QcStringW);
    using AddPicture = BOOL (OrvoAVIFile::*)(CBitmap&);
    EXPECT_EQ(SlotOf(&CObject::GetRuntimeClass), 0U);
    // The destructor takes two places.
    EXPECT_EQ(SlotOf(&CObject::Serialize), 3U);
    EXPECT_EQ(SlotOf(&CObject::AssertValid), 4U);
    EXPECT_EQ(SlotOf(&CObject::Dump), 5U);
    EXPECT_EQ(SlotOf(static_cast<AddFile>(&OrvoAVIFile::AddFrame)), 6U);
    EXPECT_EQ(SlotOf(static_cast<AddPicture>(&OrvoAVIFile::AddFrame)), 7U);
    EXPECT_EQ(SlotOf(&OrvoAVIFile::IsOK), 8U);
}
#endif

}  // namespace
