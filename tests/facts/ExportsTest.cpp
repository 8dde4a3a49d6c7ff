// Everything that the headers declare is in the library for whoever links it: the address of every function is taken
// here, and a function that a header gains has to be added.
#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <set>

#include "facts/Angles.h"
#include "facts/BareName.h"
#include "facts/ClockText.h"
#include "facts/DayTerms.h"
#include "facts/DayText.h"
#include "facts/FactsTexts.h"
#include "facts/NearestNames.h"
#include "facts/NumberText.h"
#include "facts/Place.h"
#include "facts/PlaceSearch.h"
#include "facts/PositionText.h"
#include "facts/Settings.h"
#include "facts/SettingsChange.h"
#include "facts/SettingsEdit.h"
#include "facts/SettingsFile.h"
#include "facts/SettingsForm.h"
#include "facts/SettingsMerge.h"
#include "facts/SettingsSnapshot.h"
#include "facts/ShippedSettings.h"
#include "facts/Standard.h"
#include "facts/StandardSearch.h"
#include "facts/StandardWords.h"
#include "facts/SunDay.h"
#include "facts/SunPosition.h"
#include "facts/TypedPlace.h"
#include "support/FileTree.h"
#include "support/Folders.h"

namespace {

std::set<std::string> g_taken;

// Takes the address of a function or of a member; which of several of one name, its type tells.
template <class Type>
void Take(const char* name, Type address) {
    EXPECT_TRUE(address != nullptr) << name;
    g_taken.insert(name);
}

#define TAKE(name) Take(#name, &name)
#define TAKE_ONE(name, result, ...) Take(#name, static_cast<result (*)(__VA_ARGS__)>(&name))

void TakeTexts() {
    TAKE(SplitSeconds);
    TAKE(ParseClock);
    TAKE(ClockText);
    TAKE(MinutesText);
    TAKE(IsRealDay);
    TAKE(ParseDay);
    TAKE(IsoDay);
    TAKE(DayInWords);
    TAKE(Today);
    TAKE(DayOf);
    TAKE(FactsText);
    Take("FactsFormat", &FactsFormat<int>);
    TAKE(NearestNames);
    TAKE(JoinNames);
    TAKE(ParseWhole);
    TAKE(ParseDecimal);
}

void TakeSkyAndPlaces() {
    TAKE(TermsFor);
    TAKE(HasUsableTermFile);
    TAKE(DayTerms::IsReasonable);
    TAKE_ONE(ComputeSunDay, SunDay, double, double, double, double);
    TAKE_ONE(ComputeSunDay, SunDay, const DayTerms&, const Place&);
    TAKE(SunDay::TrueSolarTime);
    TAKE(SunDay::BeijingTime);
    TAKE(HourAngle);
    TAKE(DirectionOfSun);
    TAKE(PositionOf);
    TAKE(PositionOfSun);
    TAKE(ShadowLength);
    TAKE(Place::FullName);
    TAKE(Place::IsOnTheGlobe);
    TAKE(AllPlaces);
    TAKE(PlacesWith);
    TAKE(FindPlace);
    TAKE(BareName);
    TAKE(ParsePosition);
    TAKE(PositionName);
    TAKE(FindTypedPlace);
    TAKE(CurrentPlace);
    TAKE(UnknownPlaceText);
    TAKE(RecordOf);
}

void TakeSettings() {
    TAKE(Settings::Day);
    TAKE(Settings::UsePlace);
    TAKE(Settings::UseDay);
    TAKE(Settings::UseStandard);
    TAKE(ReadSettings);
    TAKE(CurrentSettings);
    TAKE(NoteOf);
    TAKE(SettingsChange::Begin);
    TAKE(SettingsChange::Save);
    TAKE(SettingsChange::TakeMessages);
    TAKE(SettingsChange::Path);
    TAKE(RememberSavedSettings);
    TAKE(TakeInAtTheEnd);
    TAKE(SetPlace);
    TAKE(SetOwnDay);
    TAKE(SetOwnStart);
    TAKE(SetOwnEnd);
    TAKE(SetOwnStep);
    TAKE(SetDay);
    TAKE(SetStart);
    TAKE(SetEnd);
    TAKE(SetStep);
    TAKE(UseStandard);
    TAKE(SettingsSnapshot::Restore);
}

void TakeFiles() {
    TAKE(OthersChanges::IsEmpty);
    TAKE(OthersChanges::ConflictsWith);
    TAKE(SettingsFile::Remember);
    TAKE(SettingsFile::TakeIn);
    TAKE(SettingsFile::IsSound);
    TAKE(PutInForce);
    TAKE(RefreshWholeStep);
    TAKE(SharedSettingsFile);
    TAKE(StandardFields);
    TAKE_ONE(FormOf, std::unique_ptr<QcDtDictionary>, const OrvoDataSet&);
    TAKE_ONE(FormOf, std::unique_ptr<QcDtDictionary>, const OrvoStdSet&);
    TAKE(StandardsIn);
    TAKE(FindStandardIn);
    TAKE(IsSameItem);
    TAKE(FieldValue);
    TAKE(SetFieldValue);
    TAKE(DifferingFields);
    TAKE(MergeSettings);
    TAKE(ShippedPath);
    TAKE(ReadShippedSettings);
    TAKE(ChangesFromShipped);
    TAKE(ResetStandard);
}

void TakeStandards() {
    TAKE(Standard::HasSpan);
    TAKE(Standard::HasStep);
    TAKE(Standard::TimeColorOf);
    TAKE(StandardOf);
    TAKE(NamesOfStandards);
    TAKE(StandardAt);
    TAKE(FindStandard);
    TAKE(HasCurrentStandard);
    TAKE(UnknownStandardText);
    TAKE(RulesInWords);
    TAKE(RulesInOneLine);
    TAKE(SourceOf);
    TAKE(SourceWarning);
}

// The functions that the headers declare, members with their class. Constructors and operators are no names here.
std::set<std::string> DeclaredFunctions() {
    const std::regex type(R"(^(?:class|struct) (?:ORVO_API )?(\w+) \{)");
    const std::regex function(
        R"(^( *)(?!return |explicit )(?:ORVO_API |inline |static )*[\w:]+[\w:<>*&, ]*[ *&>](\w+)\()");
    std::set<std::string> names;
    for (const auto& header : std::filesystem::directory_iterator(SourceFolder() + "/facts")) {
        if (header.path().extension() != ".h")
            continue;
        std::istringstream lines(FileBytes(header.path()));
        std::string inside;
        for (std::string line; std::getline(lines, line);) {
            std::smatch match;
            if (std::regex_search(line, match, type))
                inside = match[1].str() + "::";
            else if (line == "};")
                inside.clear();
            else if (std::regex_search(line, match, function) && match[1].length() == (inside.empty() ? 0 : 4))
                names.insert(inside + match[2].str());
        }
    }
    return names;
}

}  // namespace

TEST(TheLibraryOfTheFacts, HasEverythingThatItsHeadersDeclare) {
    g_taken.clear();
    TakeTexts();
    TakeSkyAndPlaces();
    TakeSettings();
    TakeFiles();
    TakeStandards();
    EXPECT_EQ(g_taken, DeclaredFunctions());
}
