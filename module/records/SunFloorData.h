// A floor under analysis: the key by which floors are ordered, a second number, and the word that names an object.
#pragma once

#include <cstdint>

#include "platform/base/Api.h"

// A value class. What the second number and the word say is up to the analysis that keeps the record.
//
// == and != answer different questions, and callers depend on it: of two records with one key and different second
// numbers, both are false.
class ORVO_API SunFloorData {
public:
    // All zero.
    SunFloorData() = default;
    SunFloorData(const SunFloorData& other) = default;
    SunFloorData& operator=(const SunFloorData& other) = default;

    // All three fields are the same.
    bool operator==(const SunFloorData& other) const;
    // The keys differ; nothing else counts.
    bool operator!=(const SunFloorData& other) const;
    // By the keys alone.
    bool operator<(const SunFloorData& other) const;
    bool operator>(const SunFloorData& other) const;

    std::int32_t m_nKey = 0;    // by what floors are ordered
    std::int32_t m_nValue = 0;  // the second number
    std::uint64_t m_id = 0;     // the identity of an object, or a handle
};
