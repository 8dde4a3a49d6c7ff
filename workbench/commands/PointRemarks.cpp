// Remarks on areas and their points as messages.
#include "workbench/commands/PointRemarks.h"

#include <map>

#include "analysis/DrawnAreas.h"
#include "analysis/WindowAnalysis.h"
#include "facts/NearestNames.h"
#include "platform/base/PlainText.h"
#include "platform/base/TextNumber.h"
#include "workbench/Texts.h"
#include "workbench/commands/AnalysisRemarks.h"
#include "workbench/commands/AnalysisWords.h"
#include "workbench/commands/RepeatedMessages.h"

namespace {

using Kind = AreaRemark::Kind;

// What is wrong with one outline, and with how many others; both take texts.
struct Words {
    Kind kind;
    const wchar_t* one;
    const wchar_t* others;
};
constexpr Words kOfOutlines[] = {
    {Kind::NotAnOutline,
     L"实体 %s 在轮廓图层上，但不是轮廓（闭合的多段线、圆、三维面、SOLID 或 TRACE）或读不出来，没有点",
     L"另有 %d 个实体不是轮廓：%s"},
    {Kind::Open, L"轮廓 %s 不闭合，没有点；请在制图程序里闭合", L"另有 %d 个轮廓不闭合：%s"},
    {Kind::Empty, L"轮廓 %s 没有面积（给出 --level 时是平面投影的面积），没有点", L"另有 %d 个轮廓没有面积：%s"},
    {Kind::NotFlat, L"轮廓 %s 的角点不在一个平面上，没有点；请改平，或用 --level 给出标高",
     L"另有 %d 个轮廓不在一个平面上：%s"},
    {Kind::Crossed, L"轮廓 %s 与自己相交，没有点；请在制图程序里改成不相交的轮廓", L"另有 %d 个轮廓与自己相交：%s"},
    {Kind::TooManyCorners, L"轮廓 %s 的角点太多（超过 4096 个），没有点；请简化或分成几个",
     L"另有 %d 个轮廓的角点太多：%s"},
    {Kind::TooManyInBlock, L"块参照 %s 的轮廓太多，都没有点；请简化它的块", L"另有 %d 个块参照的轮廓太多：%s"},
    {Kind::NoSide, L"竖直的轮廓 %s 分不清哪一侧是室外，没有点；可用 --facing 给出朝向",
     L"另有 %d 个竖直的轮廓分不清哪一侧是室外：%s"},
    {Kind::TooManyIsolines, L"轮廓 %s 的等时线太多太密，没有画出来；请用 --spacing 给出更大的点距",
     L"另有 %d 个轮廓的等时线太多：%s"},
};

CString LayersText(const PointRequest& request) {
    std::vector<CString> names;
    for (const CString& layer : request.areaLayers)
        names.push_back(Printable(layer));
    return JoinNames(names);
}

CString TextOf(const AreaRemark& remark, const PointRequest& request) {
    switch (remark.kind) {
        case Kind::NoAreas:
            return SayFormat(L"图层 %s 上没有可以分析的轮廓：画闭合的多段线、圆或三维面，或用 --areas 给出别的图层",
                             LayersText(request));
        case Kind::LayerMissing:
            return SayFormat(L"图形中没有图层“%s”（--areas）", Printable(remark.subject));
        case Kind::LayerInvisible:
            return SayFormat(L"轮廓图层“%s”关闭或冻结，其上的 %s 个实体没有分析；请先打开图层",
                             Printable(remark.subject), CountText(remark.count));
        case Kind::PointsInside:
            return SayFormat(L"轮廓 %s 有 %s 个点在闭合的体内，没有日照", HandleOrNone(remark.handle),
                             CountText(remark.count));
        default:
            break;
    }
    return CString();
}

// The remarks on the drawing that speak of windows, in other words.
CString SceneText(const AnalysisRemark& remark) {
    if (remark.kind != AnalysisRemark::Kind::NoFaces)
        return RemarkText(remark, AnalysisRequest());
    if (remark.subject.IsEmpty())
        return Say(L"图形中没有投影子的面：所有的点都没有遮挡");
    if (remark.count == 0)
        return SayFormat(L"图形中没有投影子的面：所有的点都没有遮挡。图形中有 %s：都没有高度",
                         Printable(remark.subject));
    return SayFormat(
        L"图形中没有投影子的面：所有的点都没有遮挡。图形中有 %s：都没有高度；其中 %s 个是闭合的轮廓：用 --height "
        L"给出它们的图层的高度",
        Printable(remark.subject), CountText(remark.count));
}

CString PointCountText(double count) {
    constexpr double kMostDigits = 1e15;
    CString text;
    text.Format(count < kMostDigits ? L"%.0f" : L"%.2e", count);
    return text;
}

}  // namespace

std::vector<CString> MessagesOf(const PointRequest& request, const PointAnswer& answer) {
    std::vector<CString> messages;
    RepeatedMessages tooLarge;
    for (const AnalysisRemark& remark : answer.remarks)
        if (remark.kind == AnalysisRemark::Kind::TooLarge)
            tooLarge.Add(remark.handle, SceneText(remark));
        else
            messages.push_back(SceneText(remark));
    tooLarge.Take(messages, L"另有 %d 个块参照的面太多：%s");
    for (const Words& words : kOfOutlines) {
        RepeatedMessages repeated;
        for (const AreaRemark& remark : answer.areaRemarks)
            if (remark.kind == words.kind)
                repeated.Add(remark.handle, SayFormat(words.one, HandleOrNone(remark.handle)));
        repeated.Take(messages, words.others);
    }
    RepeatedMessages inside;
    for (const AreaRemark& remark : answer.areaRemarks)
        if (remark.kind == Kind::PointsInside)
            inside.Add(remark.handle, TextOf(remark, request));
    inside.Take(messages, L"另有 %d 个轮廓有点在闭合的体内：%s");
    for (const AreaRemark& remark : answer.areaRemarks)
        if (remark.kind == Kind::NoAreas || remark.kind == Kind::LayerMissing || remark.kind == Kind::LayerInvisible)
            messages.push_back(TextOf(remark, request));
    return messages;
}

CString PointFailureText(const PointRequest& request, const PointAnswer& answer) {
    if (answer.failure != AnalysisFailure::TooManyPoints)
        return FailureText(request, answer);
    return SayFormat(L"点距 %s 米时约有 %s 个点，超过 %s 个，没有分析；请用 --spacing 给出更大的点距",
                     DoubleToText(request.spacing), PointCountText(answer.pointCount), CountText(kMostPoints));
}
