// The table of virtual operations: which slot each one has. And what the module shows of its instantiations.
#include <dlfcn.h>
#include <link.h>

#include <cstring>

#include "TestElements.h"
#include "containers/Qc2dArray.h"
#include "containers/QcDList.h"
#include "containers/QcDynArray.h"
#include "containers/QcList.h"

namespace {

// A pointer to a virtual member function holds its slot's offset in the table, plus 1.
template <class Function>
long SlotOf(Function function) {
    std::ptrdiff_t encoded = 0;
    static_assert(sizeof(function) == 2 * sizeof(encoded));
    std::memcpy(&encoded, &function, sizeof(encoded));
    return encoded % 2 == 1 ? (encoded - 1) / static_cast<long>(sizeof(void*)) : -1;
}

template <class C, class T>
void ExpectTable() {
    using Cmp = int (*)(const T&, const T&);
    using Index = T& (C::*)(long);
    long slot = 0;
    EXPECT_EQ(SlotOf(&C::ReAllocate), slot++);
    slot += 2;  // the destructor has two: destroy, and destroy and free
    EXPECT_EQ(SlotOf(&C::SetLength), slot++);
    EXPECT_EQ(SlotOf(&C::Reset), slot++);
    EXPECT_EQ(SlotOf(&C::GetCurData), slot++);
    EXPECT_EQ(SlotOf(&C::SetCurData), slot++);
    EXPECT_EQ(SlotOf(&C::MoveToFirst), slot++);
    EXPECT_EQ(SlotOf(&C::MoveToNext), slot++);
    EXPECT_EQ(SlotOf(&C::MoveToPre), slot++);
    EXPECT_EQ(SlotOf(&C::MoveToLast), slot++);
    EXPECT_EQ(SlotOf(&C::MoveTo), slot++);
    EXPECT_EQ(SlotOf(static_cast<Index>(&C::operator[])), slot++);
    EXPECT_EQ(SlotOf(&C::GetFirst), slot++);
    EXPECT_EQ(SlotOf(&C::GetNext), slot++);
    EXPECT_EQ(SlotOf(&C::GetPre), slot++);
    EXPECT_EQ(SlotOf(&C::GetLast), slot++);
    EXPECT_EQ(SlotOf(&C::GetAt), slot++);
    EXPECT_EQ(SlotOf(&C::InsertCur), slot++);
    EXPECT_EQ(SlotOf(&C::Insert), slot++);
    EXPECT_EQ(SlotOf(&C::InsertHead), slot++);
    EXPECT_EQ(SlotOf(&C::Append), slot++);
    EXPECT_EQ(SlotOf(&C::DelCur), slot++);
    EXPECT_EQ(SlotOf(static_cast<void (C::*)(Cmp)>(&C::Sort)), slot++);
    EXPECT_EQ(SlotOf(static_cast<void (C::*)(bool)>(&C::Sort)), slot++);
    EXPECT_EQ(SlotOf(&C::Move), slot++);
    EXPECT_EQ(SlotOf(&C::InsertAfterCur), slot++);
    EXPECT_EQ(SlotOf(&C::DetachAfterCur), slot++);
    EXPECT_EQ(SlotOf(&C::Conbine), slot++);
    EXPECT_EQ(SlotOf(&C::ReverseList), slot++);
    EXPECT_EQ(SlotOf(&C::Rotate), slot++);
}

// Adds one more virtual operation: it comes right behind the table.
class OneMore : public QcList<int> {
public:
    virtual int Added() { return 1; }
};

TEST(VirtualTable, HasTheSlotsInOrder) {
    ExpectTable<QcDynArrayBase<int>, int>();
    ExpectTable<QcDynArrayBase<Bare>, Bare>();
}

TEST(VirtualTable, EndsWithRotate) {
    EXPECT_EQ(SlotOf(&OneMore::Added), SlotOf(&QcDynArrayBase<int>::Rotate) + 1);
    EXPECT_EQ(SlotOf(&OneMore::Added), 31);
}

// Calls the operation in a slot of an object's own table, as a caller compiled against another header would.
template <class Result, class... Args>
Result CallSlot(void* object, int slot, Args... args) {
    void** const table = *static_cast<void***>(object);
    return reinterpret_cast<Result (*)(void*, Args...)>(table[slot])(object, args...);
}

TEST(VirtualTable, ReachesEachClassesOwnOperations) {
    QcDynArray<int> array;
    QcList<int> list;
    QcDList<int> twofold;
    for (QcDynArrayBase<int>* const p :
         {static_cast<QcDynArrayBase<int>*>(&array), static_cast<QcDynArrayBase<int>*>(&list),
          static_cast<QcDynArrayBase<int>*>(&twofold)}) {
        CallSlot<void>(p, 0, 2L);
        EXPECT_EQ(p->GetLength(), 2);
        const int five = 5;
        CallSlot<void>(p, 21, &five);
        EXPECT_EQ(*p->GetLast(), 5);
        CallSlot<void>(p, 11, 1L);
        EXPECT_EQ(p->GetCurPos(), 1);
        CallSlot<void>(p, 30, 2L, 0L);
        EXPECT_EQ(*p->GetFirst(), 5);
        CallSlot<void>(p, 4);
        EXPECT_TRUE(p->IsEmpty());
    }
}

// The module that these tests run with, opened once more, wherever it lies and whatever number stands behind its name.
void* OpenModule() {
    void* const program = dlopen(nullptr, RTLD_NOW);
    const link_map* loaded = nullptr;
    if (dlinfo(program, RTLD_DI_LINKMAP, static_cast<void*>(&loaded)) == 0)
        for (; loaded != nullptr; loaded = loaded->l_next)
            if (std::strstr(loaded->l_name, "/OrvoDataBase.so") != nullptr)
                return dlopen(loaded->l_name, RTLD_NOW | RTLD_NOLOAD);
    return nullptr;
}

TEST(Instantiations, AreExportedByTheModule) {
    void* const module = OpenModule();
    ASSERT_NE(module, nullptr);
    for (const char* const name : {"_ZTV14QcDynArrayBaseIiE",
                                   "_ZTV14QcDynArrayBaseIcE",
                                   "_ZTV14QcDynArrayBaseIdE",
                                   "_ZTV10QcDynArrayIiE",
                                   "_ZTV10QcDynArrayIcE",
                                   "_ZTV10QcDynArrayIdE",
                                   "_ZTV6QcListIiE",
                                   "_ZTV6QcListIcE",
                                   "_ZTV6QcListIdE",
                                   "_ZTV7QcDListIiE",
                                   "_ZTV7QcDListIcE",
                                   "_ZTV7QcDListIdE",
                                   "_ZTV7QcArrayIiE",
                                   "_ZTV7QcArrayIcE",
                                   "_ZTV7QcArrayIdE",
                                   "_ZTV9Qc2dArrayIiE",
                                   "_ZTV9Qc2dArrayIdE",
                                   "_ZN10QcDynArrayIiE5RefitEllRb",
                                   "_ZN6QcListIcE7SplitAtElRS0_",
                                   "_ZNK14QcDynArrayBaseIdE4FindERKdll"})
        EXPECT_NE(dlsym(module, name), nullptr) << name;
    dlclose(module);
}

}  // namespace
