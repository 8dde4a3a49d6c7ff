// Asks the facts for the place, and tells what is wrong with a text that stands for none.
#include "workbench/commands/AskedPlace.h"

#include "facts/TypedPlace.h"
#include "platform/base/PlainText.h"
#include "platform/host/ExitCode.h"
#include "workbench/Texts.h"
#include "workbench/commands/NameLists.h"
#include "workbench/terminal/Complaint.h"

SubcommandOption PlaceOption() {
    return ValueOption(L"--place", L"NAME", L"地区名、省份/地区、拼音，或 经度,纬度", PlaceNames);
}

int ReadAskedPlace(const CString& text, std::optional<Place>& place) {
    const TypedPlace typed = FindTypedPlace(text);
    place = typed.place;
    if (!place)
        return Refuse(typed.kind == TypedPlace::Kind::Position ? kExitUsage : kExitFailed, typed.trouble);
    if (!place->IsOnTheGlobe())
        return Refuse(kExitFailed,
                      SayFormat(L"地区“%s”的位置不在地球上，算不出太阳的时刻。", Printable(place->FullName())));
    return kExitOk;
}
