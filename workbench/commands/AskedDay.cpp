// Reads the options that every analysis has.
#include "workbench/commands/AskedDay.h"

#include <cmath>

#include "analysis/DayRequest.h"
#include "facts/NumberText.h"
#include "platform/base/PlainText.h"
#include "platform/base/TextNumber.h"
#include "platform/host/ExitCode.h"
#include "platform/host/Subcommands.h"
#include "workbench/Texts.h"
#include "workbench/commands/AskedSettings.h"
#include "workbench/commands/HeightOptions.h"
#include "workbench/commands/ValueErrors.h"
#include "workbench/terminal/Complaint.h"

namespace {

CString BadDegreesText(const wchar_t* option, const CString& value) {
    return SayFormat(L"%s 的值“%s”不对：请写一个度数，例如 15 或 -7.5", OptionWord(option), Printable(value));
}

CString BadNeedText(const CString& value) {
    return SayFormat(L"--need 的值“%s”不对：请写需要的小时数，大于 0、不超过 24，例如 2 或 1.5", Printable(value));
}

CString BadAltitudeText(const CString& value) {
    return SayFormat(L"--least-altitude 的值“%s”不对：请写太阳高度角的度数，大于 0、小于 90，例如 5", Printable(value));
}

// Gives an ExitCode, like the following ones. Whole turns are taken away, and what is left is said.
int ReadDirection(const wchar_t* option, const std::optional<CString>& text, std::optional<double>& degrees) {
    constexpr double kTurn = 360.0;
    if (!text)
        return kExitOk;
    degrees = ParseDecimal(*text);
    if (!degrees)
        return Refuse(kExitUsage, BadDegreesText(option, *text));
    if (std::fabs(*degrees) >= kTurn)
        Complain(SayFormat(L"%s 的值“%s”超过一圈：按 %s 度计", OptionWord(option), Printable(*text),
                           DoubleToText(std::fmod(*degrees, kTurn))));
    degrees = std::fmod(*degrees, kTurn);
    return kExitOk;
}

int ReadDirections(const AskedDay& asked, DayRequest& request) {
    std::optional<double> north;
    const int code = ReadDirection(L"--north", asked.north, north);
    request.north = north.value_or(0.0);
    return code ? code : ReadDirection(L"--facing", asked.facing, request.facing);
}

int ReadLimits(const AskedDay& asked, DayRequest& request) {
    constexpr double kMostHours = 24.0;
    constexpr double kZenith = 90.0;
    if (asked.need) {
        request.need = ParseDecimal(*asked.need);
        if (!request.need || *request.need <= 0.0 || *request.need > kMostHours)
            return Refuse(kExitUsage, BadNeedText(*asked.need));
    }
    if (asked.leastAltitude) {
        request.leastAltitude = ParseDecimal(*asked.leastAltitude);
        if (!request.leastAltitude || *request.leastAltitude <= 0.0 || *request.leastAltitude >= kZenith)
            return Refuse(kExitUsage, BadAltitudeText(*asked.leastAltitude));
    }
    return kExitOk;
}

}  // namespace

AskedDay AskedDayOf(SubcommandCall& call) {
    return {call.GetValues(L"--height"), call.GetValue(L"--north"),          call.GetValue(L"--facing"),
            call.GetValue(L"--need"),    call.GetValue(L"--least-altitude"), call.GetValue(L"--place"),
            call.GetValue(L"--date"),    call.GetValue(L"--standard")};
}

int ReadAskedDay(const AskedDay& asked, DayRequest& request) {
    int code = ReadHeights(asked.heights, request.heights);
    if (!code)
        code = ReadDirections(asked, request);
    return code ? code : ReadLimits(asked, request);
}

int ReadDaySettings(const AskedDay& asked, DayRequest& request) {
    const AskedSettings settings = ReadAskedSettings({asked.place, asked.date, asked.standard});
    if (settings.code)
        return settings.code;
    request.settings = settings.settings;
    if (!request.settings.place)
        return kExitFailed;  // why has been said
    request.terms = TermsFor(request.settings.Day());
    return request.terms.IsReasonable() ? kExitOk : Refuse(kExitFailed, UnreasonableTermsText());
}
