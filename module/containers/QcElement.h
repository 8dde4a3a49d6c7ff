// What the containers ask of an element type, in one place. A type needs a default constructor and an assignment from a
// const reference; comparing is asked for only where the type can compare.
#pragma once

#include <memory>
#include <new>
#include <type_traits>
#include <utility>

template <class T>
class QcElement {
public:
    // What T can do: compare with ==, also with one that forgot its const, and order by < or >.
    static constexpr bool kHasEqual = requires(const T& a, const T& b) { static_cast<bool>(a == b); };
    static constexpr bool kHasLooseEqual = requires(T & a, T& b) { static_cast<bool>(a == b); };
    static constexpr bool kHasLess = requires(const T& a, const T& b) { static_cast<bool>(a < b); };
    static constexpr bool kHasGreater = requires(const T& a, const T& b) { static_cast<bool>(a > b); };
    static constexpr bool kHasOrder = kHasLess || kHasGreater;
    // Equal looks at values, not at addresses.
    static constexpr bool kComparesValues = kHasEqual || kHasLooseEqual || kHasOrder;

    // T's own ==. Of a type without one, two elements of which neither is less are equal; of a type without an order as
    // well, an element is equal only to itself, the very same object.
    static bool Equal(const T& a, const T& b) {
        if constexpr (kHasEqual)
            return static_cast<bool>(a == b);
        else if constexpr (kHasLooseEqual)  // an operator that forgot its const compares all the same
            return static_cast<bool>(const_cast<T&>(a) == const_cast<T&>(b));
        else if constexpr (kHasOrder)
            return !Less(a, b) && !Less(b, a);
        else
            return std::addressof(a) == std::addressof(b);
    }

    // T's own <, or its > read the other way round. A type without either has no order: no element is less.
    static bool Less(const T& a, const T& b) {
        if constexpr (kHasLess)
            return static_cast<bool>(a < b);
        else if constexpr (kHasGreater)
            return static_cast<bool>(b > a);
        else
            return false;
    }

    // Exchanges two elements, by moving where T can be moved, else by copies.
    static void Swap(T& a, T& b) {
        if (std::addressof(a) == std::addressof(b))
            return;
        if constexpr (std::is_move_constructible_v<T> && std::is_move_assignable_v<T>) {
            T held(std::move(a));
            a = std::move(b);
            b = std::move(held);
        } else {
            T held;
            held = a;
            a = b;
            b = held;
        }
    }

    // The element that stands in where there is none: nobody's, and fresh at each call. What is written into it is lost
    // at the next one. Made when it is first needed.
    static T& Spare() {
        static T spare{};
        std::destroy_at(std::addressof(spare));
        ::new (static_cast<void*>(std::addressof(spare))) T();
        return spare;
    }
};

// A copy of an element, also of a type that can only be assigned. It lets an operation take one of the container's own
// elements as its argument.
template <class T>
class QcElementCopy {
public:
    // Copies x, by T's copy constructor or by its assignment.
    explicit QcElementCopy(const T& x) requires(std::is_copy_constructible_v<T>) : m_data(x) {}
    explicit QcElementCopy(const T& x) requires(!std::is_copy_constructible_v<T>) : m_data() { m_data = x; }
    QcElementCopy(const QcElementCopy&) = delete;
    QcElementCopy& operator=(const QcElementCopy&) = delete;

    T m_data;  // the copy
};
