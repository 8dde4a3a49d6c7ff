// The name of an object in an open drawing.
#pragma once

#include <cstdint>

// A value that stands for one object of one open drawing. An id is given once in a process: after the drawing has been
// closed, or read anew, its ids name nothing. The null id (the default) names nothing either.
class AcDbObjectId {
public:
    constexpr AcDbObjectId() = default;

    // Whether it names nothing by itself; an id that is not null may name nothing, too.
    constexpr bool isNull() const { return m_value == 0; }

    // The id as a number, and an id from such a number. The order of ids has no meaning; it only makes them keys.
    constexpr std::uint64_t asOldId() const { return m_value; }
    static constexpr AcDbObjectId FromOldId(std::uint64_t value) {
        AcDbObjectId id;
        id.m_value = value;
        return id;
    }

    // By the numbers.
    constexpr bool operator==(const AcDbObjectId& other) const { return m_value == other.m_value; }
    constexpr bool operator!=(const AcDbObjectId& other) const { return m_value != other.m_value; }
    constexpr bool operator<(const AcDbObjectId& other) const { return m_value < other.m_value; }

private:
    std::uint64_t m_value = 0;
};
