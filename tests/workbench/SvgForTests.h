// Reads pictures back: elements with what surrounds them, and paths as points.
#pragma once

#include <gtest/gtest.h>

#include <QByteArray>
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

struct SvgElement {
    QString name;
    QXmlStreamAttributes own;
    QString classes;  // its own, and those of all around it, each between blanks
    QString text;

    bool Is(const char* className) const { return classes.contains(QString(" ") + className + ' '); }
    QString Get(const char* attribute) const { return own.value(QLatin1String(attribute)).toString(); }
    double Number(const char* attribute) const { return Get(attribute).toDouble(); }
};

// In the order of the text. A picture that is no XML fails the test.
inline std::vector<SvgElement> ReadSvg(const std::string& svg) {
    std::vector<SvgElement> elements;
    std::vector<std::size_t> open;
    QXmlStreamReader reader(QByteArray::fromStdString(svg));
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement()) {
            SvgElement element{reader.name().toString(), reader.attributes(), " ", {}};
            if (!open.empty())
                element.classes = elements[open.back()].classes;
            element.classes += element.Get("class") + ' ';
            open.push_back(elements.size());
            elements.push_back(element);
        } else if (reader.isEndElement()) {
            open.pop_back();
        } else if (reader.isCharacters() && !open.empty()) {
            elements[open.back()].text += reader.text();
        }
    }
    EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
    return elements;
}

inline std::vector<SvgElement> Pick(const std::vector<SvgElement>& all, const QString& name, const char* className) {
    std::vector<SvgElement> picked;
    for (const SvgElement& each : all)
        if (each.name == name && each.Is(className))
            picked.push_back(each);
    return picked;
}

struct SvgPoint {
    double x = 0.0;
    double y = 0.0;
};
using SvgLine = std::vector<SvgPoint>;

// The lines of a path of M, l, h, v and z.
inline std::vector<SvgLine> LinesOf(const QString& path) {
    static const QRegularExpression kCommands("([MlhvzLHV])([^MlhvzLHV]*)");
    static const QRegularExpression kNumbers("-?[0-9.]+");
    std::vector<SvgLine> lines;
    QRegularExpressionMatchIterator commands = kCommands.globalMatch(path);
    while (commands.hasNext()) {
        const QRegularExpressionMatch command = commands.next();
        std::vector<double> numbers;
        QRegularExpressionMatchIterator each = kNumbers.globalMatch(command.captured(2));
        while (each.hasNext())
            numbers.push_back(each.next().captured().toDouble());
        const QString kind = command.captured(1);
        if (kind == "z")
            continue;
        if (kind == "M")
            lines.emplace_back();
        const SvgPoint at = kind == "M" ? SvgPoint() : lines.back().back();
        const std::size_t count = kind == "M" || kind == "l" ? 2 : 1;
        EXPECT_EQ(numbers.size(), count) << path.toStdString();
        if (numbers.size() != count)
            return {};
        lines.back().push_back(kind == "h"   ? SvgPoint{at.x + numbers[0], at.y}
                               : kind == "v" ? SvgPoint{at.x, at.y + numbers[0]}
                                             : SvgPoint{at.x + numbers[0], at.y + numbers[1]});
    }
    return lines;
}

// By the rule "nonzero".
inline bool IsInside(const std::vector<SvgLine>& loops, SvgPoint point) {
    int winding = 0;
    for (const SvgLine& loop : loops)
        for (std::size_t i = 0; i < loop.size(); ++i) {
            const SvgPoint a = loop[i], b = loop[(i + 1) % loop.size()];
            if ((a.y <= point.y) == (b.y <= point.y))
                continue;
            if (a.x + (b.x - a.x) * (point.y - a.y) / (b.y - a.y) > point.x)
                winding += a.y < b.y ? 1 : -1;
        }
    return winding != 0;
}
