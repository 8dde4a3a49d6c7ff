// The lines that films and saved views share.
#include "workbench/view/SunStamp.h"

#include "facts/ClockText.h"
#include "facts/DayText.h"
#include "facts/SunDay.h"
#include "facts/SunPosition.h"
#include "platform/base/PlainText.h"
#include "workbench/Texts.h"
#include "workbench/view/WidgetText.h"

namespace {

CString Degrees(double value) {
    CString text;
    text.Format(L"%.1f", value);
    return text == L"-0.0" ? CString(L"0.0") : text;
}

}  // namespace

std::vector<QString> SunStamp(const CString& place, const CalendarDay& day, const SunDay& sun, double trueSolarTime) {
    return {Shown(Printable(place)), Shown(Printable(DayInWords(day))),
            Shown(SayFormat(L"真太阳时 %s", ClockText(trueSolarTime))),
            Shown(SayFormat(L"北京时间 %s", ClockText(sun.BeijingTime(trueSolarTime)))),
            SunPositionText(PositionOfSun(sun, trueSolarTime))};
}

QString SunPositionText(const SunPosition& sun) {
    return sun.altitude > 0.0
               ? Shown(SayFormat(L"太阳高度角 %s°，方位角 %s°", Degrees(sun.altitude), Degrees(sun.azimuth)))
               : ShownSay(L"夜间：太阳在地平线以下");
}
