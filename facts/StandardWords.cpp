// The words for each field of a standard, and the sources of the shipped values.
#include "facts/StandardWords.h"

#include "facts/DayText.h"
#include "facts/FactsTexts.h"
#include "facts/Standard.h"
#include "platform/base/PlainText.h"
#include "platform/base/TextNumber.h"
#include "settings/OrvoStdSet.h"

namespace {

CString YesNo(int flag) {
    return flag ? FactsText(L"是") : FactsText(L"否");
}

template <std::size_t Count>
CString Choice(const wchar_t* const (&words)[Count], int value) {
    if (value >= 0 && value < static_cast<int>(Count))
        return FactsText(words[value]);
    return FactsFormat(L"未知的选择 %d", value);
}

constexpr const wchar_t* kCount[] = {L"总有效日照分析(累计)", L"最长有效连照分析(连续)"};
constexpr const wchar_t* kTimeBase[] = {L"真太阳时", L"北京时间"};
constexpr const wchar_t* kValidSun[] = {L"上海规定", L"自定义"};
constexpr const wchar_t* kTotal[] = {L"累计所有时间段", L"累计最长两个时间段", L"累计最长三个时间段"};

CString WidthWords(const Standard& standard) {
    if (!standard.fullWindow)
        return FactsText(L"不适用（只用于满窗日照分析）");
    if (!standard.limitWidth)
        return FactsText(L"不限定");
    return FactsFormat(L"限定宽度 %s～%s 毫米", DoubleToText(standard.minWidth), DoubleToText(standard.maxWidth));
}

CString SpanWords(const Standard& standard) {
    if (standard.start == 0.0 && standard.end == 0.0)
        return FactsText(L"未设定");
    return FactsFormat(L"%s～%s", OrvoDegree(standard.start).TimeFormat(false),
                       OrvoDegree(standard.end).TimeFormat(false));
}

CString ValidSunWords(const Standard& standard) {
    const CString rule = Choice(kValidSun, standard.validSunType);
    if (standard.validSunType == ORVO_SUN_SHANGHAI)
        return rule;
    return FactsFormat(L"%s，光线与墙面的水平夹角不小于 %d 度", rule, standard.minValidAngle);
}

CString AccumulateWords(const Standard& standard) {
    return FactsFormat(L"%s（%d 分钟）", YesNo(standard.allMaxContinueTime), standard.minContinueTime);
}

CString TimeColorWords(const std::vector<TimeColor>& colors) {
    CString words;
    for (const TimeColor& color : colors) {
        if (!words.IsEmpty())
            words += L" ";
        words += FactsFormat(L"≥%s小时:%d", DoubleToText(color.hours), color.color);
    }
    return words;
}

CString TypeColorWords(const std::vector<int>& colors) {
    CString words;
    for (const int color : colors) {
        if (!words.IsEmpty())
            words += L" ";
        words += IntToText(color);
    }
    return words;
}

// Name of a shipped standard, and where its values were found.
struct Source {
    const wchar_t* name;
    const wchar_t* text;
};
const wchar_t* const kNational =
    L"日期和时段按 GB 50180 的表格：1993 年版和 2002 年版与公开的文本核对过，2018 年版没有核对；5 分钟下限、1.80 "
    L"米窗宽、1 "
    L"分钟精度和真太阳时按 GB/T 50947-2014，没有与原文核对";
const wchar_t* const kBeijing =
    L"时间段下限、12 度夹角和 1 分钟精度按一份年份不详的地方计算规则，与公开的文本核对过；时段没有与原文核对";
const Source kSources[] = {
    {L"上海标准", L"各朝向的有效时段是程序内置的规定；“冬至日满窗连续日照一小时”的要求没有与原文核对"},
    {L"国标大寒日", kNational},
    {L"国标冬至日", kNational},
    {L"北京大寒日", kBeijing},
    {L"北京冬至日", kBeijing},
    {L"杭州大寒日", L"按较早的地方规定的摘要，与公开的文本核对过"},
};

}  // namespace

std::vector<Rule> RulesInWords(const Standard& standard) {
    return {
        {FactsText(L"分析日期"), Printable(DayInWords(standard.day)), Rule::Kind::Day},
        {FactsText(L"分析时段"), SpanWords(standard)},
        {FactsText(L"时间基准"), Choice(kTimeBase, standard.beijingTime)},
        {FactsText(L"计算精度"), FactsFormat(L"%s 分钟", DoubleToText(standard.step))},
        {FactsText(L"日照窗"), standard.fullWindow ? FactsText(L"满窗日照分析") : FactsText(L"窗台中点分析")},
        {FactsText(L"窗宽"), WidthWords(standard)},
        {FactsText(L"有效日照规定"), ValidSunWords(standard)},
        {FactsText(L"判断依据"), Choice(kCount, standard.maxContinue)},
        {FactsText(L"累计方式"), Choice(kTotal, standard.totalTimeType)},
        {FactsText(L"有效时间段下限"), FactsFormat(L"%d 分钟", standard.minValidTime)},
        {FactsText(L"最长连续时间段下限"), FactsFormat(L"%d 分钟", standard.minMaxValidTime)},
        {FactsText(L"累计超过下限的时间段"), AccumulateWords(standard)},
        {FactsText(L"时数颜色"), TimeColorWords(standard.timeColors), Rule::Kind::Colors},
        {FactsText(L"类型颜色"), TypeColorWords(standard.typeColors), Rule::Kind::Colors},
    };
}

// What the standard's choices leave without effect is left out.
CString RulesInOneLine(const Standard& standard) {
    std::vector<CString> words = {standard.fullWindow ? FactsText(L"整个日照窗都须照到（满窗日照分析）")
                                                      : FactsText(L"窗台中点照到即可（窗台中点分析）")};
    if (standard.fullWindow && standard.limitWidth)
        words.push_back(WidthWords(standard));
    words.push_back(Choice(kCount, standard.maxContinue));
    if (standard.maxContinue == ORVO_COUNT_TOTAL) {
        words.push_back(Choice(kTotal, standard.totalTimeType));
        words.push_back(FactsFormat(L"有效时间段不短于 %d 分钟", standard.minValidTime));
        words.push_back(FactsFormat(L"最长的时间段不短于 %d 分钟", standard.minMaxValidTime));
    } else if (standard.allMaxContinueTime) {
        words.push_back(FactsFormat(L"累计超过 %d 分钟的时间段", standard.minContinueTime));
    }
    words.push_back(ValidSunWords(standard));
    words.push_back(Printable(DayInWords(standard.day)));
    words.push_back(Choice(kTimeBase, standard.beijingTime) + L" " + SpanWords(standard));
    words.push_back(FactsFormat(L"计算精度 %s 分钟", DoubleToText(standard.step)));
    CString line;
    for (const CString& each : words)
        line += line.IsEmpty() ? each : FactsText(L"；") + each;
    return FactsFormat(L"当前标准“%s”：%s。", Printable(standard.name), line);
}

CString SourceOf(const CString& name) {
    for (const Source& source : kSources)
        if (name == source.name)
            return FactsText(source.text);
    return CString();
}

CString SourceWarning() {
    return FactsText(L"随程序提供的标准只是起始值，使用前须与现行有效的文本核对。");
}
