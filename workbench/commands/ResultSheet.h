// Gathers the entities that show results on a drawing, on layers of their own.
// Why: docs/decisions/workbench.md
#pragma once

#include <vector>

#include "platform/base/CString.h"
#include "platform/geometry/QcGePoint.h"
#include "platform/host/DrawingChange.h"

class AcDbDatabase;

// Each kind of result has a layer, and what puts it there empties that layer and no other.
inline constexpr const wchar_t* kResultWindows = L"ORVO_RESULT_WINDOWS";
inline constexpr const wchar_t* kResultHours = L"ORVO_RESULT_HOURS";
inline constexpr const wchar_t* kResultIsolines = L"ORVO_RESULT_ISOLINES";
inline constexpr const wchar_t* kResultLabels = L"ORVO_RESULT_LABELS";
inline constexpr const wchar_t* kResultShares = L"ORVO_RESULT_SHARES";

// Lengths are metres, points and directions in the drawing's axes; colours 1 to 255, all others
// (the table of a standard may hold any number) by layer.
class ResultSheet {
public:
    // These layers are emptied, and made where they are missing. The drawing has a unit that lengths are measured in.
    ResultSheet(const AcDbDatabase& drawing, const std::vector<const wchar_t*>& layers);

    void AddFace(const wchar_t* layer, const std::vector<QcGePoint>& corners, int color);
    // In a plane at right angles to `outward`, as the points of a text are.
    void AddLine(const wchar_t* layer, const std::vector<QcGePoint>& points, bool isClosed, const QcGePoint& outward,
                 int color);
    // One line around its middle, written along a direction or against it, so that it is not upside down.
    struct Text {
        CString text;
        QcGePoint middle;
        QcGePoint along;
        QcGePoint outward;
        double height = 0.0;
        int color = kColorByLayer;
    };
    void AddText(const wchar_t* layer, const Text& text);

    const DrawingChange& Change() const { return m_change; }

private:
    NewEntity& Add(NewEntity::Kind kind, const wchar_t* layer, int color);
    QcGePoint InUnits(const QcGePoint& metres) const;

    double m_unitsPerMetre;
    DrawingChange m_change;
};
