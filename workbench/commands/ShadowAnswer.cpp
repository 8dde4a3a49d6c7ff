// The answer of orvo shadow as lines and as a document.
#include "workbench/commands/ShadowAnswer.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <initializer_list>
#include <iterator>
#include <limits>
#include <nlohmann/json.hpp>

#include "geometry/SideTolerance.h"
#include "platform/base/TextNumber.h"
#include "platform/host/Output.h"
#include "workbench/Texts.h"
#include "workbench/terminal/JsonOutput.h"
#include "workbench/terminal/TextTable.h"

namespace {

using Json = nlohmann::ordered_json;
using Align = TextTable::Align;

// The number with the fewest digits that reads back to this one, as a double: 0.1 and not 0.10000000149011612.
double FewestDigits(float value) {
    if (!std::isfinite(value))
        return value;
    char text[40];
    const auto written = std::to_chars(text, text + sizeof text, value);
    double digits = 0.0;
    std::from_chars(text, written.ptr, digits);
    return digits;
}

// Zero without a sign, which would only puzzle.
double Unsigned0(double value) {
    return value == 0.0 ? 0.0 : value;
}

CString NumberText(double value) {
    return std::isfinite(value) ? DoubleToText(Unsigned0(value)) : Say(L"非有限数");
}

CString TripleText(double x, double y, double z) {
    return L"(" + NumberText(x) + L", " + NumberText(y) + L", " + NumberText(z) + L")";
}

CString TripleText(const QcGePoint& point) {
    return TripleText(point.x, point.y, point.z);
}

LightSide SideOf(const PlaneEquation& plane, const QcGeVector3dEX& light) {
    // Scaled, so that no light is too long or too short for the cosine.
    const double scale = std::max({std::fabs(light.x), std::fabs(light.y), std::fabs(light.z)});
    const QcGeVector3dEX way(light.x / scale, light.y / scale, light.z / scale);
    const double cosine = (plane.a * way.x + plane.b * way.y + plane.c * way.z) / way.Length();
    if (std::fabs(cosine) <= kSideTolerance)
        return LightSide::Along;
    return cosine < 0.0 ? LightSide::Front : LightSide::Back;
}

ShadowAnswer::Matrix MatrixOf(QcGeFace3dEX& face, const QcGeVector3dEX& light) {
    float columns[4][4] = {};
    face.CreateShadowMatrix(columns, light, true);
    ShadowAnswer::Matrix matrix = {};
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column)
            matrix.rows[row][column] = FewestDigits(columns[column][row]);
    return matrix;
}

bool IsFinite(const ShadowAnswer::Matrix& matrix) {
    return std::all_of(std::begin(matrix.rows), std::end(matrix.rows), [](const double(&row)[4]) {
        return std::all_of(std::begin(row), std::end(row), [](double cell) { return std::isfinite(cell); });
    });
}

CString FrontText(const ShadowAnswer& answer) {
    if (answer.isLit)
        return Say(L"受光");
    switch (answer.side) {
        case LightSide::Back:
            return Say(L"不受光：光线从背面照来");
        case LightSide::Along:
            return Say(L"不受光：光线与面平行");
        case LightSide::Front:
            break;
    }
    return Say(L"不受光：方向向量太短，而程序库不把它化为单位长度（法向与它的点积须小于 -1e-12）");
}

void PrintNotes(const ShadowAnswer& answer, Output& output) {
    if (answer.source == PlaneSource::Substitute)
        output.Line(Say(L"注意：有角点重合（相距不到 1e-6），算不出法向，程序库以 (0, 0, 1) 代替。"));
    if (answer.source == PlaneSource::WithoutSecond)
        output.Line(Say(L"注意：第 2 个角点与第 1 个重合，平面由第 1、4、3 个角点确定，法向也按这个次序。"));
    if (answer.offPlane > 0.0)
        output.Line(SayFormat(L"注意：四个角点不共面，平面是前三个角点的平面，第 4 个角点离它 %s。",
                              NumberText(answer.offPlane)));
}

void PrintMatrix(const ShadowAnswer& answer, Output& output) {
    output.Line(L"");
    if (!answer.matrix) {
        output.Line(Say(L"投影矩阵：没有，光线与面平行，沿它投不到面的平面上。"));
        return;
    }
    output.Line(Say(L"投影矩阵（乘列向量 (x, y, z, 1)）"));
    TextTable table({Align::Right, Align::Right, Align::Right, Align::Right});
    for (const auto& row : answer.matrix->rows)
        table.Add({NumberText(row[0]), NumberText(row[1]), NumberText(row[2]), NumberText(row[3])});
    table.PrintTo(output, 2);
    output.Line(Say(L"P' = P - L (ax + by + cz + d) / (L·n)，P 为点 (x, y, z)，L 为光线方向，n 为法向。"));
    output.Line(Say(L"CreateShadowMatrix 在内存中按列存放（m[列][行]，OpenGL 的次序），与这里的行列互为转置。"));
    if (!IsFinite(*answer.matrix))
        output.Line(Say(L"注意：矩阵中有的数超出运算的范围，不是有限数。"));
}

Json NumbersAsJson(std::initializer_list<double> numbers) {
    Json list = Json::array();
    for (const double number : numbers)
        list.push_back(Unsigned0(number));
    return list;
}

}  // namespace

ShadowAnswer::ShadowAnswer(const QcGeFace3dEX& givenFace, const QcGeVector3dEX& givenLight)
    : face(givenFace),
      light(givenLight),
      source(SourceOfPlane(face)),
      plane(),
      offPlane(0.0),
      side(LightSide::Along),
      isLit(false) {
    constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
    plane = {kNone, kNone, kNone, kNone};
    if (HasPlane())
        AskTheFace();
}

void ShadowAnswer::AskTheFace() {
    plane = face.GetPlaneEquation();
    if (source == PlaneSource::FirstThree)
        offPlane = FourthCornerOffPlane(face);
    side = SideOf(plane, light);
    isLit = face.IsSunLightOn(light, true);
    if (side != LightSide::Along)
        matrix = MatrixOf(face, light);
}

CString ShadowAnswer::WhyNoPlane() const {
    if (source == PlaneSource::TooLarge)
        return Say(L"这个面没有平面：坐标太大，算出的法向不是有限数");
    if (AreCornersInLine(face))
        return Say(L"这个面没有平面：角点都在一条直线上，法向不是有限数");
    return Say(L"这个面没有平面：确定平面的前三个角点在一条直线上，法向不是有限数；请换一个角点开头");
}

void ShadowAnswer::PrintAsText(Output& output) const {
    TextTable table({Align::Left, Align::Left});
    table.Add({Say(L"面"), face.IsTriangle() ? Say(L"三角形，3 个角点") : Say(L"四边形，4 个角点")});
    for (int i = 0; i < face.GetCornerCount(); ++i)
        table.Add({SayFormat(L"角点 %d", i + 1), TripleText(face.m_pt[i])});
    table.Add({Say(L"单位法向"), TripleText(plane.a, plane.b, plane.c)});
    table.Add({Say(L"平面方程"), Say(L"ax + by + cz + d = 0，其中")});
    const double numbers[] = {plane.a, plane.b, plane.c, plane.d};
    for (int i = 0; i < 4; ++i)
        table.Add({L"", CString(L"abcd").Mid(i, 1) + L" = " + NumberText(numbers[i])});
    table.Add({Say(L"光线方向"), TripleText(light)});
    table.Add({Say(L"正面"), FrontText(*this)});
    table.PrintTo(output);
    PrintNotes(*this, output);
    PrintMatrix(*this, output);
}

void ShadowAnswer::PrintAsJson(Output& output) const {
    Json document;
    document["corners"] = Json::array();
    for (int i = 0; i < face.GetCornerCount(); ++i)
        document["corners"].push_back(NumbersAsJson({face.m_pt[i].x, face.m_pt[i].y, face.m_pt[i].z}));
    document["normal"] = NumbersAsJson({plane.a, plane.b, plane.c});
    document["plane"] = NumbersAsJson({plane.a, plane.b, plane.c, plane.d});
    document["lit"] = isLit;
    document["shadowMatrix"] = nullptr;
    if (matrix) {
        document["shadowMatrix"] = Json::array();
        for (const auto& row : matrix->rows)
            document["shadowMatrix"].push_back(NumbersAsJson({row[0], row[1], row[2], row[3]}));
    }
    PrintJson(output, document);
}
