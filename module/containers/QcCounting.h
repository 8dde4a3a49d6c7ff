// Sums of counts and indexes that stay within their type, also where that is no wider than the counts themselves: long
// has 32 bits under some compilers.
#pragma once

// n and a step more, nMost at the most. All three lie between 0 and nMost.
template <class Int>
constexpr Int QcSumUpTo(Int n, Int nStep, Int nMost) {
    return n < nMost - nStep ? n + nStep : nMost;
}

// Which of n elements comes to the front when their ring turns so that the one at index from comes to stand at index
// to.
template <class Int>
constexpr Int QcFirstOfRotation(Int from, Int to, Int n) {
    return from < to ? n - (to - from) : from - to;
}

// The index from which on there are n of so many elements, as near as there is one.
template <class Int>
constexpr Int QcFirstOfLast(Int n, Int nLength) {
    return n < 0 ? nLength : n < nLength ? nLength - n : 0;
}
