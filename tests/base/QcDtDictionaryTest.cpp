// The sequence of items, ownership, and the look-up by name.
#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>
#include <vector>

#include "platform/base/QcDtDictionary.h"

namespace {

std::wstring Number(int value) {
    return std::to_wstring(value);
}

// Tells when it is deleted.
class WatchedItem : public QcDtDictStringItem {
public:
    WatchedItem(const wchar_t* name, int& deleted) : QcDtDictStringItem(name), m_deleted(deleted) {}
    ~WatchedItem() override { ++m_deleted; }

private:
    int& m_deleted;
};

TEST(QcDtDictionary, StartsEmpty) {
    QcDtDictionary dictionary;
    EXPECT_EQ(dictionary.GetType(), 0);
    EXPECT_EQ(dictionary.GetCount(), 0);
    EXPECT_EQ(dictionary.GetItem(0), nullptr);
    EXPECT_EQ(dictionary.FindItem(L""), nullptr);
    EXPECT_EQ(dictionary.FindDict(L""), nullptr);
    EXPECT_EQ(dictionary.GetTag(), L"");
    EXPECT_EQ(dictionary.GetName(), L"");
}

TEST(QcDtDictionary, GivesItemsByIndexInTheOrderOfTheirComing) {
    QcDtDictionary dictionary;
    QcDtDictItem* const b = dictionary.FindOrAddItem(L"b", QcDtKindString);
    QcDtDictItem* const a = dictionary.FindOrAddItem(L"a", QcDtKindInteger);
    ASSERT_EQ(dictionary.GetCount(), 2);
    EXPECT_EQ(dictionary.GetItem(0), b);
    EXPECT_EQ(dictionary.GetItem(1), a);
    EXPECT_EQ(dictionary.GetItem(-1), nullptr);
    EXPECT_EQ(dictionary.GetItem(2), nullptr);
    EXPECT_EQ(b->GetParent(), &dictionary);
    const QcDtDictionary& fixed = dictionary;
    EXPECT_EQ(fixed.GetItem(1), a);
    EXPECT_EQ(fixed.GetItem(2), nullptr);
    EXPECT_EQ(fixed.FindItem(L"a"), a);
    EXPECT_EQ(fixed.FindDict(L"a"), nullptr);
}

TEST(QcDtDictionary, FindsNamesExactly) {
    QcDtDictionary dictionary;
    QcDtDictItem* const item = dictionary.FindOrAddItem(L"Beijing", QcDtKindString);
    EXPECT_EQ(dictionary.FindItem(L"Beijing"), item);
    EXPECT_EQ(dictionary.FindItem(L"beijing"), nullptr);
    EXPECT_EQ(dictionary.FindItem(L"Beijin"), nullptr);
    EXPECT_EQ(dictionary.FindItem(nullptr), nullptr);
    QcDtDictItem* const nameless = dictionary.FindOrAddItem(nullptr, QcDtKindString);
    EXPECT_EQ(dictionary.FindItem(L""), nameless);
    EXPECT_EQ(dictionary.FindItem(nullptr), nameless);
}

TEST(QcDtDictionary, FindsByNameAndNotByTag) {
    QcDtDictionary dictionary;
    QcDtDictItem* const item = dictionary.FindOrAddItem(L"a", QcDtKindString);
    item->SetTag(L"b");
    EXPECT_EQ(dictionary.FindItem(L"a"), item);
    EXPECT_EQ(dictionary.FindItem(L"b"), nullptr);
}

TEST(QcDtDictionary, FindOrAddItemGivesAnExistingItemWhateverItsKind) {
    QcDtDictionary dictionary;
    QcDtDictItem* const text = dictionary.FindOrAddItem(L"a", QcDtKindString);
    EXPECT_EQ(text->GetType(), QcDtKindString);
    EXPECT_EQ(text->GetTag(), L"a");
    EXPECT_EQ(dictionary.FindOrAddItem(L"a", QcDtKindDouble), text);
    EXPECT_EQ(dictionary.FindOrAddItem(L"a", 77), text);
    EXPECT_EQ(dictionary.GetCount(), 1);
    EXPECT_EQ(dictionary.FindOrAddItem(L"b", QcDtKindDictionary)->GetType(), QcDtKindDictionary);
    EXPECT_EQ(dictionary.FindOrAddItem(L"c", 77), nullptr);
    EXPECT_EQ(dictionary.GetCount(), 2);
}

TEST(QcDtDictionary, FindDictPassesOverOtherKindsOfTheSameName) {
    for (const int others : {0, 40}) {  // without and with a look-up table
        QcDtDictionary dictionary;
        for (int i = 0; i < others; ++i)
            dictionary.FindOrAddItem(Number(i).c_str(), QcDtKindString);
        dictionary.AppendItem(new QcDtDictStringItem(L"a"));
        EXPECT_EQ(dictionary.FindDict(L"a"), nullptr);
        auto* const first = new QcDtDictionary(L"a");
        dictionary.AppendItem(first);
        dictionary.AppendItem(new QcDtDictionary(L"a"));
        EXPECT_EQ(dictionary.FindDict(L"a"), first);
        EXPECT_EQ(std::as_const(dictionary).FindDict(L"a"), first);
        EXPECT_EQ(dictionary.FindItem(L"a"), dictionary.GetItem(others));
        EXPECT_EQ(dictionary.FindOrAddDict(L"a"), first);
    }
}

TEST(QcDtDictionary, FindOrAddDictGivesNullWhenOnlyAnotherKindBearsTheName) {
    QcDtDictionary dictionary;
    dictionary.FindOrAddItem(L"a", QcDtKindString);
    EXPECT_EQ(dictionary.FindOrAddDict(L"a"), nullptr);
    EXPECT_EQ(dictionary.GetCount(), 1);
    QcDtDictionary* const b = dictionary.FindOrAddDict(L"b");
    ASSERT_NE(b, nullptr);
    EXPECT_EQ(b->GetTag(), L"b");
    EXPECT_EQ(b->GetName(), L"b");
    EXPECT_EQ(dictionary.FindOrAddDict(L"b"), b);
    EXPECT_EQ(dictionary.GetCount(), 2);
}

TEST(QcDtDictionary, NamesMayRepeatAndTheFirstIsFound) {
    for (const int others : {0, 40}) {
        QcDtDictionary dictionary;
        for (int i = 0; i < others; ++i)
            dictionary.FindOrAddItem(Number(i).c_str(), QcDtKindString);
        std::vector<QcDtDictItem*> same;
        for (int i = 0; i < 3; ++i) {
            same.push_back(new QcDtDictStringItem(L"a"));
            EXPECT_TRUE(dictionary.AppendItem(same.back()));
        }
        EXPECT_EQ(dictionary.GetCount(), others + 3);
        EXPECT_EQ(dictionary.FindItem(L"a"), same[0]);
        EXPECT_TRUE(dictionary.RemoveItem(same[1]));
        EXPECT_EQ(dictionary.FindItem(L"a"), same[0]);
        EXPECT_TRUE(dictionary.RemoveItem(same[0]));
        EXPECT_EQ(dictionary.FindItem(L"a"), same[2]);
        EXPECT_TRUE(dictionary.RemoveItem(same[2]));
        EXPECT_EQ(dictionary.FindItem(L"a"), nullptr);
    }
}

TEST(QcDtDictionary, ARenamedItemIsFoundUnderItsNewNameOnlyAndInItsOldPlace) {
    for (const int others : {0, 40}) {
        QcDtDictionary dictionary;
        QcDtDictItem* const first = dictionary.FindOrAddItem(L"x", QcDtKindString);
        QcDtDictItem* const second = dictionary.FindOrAddItem(L"a", QcDtKindString);
        for (int i = 0; i < others; ++i)
            dictionary.FindOrAddItem(Number(i).c_str(), QcDtKindString);
        first->SetName(L"a");  // stands before the other of this name
        EXPECT_EQ(dictionary.FindItem(L"a"), first);
        EXPECT_EQ(dictionary.FindItem(L"x"), nullptr);
        EXPECT_EQ(dictionary.GetItem(0), first);
        first->SetName(L"y");
        EXPECT_EQ(dictionary.FindItem(L"a"), second);
        EXPECT_EQ(dictionary.FindItem(L"y"), first);
        first->SetName(first->GetName());
        EXPECT_EQ(dictionary.FindItem(L"y"), first);
        first->SetName(second->GetName());
        EXPECT_EQ(dictionary.FindItem(L"a"), first);
    }
}

TEST(QcDtDictionary, RefusesWhatItCannotOwnAndLeavesItWithTheCaller) {
    QcDtDictionary root;
    EXPECT_FALSE(root.AppendItem(nullptr));
    EXPECT_FALSE(root.AppendItem(&root));
    QcDtDictionary* const child = root.FindOrAddDict(L"child");
    QcDtDictionary* const grandchild = child->FindOrAddDict(L"grandchild");
    EXPECT_FALSE(root.AppendItem(child));
    EXPECT_FALSE(grandchild->AppendItem(child));
    EXPECT_FALSE(grandchild->AppendItem(&root));
    EXPECT_FALSE(child->AppendItem(&root));
    EXPECT_EQ(root.GetParent(), nullptr);
    EXPECT_EQ(root.GetCount(), 1);
    QcDtDictionary other;
    EXPECT_FALSE(other.AppendItem(grandchild));
    EXPECT_EQ(other.GetCount(), 0);
    EXPECT_EQ(grandchild->GetParent(), child);
}

TEST(QcDtDictionary, OwnsWhatWasAppended) {
    int deleted = 0;
    {
        QcDtDictionary root;
        QcDtDictionary* const child = root.FindOrAddDict(L"child");
        EXPECT_TRUE(child->AppendItem(new WatchedItem(L"a", deleted)));
        EXPECT_TRUE(root.AppendItem(new WatchedItem(L"b", deleted)));
        auto* const c = new WatchedItem(L"c", deleted);
        EXPECT_TRUE(root.AppendItem(c));
        EXPECT_TRUE(root.RemoveItem(c));
        EXPECT_EQ(deleted, 1);
        EXPECT_TRUE(root.RemoveItem(child));
        EXPECT_EQ(deleted, 2);
    }
    EXPECT_EQ(deleted, 3);
}

TEST(QcDtDictionary, RemovesOnlyItsOwnItems) {
    QcDtDictionary root;
    QcDtDictionary* const child = root.FindOrAddDict(L"child");
    QcDtDictItem* const inner = child->FindOrAddItem(L"a", QcDtKindString);
    QcDtDictStringItem loose(L"a");
    EXPECT_FALSE(root.RemoveItem(nullptr));
    EXPECT_FALSE(root.RemoveItem(inner));
    EXPECT_FALSE(root.RemoveItem(&loose));
    EXPECT_FALSE(root.RemoveItem(&root));
    EXPECT_TRUE(child->RemoveItem(inner));
    EXPECT_EQ(child->GetCount(), 0);
}

TEST(QcDtDictionary, AnItemThatIsDeletedLeavesItsDictionary) {
    for (const int others : {0, 40}) {
        QcDtDictionary root;
        for (int i = 0; i < others; ++i)
            root.FindOrAddItem(Number(i).c_str(), QcDtKindString);
        delete root.FindOrAddItem(L"a", QcDtKindString);
        EXPECT_EQ(root.GetCount(), others);
        EXPECT_EQ(root.FindItem(L"a"), nullptr);
    }
}

TEST(QcDtDictionary, RemoveAllKeepsItsOwnNamesAndAttributes) {
    QcDtDictionary dictionary(L"a", L"甲");
    dictionary.SetAttributeValue(L"type", L"SunStd");
    for (int i = 0; i < 100; ++i)
        dictionary.FindOrAddItem(Number(i).c_str(), QcDtKindString);
    dictionary.RemoveAll();
    EXPECT_EQ(dictionary.GetCount(), 0);
    EXPECT_EQ(dictionary.FindItem(L"5"), nullptr);
    EXPECT_EQ(dictionary.GetName(), L"a");
    EXPECT_EQ(dictionary.GetLocalName(), L"甲");
    EXPECT_EQ(dictionary.GetAttributeValue(L"type"), L"SunStd");
    EXPECT_NE(dictionary.FindOrAddItem(L"5", QcDtKindFlag), nullptr);
    EXPECT_EQ(dictionary.FindItem(L"5")->GetType(), QcDtKindFlag);
}

TEST(QcDtDictionary, ACopyHasEverythingUnderItAndSharesNothing) {
    QcDtDictionary root(L"root", L"根");
    root.SetAttributeValue(L"a", L"1");
    QcDtDictionary* const child = root.FindOrAddDict(L"child");
    for (int i = 0; i < 50; ++i)
        child->FindOrAddItem(Number(i).c_str(), QcDtKindInteger)->SetIntValue(i);
    root.FindOrAddItem(L"text", QcDtKindString)->SetStringValue(L"s");
    const std::unique_ptr<QcDtDictionary> copy(root.Clone());
    EXPECT_EQ(copy->GetLocalName(), L"根");
    EXPECT_EQ(copy->GetAttributeValue(L"a"), L"1");
    ASSERT_EQ(copy->GetCount(), 2);
    ASSERT_NE(copy->FindDict(L"child"), nullptr);
    EXPECT_NE(copy->FindDict(L"child"), child);
    for (int i = 0; i < 50; ++i)
        EXPECT_EQ(copy->FindDict(L"child")->FindItem(Number(i).c_str())->GetIntValue(), i);
    EXPECT_EQ(copy->GetItem(0)->GetParent(), copy.get());
    copy->FindDict(L"child")->RemoveAll();
    EXPECT_EQ(child->GetCount(), 50);
}

TEST(QcDtDictionary, ATreeOfAnyDepthCanBeCopiedAndDeleted) {
    auto root = std::make_unique<QcDtDictionary>(L"0");
    QcDtDictionary* innermost = root.get();
    for (int i = 0; i < 300000; ++i) {
        auto* const next = new QcDtDictionary(L"n");
        ASSERT_TRUE(innermost->AppendItem(next));
        innermost = next;
    }
    const std::unique_ptr<QcDtDictionary> copy(root->Clone());
    root.reset();
    int depth = 0;
    for (QcDtDictionary* at = copy.get(); at; at = at->FindDict(L"n"))
        ++depth;
    EXPECT_EQ(depth, 300001);
}

// The dictionary against a plain list of items in order.
class Model {
public:
    explicit Model(unsigned seed) : m_random(seed) {}

    void Step() {
        const int choice = Pick(10);
        const std::wstring name = Number(Pick(40));
        if (choice < 5) {
            QcDtDictItem* const item =
                QcDtDictItem::Create(Pick(4) == 0 ? QcDtKindDictionary : QcDtKindString, name.c_str());
            ASSERT_TRUE(m_dictionary.AppendItem(item));
            m_items.push_back(item);
        } else if (choice < 7 && !m_items.empty()) {
            m_items[static_cast<std::size_t>(Pick(static_cast<int>(m_items.size())))]->SetName(name.c_str());
        } else if (choice < 9 && !m_items.empty()) {
            const auto at = m_items.begin() + Pick(static_cast<int>(m_items.size()));
            ASSERT_TRUE(m_dictionary.RemoveItem(*at));
            m_items.erase(at);
        }
        Compare();
    }

private:
    int Pick(int below) { return std::uniform_int_distribution<int>(0, below - 1)(m_random); }

    void Compare() {
        ASSERT_EQ(m_dictionary.GetCount(), static_cast<int>(m_items.size()));
        for (int i = 0; i < 40; ++i) {
            const std::wstring name = Number(i);
            const QcDtDictItem* first = nullptr;
            const QcDtDictItem* firstDictionary = nullptr;
            for (const QcDtDictItem* item : m_items) {
                if (item->GetName() != name.c_str())
                    continue;
                first = first ? first : item;
                firstDictionary = firstDictionary || item->GetType() != 0 ? firstDictionary : item;
            }
            ASSERT_EQ(m_dictionary.FindItem(name.c_str()), first);
            ASSERT_EQ(m_dictionary.FindDict(name.c_str()), firstDictionary);
        }
        for (int i = 0; i < m_dictionary.GetCount(); ++i)
            ASSERT_EQ(m_dictionary.GetItem(i), m_items[static_cast<std::size_t>(i)]);
    }

    std::mt19937 m_random;
    QcDtDictionary m_dictionary;
    std::vector<QcDtDictItem*> m_items;
};

TEST(QcDtDictionary, FindsTheSameAsAWalkWhateverIsAddedRenamedAndRemoved) {
    for (unsigned seed = 1; seed <= 20; ++seed) {
        Model model(seed);
        for (int step = 0; step < 200 && !testing::Test::HasFatalFailure(); ++step)
            model.Step();
    }
}

}  // namespace
