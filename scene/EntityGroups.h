// The groups of one entity as numbers. Nothing here depends on the locale.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/geometry/QcGePoint.h"
#include "platform/host/AcDbObjectId.h"
#include "platform/host/DxfGroup.h"

class AcDbDatabase;

// Coordinates and lengths up to this keep all that is computed from them finite.
inline constexpr double kFarthest = 1e50;

// The whole text as a number, blanks at both ends aside. False, and `value` untouched, for what is none, and for a
// real number that is not finite or beyond kFarthest.
bool ReadInteger(std::string_view text, int& value);
bool ReadReal(std::string_view text, double& value);

class EntityGroups {
public:
    explicit EntityGroups(std::vector<DxfGroup> groups) : m_groups(std::move(groups)) {}

    const std::vector<DxfGroup>& All() const { return m_groups; }
    // The type (group 0) without blanks.
    std::string_view Type() const;
    // The name of its layer as it stands in the file; without one it lies on 0.
    std::string_view Layer() const;
    // Whether it is neither invisible by itself nor in paper space.
    bool IsInModel() const;
    // The first group with a code; null when there is none.
    const DxfGroup* Find(int code) const;

    // The first group with the code as a number. When there is none, `value` stays and the answer is true; false when
    // there is one that cannot be read.
    bool Integer(int code, int& value) const;
    bool Real(int code, double& value) const;
    // The same as a plain number, `otherwise` where there is none or it cannot be read.
    int IntegerOr(int code, int otherwise) const;
    // The point of the codes 10, 20 and 30 (for `code` 10). x and y must be there; without z it is 0.
    bool Point(int code, QcGePoint& point) const;

private:
    std::vector<DxfGroup> m_groups;
};

// The groups of an object out of the drawing's own lists.
EntityGroups GroupsOf(const AcDbDatabase& drawing, AcDbObjectId id);
