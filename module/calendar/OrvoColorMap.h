// One row of the table that gives durations of sunlight their colours.
#pragma once

#include "platform/base/Api.h"

class QcDtDictItem;

// From m_dValue hours upward the colour is m_nColor. Rows compare by value alone; one that is not a number differs from
// everything, itself included.
class ORVO_API OrvoColorMap {
public:
    // Colour 0 from 0 hours on.
    OrvoColorMap() = default;
    // From that many hours on that colour; nothing is checked.
    OrvoColorMap(double value, int color) : m_dValue(value), m_nColor(color) {}

    // By value alone.
    bool operator<(const OrvoColorMap& other) const { return m_dValue < other.m_dValue; }
    bool operator>(const OrvoColorMap& other) const { return m_dValue > other.m_dValue; }
    bool operator==(const OrvoColorMap& other) const { return m_dValue == other.m_dValue; }
    bool operator!=(const OrvoColorMap& other) const { return !(*this == other); }

    // To and from an item whose attribute "type" is "colormap" (in any case of letters): its double value and its
    // integer attribute "name". Nothing happens for null and for other items. Both give false always, so the result
    // tells nothing.
    bool SaveToXml(QcDtDictItem* item) const;
    bool ReadFromXml(QcDtDictItem* item);

    double m_dValue = 0.0;  // lower bound, hours of sunlight
    int m_nColor = 0;       // colour index of the host
};
