// Place, term, declination and equation of time in words.
#include "workbench/commands/SunRows.h"

#include "facts/ClockText.h"
#include "facts/DayTerms.h"
#include "facts/PlaceSearch.h"
#include "facts/Settings.h"
#include "facts/SunDay.h"
#include "platform/base/PlainText.h"
#include "platform/base/TextNumber.h"
#include "workbench/Texts.h"
#include "workbench/terminal/TextTable.h"
#include "zone/OrvoZoneRecord.h"

namespace {

CString TermText(const DayTerms& terms) {
    const CString name = Printable(Say(terms.term.name));
    const CString next = Printable(Say(terms.next));
    if (terms.isItsDay)
        return SayFormat(L"%s（当日），%d 天后%s", name, terms.daysToNext, next);
    return SayFormat(L"%s，%d 天后%s", name, terms.daysToNext, next);
}

CString PositionText(const CString& split, double degrees) {
    return SayFormat(L"%s（%s 度）", split, DoubleToText(degrees));
}

}  // namespace

void AddPlaceRows(TextTable& table, const Settings& settings) {
    if (!settings.place) {
        table.Add({Say(L"地区"), SayFormat(L"%s（位置未知）", Printable(settings.placeName))});
        return;
    }
    CString longitude;
    CString latitude;
    const OrvoZoneRecord record = RecordOf(*settings.place);
    record.FormatLongitude(longitude);
    record.FormatLatitude(latitude);
    table.Add({Say(L"地区"), Printable(settings.place->FullName())});
    table.Add({Say(L"经度"), PositionText(longitude, settings.place->longitude)});
    table.Add({Say(L"纬度"), PositionText(latitude, settings.place->latitude)});
}

void AddTermRows(TextTable& table, const DayTerms& terms) {
    CString declination;
    declination.Format(L"%.4f", terms.declination);
    CString equation;
    equation.Format(L"%.6f", terms.equationOfTime);
    table.Add({Say(L"节气"), TermText(terms)});
    table.Add({Say(L"太阳赤纬"), terms.isItsDay ? SayFormat(L"%s 度", declination)
                                                : SayFormat(L"%s 度（节气之间按程序的公式）", declination)});
    table.Add({Say(L"时差"), SayFormat(L"%s（%s 小时）", MinutesText(terms.equationOfTime), equation)});
}

CString PolarText(const SunDay& sun) {
    return sun.kind == SunDay::Kind::PolarDay ? Say(L"极昼：太阳整日不落") : Say(L"极夜：太阳整日不出");
}
