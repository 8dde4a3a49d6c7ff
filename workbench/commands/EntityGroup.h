// One group of one object of a drawing, as the text that people read and write.
//
// Texts stand for themselves; numbers are decimal, angles in degrees; the coordinates of a point stand between commas,
// as many as the drawing has (x, x and y, or all three); other objects stand for themselves by their handles, 0 for
// none.
#pragma once

#include <cstdint>
#include <nlohmann/json_fwd.hpp>
#include <optional>

#include "platform/base/CString.h"
#include "platform/host/AcDbObjectId.h"

class AcDbDatabase;

class EntityGroup {
public:
    // The first group of the code; the drawing is the one that the host has open, and outlives this.
    EntityGroup(const AcDbDatabase& drawing, AcDbObjectId id, int code);

    int Code() const { return m_code; }
    // Whether the code has a type at all, so that there is something to read and write.
    bool HasType() const;
    // Whether the object has such a group.
    bool Exists() const { return m_coordinates > 0; }

    CString Text() const;
    // The same as a text, a number, a list of numbers, or (for another object) a handle or null.
    nlohmann::ordered_json Json() const;

    // Sets the value. False, with nothing changed and `wrong` saying why, when the text or the drawing does not fit.
    bool Set(const CString& text, CString& wrong) const;

private:
    CString TextValue() const;
    std::uint64_t HandleValue() const;
    // SetEntData does not say whether the drawing took a value: each of these reads it again.
    bool SetByType(const CString& text, CString& wrong) const;
    bool SetText(const CString& text, CString& wrong) const;
    bool SetReal(const CString& text, CString& wrong) const;
    bool SetPoint(const CString& text, CString& wrong) const;
    bool SetWhole(const CString& text, CString& wrong) const;
    bool SetName(const CString& text, CString& wrong) const;
    bool IsIdentity() const;

    const AcDbDatabase& m_drawing;
    AcDbObjectId m_id;
    int m_code;
    int m_type;
    int m_coordinates;  // groups that the value is made of: 0 where there is none, up to 3 for a point
};

// 1 to 16 hexadecimal digits.
std::optional<std::uint64_t> ParseHandle(const CString& text);
// A whole number with or without a sign; none for other texts and beyond 64 bits.
std::optional<std::int64_t> ParseInteger(const CString& text);
