// Remarks, notes and failures as messages.
#include "workbench/commands/AnalysisRemarks.h"

#include <algorithm>
#include <iterator>

#include "analysis/DrawnWindows.h"
#include "facts/NearestNames.h"
#include "platform/base/PlainText.h"
#include "platform/base/TextNumber.h"
#include "scene/Scene.h"
#include "workbench/Texts.h"
#include "workbench/commands/AnalysisWords.h"
#include "workbench/commands/RepeatedMessages.h"

namespace {

using Kind = AnalysisRemark::Kind;

CString Count(const AnalysisRemark& remark) {
    return CountText(remark.count);
}

CString NoFacesText(const AnalysisRemark& remark) {
    if (remark.subject.IsEmpty())
        return Say(L"图形中没有投影子的面：所有的窗都没有遮挡");
    if (remark.count == 0)
        return SayFormat(L"图形中没有投影子的面：所有的窗都没有遮挡。图形中有 %s：都没有高度",
                         Printable(remark.subject));
    return SayFormat(
        L"图形中没有投影子的面：所有的窗都没有遮挡。图形中有 %s：都没有高度；"
        L"其中 %s 个是闭合的轮廓：用 --height 给出它们的图层的高度",
        Printable(remark.subject), Count(remark));
}

CString NothingToRaiseText(const AnalysisRemark& remark) {
    const CString layer = Printable(remark.subject);
    if (remark.count == 0)
        return SayFormat(L"图层“%s”上没有可见、闭合而没有厚度的轮廓，--height 没有用上", layer);
    return SayFormat(
        L"图层“%s”上没有可见、闭合而没有厚度的轮廓，--height 没有用上；其上有 %s 个不闭合：请在制图程序里闭合", layer,
        Count(remark));
}

// What is wrong with the layers of a project.
CString ProjectText(const AnalysisRemark& remark) {
    const CString layer = Printable(remark.subject);
    switch (remark.kind) {
        case Kind::ProposedMissing:
            return SayFormat(L"图形中没有图层“%s”（--proposed）：请查看图层的名字", layer);
        case Kind::ProposedInvisible:
            return SayFormat(L"方案图层“%s”关闭或冻结，其上的实体没有计入；请先打开图层", layer);
        case Kind::ProposedEmpty:
            return SayFormat(
                L"方案图层“%s”上没有投影子的面：它不改变日照；请查看 --proposed 的图层，平面轮廓用 "
                L"--height 给出高度",
                layer);
        case Kind::ProposedIsWindows:
            return SayFormat(L"图层“%s”是窗的图层，又是方案的图层（--proposed）：窗不投影子；请把方案画在另一个图层",
                             layer);
        case Kind::AllProposed:
            return SayFormat(L"所有的窗（%s 个）都在方案上：没有方案前后可以比较；请查看 --proposed 的图层",
                             Count(remark));
        default:
            return CString();
    }
}

// What is wrong with single windows, and with all of them together.
CString WindowsText(const AnalysisRemark& remark) {
    switch (remark.kind) {
        case Kind::NotAWindow:
            if (!remark.subject.IsEmpty())
                return SayFormat(
                    L"块参照 %s（块“%s”）：窗图层上有 %s "
                    L"个实体（或块参照本身）不是或不全是竖直的矩形或水平的直线：其余没有"
                    L"当作窗，也不投影子",
                    HandleOrNone(remark.handle), Printable(remark.subject), Count(remark));
            return SayFormat(L"窗图层上的实体 %s 不是或不全是竖直的矩形或水平的直线：其余没有当作窗，也不投影子",
                             HandleOrNone(remark.handle));
        case Kind::LinesWithoutHeight:
            return SayFormat(
                L"窗图层上有 %s 条直线没有厚度，不知道窗高，没有当作窗；用 --window-height 给出，例如 --window-height "
                L"1.5",
                Count(remark));
        case Kind::NothingRepeated:
            return Say(L"--storeys 没有窗可以重复：只重复画成直线的窗");
        case Kind::TinyWindows:
            return SayFormat(L"所有的窗都不大于 %s 毫米：图形的单位可能不对；请在制图程序里更正",
                             DoubleToText(remark.amount));
        case Kind::LinesInRows:
            return SayFormat(
                L"有 %s 个画成直线的窗紧挨着另一条平行的窗线（相距不到半米，例如 %s）：每条线都当作一个窗；"
                L"请只把外墙面上的一条留在窗图层",
                Count(remark), HandleOrNone(remark.handle));
        case Kind::SameNames:
            return SayFormat(
                L"有 %s 个窗与别的窗同名（例如“%s”），它们的户和楼合在一起统计；请给它们各自的名称，例如在前面加楼号",
                Count(remark), Printable(remark.subject));
        default:
            return CString();
    }
}

// What casts no shadow, or stands in blocks that are too large.
CString SceneText(const AnalysisRemark& remark) {
    switch (remark.kind) {
        case Kind::Faulty:
            return SayFormat(L"图形中有 %s 个实体读不出来，没有计入遮挡：%s；请在制图程序里检查它们和它们的块",
                             Count(remark), Printable(remark.subject));
        case Kind::WithoutFaces:
            return SayFormat(L"图形中有 %s 个不能读的体（%s），没有计入遮挡；请在制图程序里改成网格或三维面",
                             Count(remark), Printable(remark.subject));
        case Kind::TooLarge:
            return SayFormat(L"块参照 %s 的面太多（图形一共超过 %s 个面），没有计入遮挡；请简化它的块",
                             HandleOrNone(remark.handle), CountText(kMostSceneFaces));
        case Kind::External:
            return SayFormat(
                L"块参照 %s "
                L"是或含有外部参照“%s”：它的内容不在图形里，没有计入遮挡，其中的窗也没有分析；请在制图程序里绑定",
                HandleOrNone(remark.handle), Printable(remark.subject));
        case Kind::TooManyInBlock:
            return SayFormat(L"块参照 %s 的窗太多（图形一共超过 %s 个窗），它的窗都没有分析；请简化它的块",
                             HandleOrNone(remark.handle), Count(remark));
        default:
            return CString();
    }
}

// What to say of the further windows with a note.
const wchar_t* FurtherText(WindowNote note) {
    switch (note) {
        case WindowNote::Cut:
            return L"另有 %d 个窗有面穿过：%s";
        case WindowNote::Inside:
            return L"另有 %d 个窗在闭合的体内：%s";
        case WindowNote::NoSide:
            return L"另有 %d 个窗分不清哪一侧是室外：%s";
        case WindowNote::Narrower:
            return L"另有 %d 个窗比标准的最小窗宽窄：%s";
    }
    return L"";
}

void AddNotes(const AnalysisAnswer& answer, std::vector<CString>& messages) {
    for (const WindowNote note : {WindowNote::Cut, WindowNote::Inside, WindowNote::NoSide, WindowNote::Narrower}) {
        RepeatedMessages repeated;
        for (const WindowResult& window : answer.windows)
            if (std::find(window.notes.begin(), window.notes.end(), note) != window.notes.end())
                repeated.Add(window.handle, SayFormat(L"窗 %s：%s", WindowLabel(window), NoteWord(note)));
        repeated.Take(messages, FurtherText(note));
    }
}

}  // namespace

CString RemarkText(const AnalysisRemark& remark, const AnalysisRequest& request) {
    switch (remark.kind) {
        case Kind::NoWindows:
            return SayFormat(
                L"没有窗可以分析：窗是图层 %s 上竖直的矩形（三维面或闭合的多段线）或平面图里的直线；用 --windows "
                L"给出图层",
                WindowLayersText(request));
        case Kind::NoFaces:
            return NoFacesText(remark);
        case Kind::NoLayerToRaise:
            return SayFormat(L"图形中没有图层“%s”（--height）", Printable(remark.subject));
        case Kind::NothingToRaise:
            return NothingToRaiseText(remark);
        case Kind::LayerMissing:
            return SayFormat(L"图形中没有图层“%s”（--windows）", Printable(remark.subject));
        case Kind::LayerInvisible:
            return SayFormat(L"窗图层“%s”关闭或冻结，其上的 %s 个实体没有分析；请先打开图层", Printable(remark.subject),
                             Count(remark));
        case Kind::NotAWindow:
        case Kind::LinesWithoutHeight:
        case Kind::NothingRepeated:
        case Kind::TinyWindows:
        case Kind::LinesInRows:
        case Kind::SameNames:
            return WindowsText(remark);
        case Kind::ProposedMissing:
        case Kind::ProposedInvisible:
        case Kind::ProposedEmpty:
        case Kind::ProposedIsWindows:
        case Kind::AllProposed:
            return ProjectText(remark);
        case Kind::Faulty:
        case Kind::WithoutFaces:
        case Kind::TooLarge:
        case Kind::External:
        case Kind::TooManyInBlock:
            return SceneText(remark);
        case Kind::SpanUnusable:
            return Say(L"分析时段不是一天之内的时段（结束不晚于开始）：没有计入任何日照；用 orvo set 或另一个标准更改");
        case Kind::StepUnusable:
            return Say(L"标准的计算精度不大于 0：没有计入任何日照；用 orvo set --step 更改");
        case Kind::SunBelowHorizon:
            return remark.amount > 0.0 ? SayFormat(L"分析时段内太阳高度角不到 %s 度", DoubleToText(remark.amount))
                                       : Say(L"分析时段内太阳不升起");
        case Kind::SunNeverSets:
            return Say(L"当地这一天太阳不落");
        case Kind::LeftOutByScope:
            return LeftOutByScopeText(remark.count);
        case Kind::LeftOutByAltitude:
            return LeftOutByAltitudeText(remark.amount);
    }
    return CString();
}

CString LeftOutByScopeText(std::size_t entities) {
    return SayFormat(L"按范围和高度的参数，%s 个实体没有计入对某些窗的遮挡（--scope）。", CountText(entities));
}

CString LeftOutByAltitudeText(double degrees) {
    return SayFormat(L"太阳高度角低于 %s 度的时间没有计入。", DoubleToText(degrees));
}

CString WindowLayersText(const AnalysisRequest& request) {
    std::vector<CString> names;
    for (const CString& layer : request.windowLayers)
        names.push_back(Printable(layer));
    if (names.empty())
        names.assign(std::begin(kUsualWindowLayers), std::end(kUsualWindowLayers));
    return JoinNames(names);
}

std::vector<CString> MessagesOf(const AnalysisRequest& request, const AnalysisAnswer& answer) {
    std::vector<CString> messages;
    RepeatedMessages noWindows;
    RepeatedMessages tooLarge;
    RepeatedMessages tooMany;
    RepeatedMessages external;
    for (const AnalysisRemark& remark : answer.remarks)
        if (remark.kind == Kind::NotAWindow)
            noWindows.Add(remark.handle, RemarkText(remark, request));
        else if (remark.kind == Kind::TooLarge)
            tooLarge.Add(remark.handle, RemarkText(remark, request));
        else if (remark.kind == Kind::TooManyInBlock)
            tooMany.Add(remark.handle, RemarkText(remark, request));
        else if (remark.kind == Kind::External)
            external.Add(remark.handle, RemarkText(remark, request));
        else
            messages.push_back(RemarkText(remark, request));
    tooLarge.Take(messages, L"另有 %d 个块参照的面太多：%s");
    tooMany.Take(messages, L"另有 %d 个块参照的窗太多：%s");
    external.Take(messages, L"另有 %d 个块参照是或含有外部参照：%s");
    noWindows.Take(messages, L"窗图层上另有 %d 个实体不是或不全是窗：%s");
    AddNotes(answer, messages);
    return messages;
}

CString FailureText(const DayRequest& request, const DayAnswer& answer) {
    switch (answer.failure) {
        case AnalysisFailure::None:
        case AnalysisFailure::TooManyPoints:  // whoever asks for points tells how many
            break;
        case AnalysisFailure::NoPlace:
            return SayFormat(L"没有地区“%s”的位置，不能分析；用 --place 给出另一个地区",
                             Printable(request.settings.placeName));
        case AnalysisFailure::NoStandard:
            return Say(L"设置没有选定标准，不能分析；用 --standard 给出一个，orvo standards 列出它们");
        case AnalysisFailure::TooManyWindows:
            return SayFormat(L"窗太多（超过 %s 个，包括 --storeys 重复的），没有分析；请减少层数，或把图形分成几个",
                             CountText(kMostWindows));
        case AnalysisFailure::UnknownUnit:
            return SayFormat(L"图形的单位“%s”不能换算成米，不能分析；请在制图程序里改用米或毫米",
                             Printable(answer.unit));
        case AnalysisFailure::Cancelled:
            return Say(L"已取消，没有分析");
    }
    return CString();
}
