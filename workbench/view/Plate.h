// A light plate with lines of text, as it stands in a corner of a film's pictures and of saved views.
#pragma once

#include <QFont>
#include <QFontMetrics>
#include <QRect>
#include <QString>
#include <limits>
#include <vector>

class QPainter;

// A colour and what it means, or a line without a colour.
struct PlateRow {
    int rgb = -1;  // 0xRRGGBB; none for a line without one
    QString text;
    bool isMark = false;  // between two colours: a limit, with a stroke in the colours' column
};

// Its rows stand in one column or more.
class Plate {
public:
    // Letters are so many pixels high, and everything else goes by that.
    explicit Plate(int textHeight);

    void Add(PlateRow row) { m_rows.push_back(std::move(row)); }
    int Height() const;
    int Width() const;
    // Further rows go into further columns, so that it is no higher than this if a row fits into it.
    void MakeNoHigherThan(int height);
    // No wider than `most`: longer texts end in dots.
    void Draw(QPainter& painter, int x, int y, int most) const;

private:
    int Line() const { return m_height * 14 / 10; }
    int Margin() const { return m_height * 6 / 10; }
    int Indent(const PlateRow& row) const { return row.rgb >= 0 || row.isMark ? m_height * 2 : 0; }
    int Gap() const { return m_height; }
    std::size_t Step() const { return static_cast<std::size_t>(m_most); }
    std::size_t EndOfColumn(std::size_t first) const;
    int ColumnWidth(std::size_t first) const;
    void DrawRow(QPainter& painter, const PlateRow& row, const QRect& room) const;

    int m_height;
    int m_most = std::numeric_limits<int>::max();  // rows in a column
    QFont m_font;
    QFontMetrics m_metrics;
    std::vector<PlateRow> m_rows;
};
