// Puts settings into a text, and says in which way two states differ.
#include "workbench/panel/AskedState.h"

#include <nlohmann/json.hpp>
#include <sstream>

#include "analysis/TuningParameters.h"
#include "facts/NearestNames.h"
#include "facts/Settings.h"
#include "workbench/Texts.h"
#include "workbench/commands/StandardRules.h"

std::string SettingsState(const Settings& settings, const TuningParameters& tuning) {
    std::ostringstream text;
    text.precision(17);
    const CalendarDay day = settings.Day();
    text << ToUtf8(settings.placeName.View()) << '\n' << day.year << ' ' << day.month << ' ' << day.day << '\n';
    if (settings.place)
        text << settings.place->longitude << ' ' << settings.place->latitude << '\n';
    text << settings.start.hour << ':' << settings.start.minute << ' ' << settings.end.hour << ':'
         << settings.end.minute << ' ' << settings.step << '\n';
    text << tuning.windowThickness << ' ' << tuning.distancePrecision << ' ' << tuning.windowOffset << '\n';
    if (settings.standard) {
        nlohmann::ordered_json rules = RulesAsJson(*settings.standard, {});
        rules.erase("source");  // words for people, in the language of the moment
        text << rules.dump();
    }
    return text.str();
}

CString ChangesBetween(const AskedState& then, const AskedState& now) {
    std::vector<CString> changes;
    if (then.scene != now.scene)
        changes.push_back(Say(L"图形改动了"));
    if (then.settings != now.settings)
        changes.push_back(Say(L"设置改动了"));
    if (then.fields != now.fields)
        changes.push_back(Say(L"上面的要求改动了"));
    return JoinNames(changes);
}
