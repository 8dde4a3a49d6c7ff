// A first plug-in: the subcommand "orvo noon" tells where the sun stands over the current place at true noon.
#include "facts/DayTerms.h"
#include "facts/PlaceSearch.h"
#include "facts/Settings.h"
#include "facts/SunDay.h"
#include "facts/SunPosition.h"
#include "platform/host/CommandLine.h"
#include "platform/host/DynamicLinker.h"
#include "platform/host/ExitCode.h"
#include "platform/host/HostMessages.h"
#include "platform/host/Output.h"
#include "platform/host/Subcommands.h"

static int Noon(SubcommandCall& call) {
    const Settings settings = CurrentSettings();
    if (!settings.place) {
        call.GetOutput().Complain(UnknownPlaceText(settings.placeName));
        return kExitFailed;
    }
    const SunDay day = ComputeSunDay(TermsFor(settings.Day()), *settings.place);
    const SunDirection sun = DirectionOfSun(day, 12.0);
    CString line;
    line.Format(L"east %.6f north %.6f up %.6f altitude %.6f", sun.east, sun.north, sun.up, PositionOf(sun).altitude);
    call.GetOutput().Line(line);
    return kExitOk;
}

extern "C" int acrxEntryPoint(int message, void* applicationHandle) {
    if (message != AcRx::kInitAppMsg)
        return AcRx::kRetOK;
    acrxUnlockApplication(applicationHandle);
    Subcommand row;
    row.name = L"noon";
    row.description = L"tells the sun's direction at true noon";
    row.run = Noon;
    CString reason;
    if (HostSubcommands().Add(row, applicationHandle, reason))
        return AcRx::kRetOK;
    acutPrintf(L"\nnoon: %s", reason);
    return AcRx::kRetError;
}
