// Random sequences of operations on every container, compared after each step with a plain model: a vector and an
// index. The seeds are fixed, so a failure names its round.
#include <algorithm>
#include <memory>
#include <random>

#include "TestElements.h"
#include "containers/QcDList.h"
#include "containers/QcDynArray.h"
#include "containers/QcDynPArray.h"
#include "containers/QcList.h"
#include "containers/QcPDList.h"
#include "containers/QcPXList.h"
#include "containers/QcXList.h"

namespace {

// What a container is expected to hold, written down once more in terms of vector's own operations.
struct Model {
    Ints m_all;
    long m_cur = -1;

    long Count() const { return static_cast<long>(m_all.size()); }
    bool Has(long i) const { return i >= 0 && i < Count(); }
    auto At(long i) { return m_all.begin() + i; }
    void Insert(long i, int x) {
        m_all.insert(At(i), x);
        m_cur = i;
    }
    void Erase(long i) {
        if (Has(i))
            m_all.erase(At(i));
        m_cur = Has(i) || i == Count() ? i - 1 : -1;
    }
    void MoveTo(long i) { m_cur = Has(i) ? i : -1; }
    void Resize(long n) {
        m_all.resize(static_cast<std::size_t>(n));
        MoveTo(m_cur);
    }
};

// One random operation on both sides. Elements are small, so that equal ones are frequent.
template <class C>
class Player {
public:
    explicit Player(unsigned seed) : m_random(seed) {}

    void Play(int steps) {
        for (int i = 0; i < steps; ++i) {
            const int op = Below(26);
            op < 13 ? EditAt(op) : Reorder(op - 13);
            Check(op);
            if (testing::Test::HasFailure())
                return;
        }
    }

private:
    int Below(int n) { return static_cast<int>(m_random() % static_cast<unsigned>(n)); }
    long AnyIndex() { return Below(static_cast<int>(m_model.Count()) + 3) - 1; }

    void EditAt(int op) {
        const int x = Below(8);
        const long i = AnyIndex();
        const long n = m_model.Count();
        switch (op) {
            case 0:
            case 1:
                m_c.Append(x);
                m_model.Insert(n, x);
                break;
            case 2:
                m_c.InsertHead(x);
                m_model.Insert(0, x);
                break;
            case 3:
                m_c.Insert(i, x);
                m_model.Insert(m_model.Has(i) ? i : n, x);
                break;
            case 4:
            case 5:
                m_c.InsertCur(x);
                m_model.Insert(m_model.m_cur < 0 ? n : m_model.m_cur, x);
                break;
            case 6:
            case 7:
                m_c.InsertAfterCur(x);
                m_model.Insert(m_model.m_cur + 1, x);
                break;
            case 8:
            case 9:
                m_c.DelCur();
                if (m_model.m_cur >= 0)
                    m_model.Erase(m_model.m_cur);
                break;
            case 10:
                m_c.Del(i);
                if (m_model.Has(i))
                    m_model.Erase(i);
                else
                    m_model.m_cur = -1;
                break;
            case 11:
                EXPECT_EQ(m_c.FindDel(x), static_cast<long>(std::erase(m_model.m_all, x)));
                m_model.m_cur = -1;
                break;
            default:
                m_c.SetCurData(x);
                if (m_model.m_cur >= 0)
                    *m_model.At(m_model.m_cur) = x;
        }
    }

    void MoveCursor(int op, long i) {
        if (op == 0) {
            m_c.MoveTo(i);
            m_model.MoveTo(i);
        } else if (op <= 2) {
            m_c.MoveToNext();
            m_model.MoveTo(m_model.m_cur + 1);
        } else {
            m_c.MoveToPre();
            m_model.MoveTo(m_model.m_cur < 0 ? m_model.Count() - 1 : m_model.m_cur - 1);
        }
    }

    void Reorder(int op) {
        const long i = AnyIndex();
        const long j = AnyIndex();
        const bool hasBoth = m_model.Has(i) && m_model.Has(j);
        auto& all = m_model.m_all;
        switch (op) {
            case 0:
            case 1:
            case 2:
            case 3:
            case 4:
                MoveCursor(op, i);
                break;
            case 5:
                m_c.Sort(i % 2 == 0);
                std::sort(all.begin(), all.end());
                if (i % 2 != 0)
                    std::reverse(all.begin(), all.end());
                break;
            case 6:
                m_c.ReverseList();
                std::reverse(all.begin(), all.end());
                break;
            case 7:
                m_c.Exchange(i, j);
                if (hasBoth)
                    std::swap(*m_model.At(i), *m_model.At(j));
                break;
            case 8:
                EXPECT_EQ(m_c.Move(i, j), hasBoth);
                if (hasBoth) {
                    const int x = *m_model.At(i);
                    all.erase(m_model.At(i));
                    all.insert(m_model.At(j), x);
                }
                break;
            case 9:
                m_c.Rotate(i, j);
                for (long k = i; hasBoth && k != j; k += k < j ? 1 : -1)
                    std::rotate(all.begin(), k < j ? all.end() - 1 : all.begin() + 1, all.end());
                break;
            case 10:
                m_c.Reverse(i, j);
                if (m_model.Has(i)) {
                    const long last = m_model.Has(j) ? j : m_model.Count() - 1;
                    if (i < last)
                        std::reverse(m_model.At(i), m_model.At(last) + 1);
                }
                break;
            case 11:
                Resize(i, j);
                break;
            default:
                Join(i);
        }
    }

    void Resize(long i, long j) {
        const long n = m_model.Count();
        if (j % 3 == 0) {
            m_c.SetLength(i, true);
            m_model.Resize(std::max(i, 0L));
        } else if (j % 3 == 1) {
            m_c.DecreaseSize(i);
            m_model.Resize(n - std::clamp(i, 0L, n));
        } else {
            const long cut = m_c.DetachAfterCur();
            EXPECT_EQ(cut, n - 1 - m_model.m_cur);
            m_model.Resize(m_model.m_cur + 1);
        }
    }

    void Join(long pos) {
        QcList<int> single;
        QcDList<int> twofold;
        QcList<int>& other = Below(2) == 0 ? single : twofold;
        const int more = Below(4);
        for (int k = 0; k < more; ++k)
            other.Append(k);
        EXPECT_EQ(m_c.Conbine(other, pos), m_model.Count() + more);
        const bool isInside = m_model.Has(pos);
        auto at = isInside ? m_model.At(pos) : m_model.m_all.end();
        for (int k = 0; k < more; ++k)
            at = m_model.m_all.insert(at, k) + 1;
        if (isInside && m_model.m_cur >= pos)
            m_model.m_cur += more;
    }

    void Check(int op) {
        ASSERT_EQ(Elements(m_c), m_model.m_all) << "operation " << op;
        ASSERT_EQ(m_c.GetCurPos(), m_model.m_cur) << "operation " << op;
        ASSERT_EQ(m_c.GetCurData(), m_model.m_cur < 0 ? 0 : *m_model.At(m_model.m_cur)) << "operation " << op;
    }

    std::mt19937 m_random;
    C m_c;
    Model m_model;
};

template <class C>
void PlayMany() {
    for (unsigned seed = 1; seed <= 400 && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        Player<C>(seed).Play(60);
    }
}

TEST(RandomOperations, OnQcDynArray) {
    PlayMany<QcDynArray<int>>();
}
TEST(RandomOperations, OnQcList) {
    PlayMany<QcList<int>>();
}
TEST(RandomOperations, OnQcDList) {
    PlayMany<QcDList<int>>();
}
TEST(RandomOperations, OnQcXList) {
    PlayMany<QcXList<int>>();
}

// The owners: beside the values, no object may live that no slot holds.
template <class C>
void PlayOwner(unsigned seed) {
    std::mt19937 random(seed);
    C c;
    std::vector<int> model;  // -1 for a null slot
    const auto at = [&model](long i) { return model.begin() + i; };
    for (int step = 0; step < 80; ++step) {
        const long n = static_cast<long>(model.size());
        const long i = static_cast<long>(random() % static_cast<unsigned>(n + 1));
        const int x = static_cast<int>(random() % 6);
        switch (random() % 8) {
            case 0:
                c.Insert(i, new Counted(x));
                model.insert(at(i), x);
                break;
            case 1:
                c.PlaceIn(new Counted(x));
                model.push_back(x);
                break;
            case 2:
                c.Release(i);
                if (i < n)
                    model[static_cast<std::size_t>(i)] = -1;
                break;
            case 3: {
                const std::unique_ptr<Counted> taken(c.TakeOff(i));
                EXPECT_EQ(taken == nullptr ? -1 : taken->Value(), i < n ? model[static_cast<std::size_t>(i)] : -1);
                if (i < n)
                    model.erase(at(i));
                break;
            }
            case 4:
                EXPECT_EQ(c.FindDataDel(Counted(x)), static_cast<long>(std::erase(model, x)));
                break;
            case 5:
                c.SortEx(true);
                std::stable_sort(model.begin(), model.end(), [](int a, int b) { return a >= 0 && (b < 0 || a < b); });
                break;
            case 6: {
                C copy(c);
                EXPECT_TRUE(copy == c);
                c = copy;
                break;
            }
            default:
                c.Del(i);
                if (i < n)
                    model.erase(at(i));
        }
        Ints values;
        for (const Counted* p : Elements(static_cast<const QcDynArrayBase<Counted*>&>(c)))
            values.push_back(p == nullptr ? -1 : p->Value());
        ASSERT_EQ(values, model);
        ASSERT_EQ(Counted::s_alive, c.GetDataNum());
    }
}

template <class C>
void PlayManyOwners() {
    for (unsigned seed = 1; seed <= 200 && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        PlayOwner<C>(seed);
    }
    EXPECT_EQ(Counted::s_alive, 0);
}

TEST(RandomOperations, OnQcDynPArray) {
    PlayManyOwners<QcDynPArray<Counted>>();
}
TEST(RandomOperations, OnQcPDList) {
    PlayManyOwners<QcPDList<Counted>>();
}
TEST(RandomOperations, OnQcPXList) {
    PlayManyOwners<QcPXList<Counted>>();
}

}  // namespace
