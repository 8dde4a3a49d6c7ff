// Memory that runs out at any point of a change leaves the drawing as it was.
#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

#include "RedrawText.h"

// A sanitizer has allocators of its own.
#ifndef __SANITIZE_ADDRESS__

namespace {

// How many allocations succeed until all fail; negative: none fails.
thread_local long g_allowed = -1;

// A memory checker may have put its own operators in the place of those below.
bool DoAllocationsFail() {
    g_allowed = 0;
    void* memory = nullptr;
    try {
        memory = operator new(1);
    } catch (const std::bad_alloc&) {
    }
    g_allowed = -1;
    operator delete(memory);
    return !memory;
}

}  // namespace

void* operator new(std::size_t size) {
    if (g_allowed == 0)
        throw std::bad_alloc();
    if (g_allowed > 0)
        --g_allowed;
    if (void* const memory = std::malloc(size > 0 ? size : 1))
        return memory;
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

TEST(RedrawMemory, RunsOutWithoutATrace) {
    if (!DoAllocationsFail())
        GTEST_SKIP() << "under a memory checker";
    const std::string text = SmallDrawing();
    OpenDrawing drawing(text);
    DrawingChange change =
        ChangeOf({{L"ORVO_RESULT", 1}}, {NewLine(L"ORVO_RESULT"), NewPolyline(), NewFace(), NewText(L"北京")});
    change.emptiedLayers = {L"0"};
    const AcDbObjectId first = drawing.database.GetEntityId(0);
    long failures = 0;
    for (Acad::ErrorStatus status = Acad::eOutOfMemory; status != Acad::eOk; ++failures) {
        CString message;
        g_allowed = failures;
        status = drawing.database.Redraw(change, &message);
        g_allowed = -1;
        if (status == Acad::eOk)
            break;
        ASSERT_EQ(status, Acad::eOutOfMemory) << failures;
        ASSERT_FALSE(drawing.database.IsModified()) << failures;
        ASSERT_EQ(drawing.database.GetEntityId(0), first) << failures;
        ASSERT_EQ(drawing.database.GetEntityCount(), 4U) << failures;
        if (failures % 100 == 0)
            ASSERT_EQ(drawing.Saved(), text) << failures;
    }
    EXPECT_GT(failures, 100) << "a change of this size asks for memory more often";
    EXPECT_EQ(drawing.database.GetEntityCount(), 4U) << "all went, four came";
    EXPECT_NE(drawing.database.GetEntityId(0), first);
    // In one step as after all of those that failed.
    OpenDrawing other(text);
    MustRedraw(other, change);
    EXPECT_EQ(drawing.Saved(), other.Saved());
}

#endif
