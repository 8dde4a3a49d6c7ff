// Element types for the container tests: ones that can do little, ones that count their lives, and helpers that look at
// a container from outside.
#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "containers/QcDynArrayBase.h"

// No operator at all.
struct Bare {
    int m_n = 0;
};

// A default constructor and an assignment, and nothing else: not even a copy constructor.
class AssignOnly {
public:
    AssignOnly() = default;
    explicit AssignOnly(int n) : m_n(n) {}
    AssignOnly(const AssignOnly&) = delete;
    AssignOnly& operator=(const AssignOnly& other) {
        m_n = other.m_n;
        return *this;
    }
    bool operator<(const AssignOnly& other) const { return m_n / 10 < other.m_n / 10; }

    int m_n = 0;
};

// Orders by key alone; the tag shows whether equal elements kept their order.
struct Tagged {
    int m_key = 0;
    int m_tag = 0;
    bool operator<(const Tagged& other) const { return m_key < other.m_key; }
    bool operator==(const Tagged& other) const { return m_key == other.m_key && m_tag == other.m_tag; }
};

// Holds memory of its own and counts how many objects live.
class Counted {
public:
    Counted() : Counted(0) {}
    Counted(int n) : m_pn(new int(n)) { ++s_alive; }
    Counted(const Counted& other) : Counted(*other.m_pn) {}
    Counted& operator=(const Counted& other) {
        *m_pn = *other.m_pn;
        return *this;
    }
    virtual ~Counted() {
        delete m_pn;
        --s_alive;
    }
    int Value() const { return *m_pn; }
    bool operator==(const Counted& other) const { return Value() == other.Value(); }
    bool operator<(const Counted& other) const { return Value() < other.Value(); }

    static inline int s_alive = 0;

private:
    int* m_pn;
};

// A derived object, to be deleted through Counted's destructor.
class Derived : public Counted {
public:
    explicit Derived(int n) : Counted(n), m_all(static_cast<std::size_t>(n) + 1) { ++s_derived; }
    Derived(const Derived&) = delete;
    Derived& operator=(const Derived&) = delete;
    ~Derived() override { --s_derived; }

    static inline int s_derived = 0;

private:
    std::vector<int> m_all;
};

// Copies itself as what it is.
class Cloning {
public:
    explicit Cloning(int n) : m_n(n) { ++s_alive; }
    Cloning(const Cloning&) = delete;
    Cloning& operator=(const Cloning&) = delete;
    virtual ~Cloning() { --s_alive; }
    virtual Cloning* Clone() const { return new Cloning(m_n); }
    virtual int Kind() const { return 0; }

    int m_n;
    static inline int s_alive = 0;
};
class CloningMore : public Cloning {
public:
    using Cloning::Cloning;
    Cloning* Clone() const override { return new CloningMore(m_n); }
    int Kind() const override { return 1; }
};

// The elements, read forward and checked against the walk backward and against the indexes.
template <class T>
std::vector<T> Elements(const QcDynArrayBase<T>& all) {
    std::vector<T> forward;
    for (const T* p = all.GetFirst(); p != nullptr; p = all.GetNext(p)) {
        EXPECT_EQ(p, all.GetAt(static_cast<long>(forward.size())));
        forward.push_back(*p);
    }
    std::vector<T> backward;
    for (const T* p = all.GetLast(); p != nullptr; p = all.GetPre(p))
        backward.insert(backward.begin(), *p);
    EXPECT_EQ(forward, backward);
    EXPECT_EQ(static_cast<long>(forward.size()), all.GetLength());
    return forward;
}

template <class Container, class T>
void Fill(Container& to, const std::vector<T>& from) {
    for (const T& x : from)
        to.Append(x);
    to.MoveTo(-1);
}

using Ints = std::vector<int>;
