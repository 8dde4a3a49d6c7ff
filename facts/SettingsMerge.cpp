// The three-way merge of settings, which every item goes through by itself.
#include "facts/SettingsMerge.h"

#include <algorithm>

#include "facts/SettingsForm.h"
#include "platform/base/Support.h"

namespace {

const wchar_t* const kSettings = L"CUR_SUNSETDATA";
const wchar_t* const kIndex = L"CUR_STDINDEX";
const wchar_t* const kCities = L"ANALYSISED_CITY";

struct Setting {
    const wchar_t* key;
    const wchar_t* label;
};
constexpr Setting kSettingLabels[] = {
    {L"CUR_CITY", L"地区"},
    {L"CUR_STARTTIME", L"分析时段的开始"},
    {L"CUR_ENDTIME", L"分析时段的结束"},
    {L"CUR_SPACE", L"计算精度"},
    {L"CUR_DATA", L"分析日期"},
};

// One item as each of the three has it; null for none.
template <class Item>
struct Three {
    const Item* known;
    const Item* mine;
    const Item* theirs;

    // Whether theirs counts.
    bool IsTheirs() const { return IsSameItem(mine, known); }
    bool IsConflict() const {
        return !IsSameItem(mine, known) && !IsSameItem(theirs, known) && !IsSameItem(mine, theirs);
    }
};

using Standards = std::vector<std::unique_ptr<QcDtDictionary>>;

int PositionOf(const Standards& standards, const CString& name) {
    const auto found = std::find_if(standards.begin(), standards.end(),
                                    [&name](const auto& standard) { return standard->GetName() == name; });
    return found == standards.end() ? -1 : static_cast<int>(found - standards.begin());
}

std::vector<CString> CitiesIn(const QcDtDictionary& settings) {
    const QcDtDictionary* dictionary = settings.FindDict(kSettings);
    const QcDtDictItem* item = dictionary ? dictionary->FindItem(kCities) : nullptr;
    CStringArray pieces;
    if (item)
        CutStrToArr(item->GetStringValue(), L"-", pieces);
    std::vector<CString> cities;
    for (int i = 0; i < pieces.GetSize(); ++i)
        cities.push_back(pieces.GetAt(i));
    return cities;
}

bool Holds(const std::vector<CString>& names, const CString& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

// The current standard of a form: its index, and its name where there is such a standard.
struct Choice {
    int index = 0;
    CString name;
    bool isThere = false;

    explicit Choice(const QcDtDictionary& form) {
        const QcDtDictionary* settings = form.FindDict(kSettings);
        if (const QcDtDictItem* item = settings ? settings->FindItem(kIndex) : nullptr)
            index = item->GetIntValue();
        const std::vector<const QcDtDictionary*> standards = StandardsIn(form);
        isThere = index >= 0 && index < static_cast<int>(standards.size());
        if (isThere)
            name = standards[static_cast<std::size_t>(index)]->GetName();
    }
    bool operator==(const Choice& other) const {
        return isThere == other.isThere && (isThere ? name == other.name : index == other.index);
    }
};

class Merger {
public:
    Merger(const QcDtDictionary& known, const QcDtDictionary& mine, const QcDtDictionary& theirs)
        : m_known(known), m_mine(mine), m_theirs(theirs) {}

    MergedSettings Merge();

private:
    void MergeStandards();
    std::unique_ptr<QcDtDictionary> MergeStandard(const CString& name);
    void MergeFields(const Three<QcDtDictionary>& three, QcDtDictionary& merged);
    void PlaceMyOwn();
    bool IsTold(const CString& standard) const;
    void MergeSettingItems(QcDtDictionary& settings);
    void MergeCities(QcDtDictionary& settings) const;
    void ChooseStandard(QcDtDictionary& settings);

    const QcDtDictionary& m_known;
    const QcDtDictionary& m_mine;
    const QcDtDictionary& m_theirs;
    Standards m_standards;
    std::vector<SettingsConflict> m_conflicts;
};

MergedSettings Merger::Merge() {
    MergedSettings merged;
    merged.form = std::make_unique<QcDtDictionary>();
    const QcDtDictionary* mySettings = m_mine.FindDict(kSettings);
    std::unique_ptr<QcDtDictionary> settings(mySettings ? mySettings->Clone() : new QcDtDictionary(kSettings));
    MergeSettingItems(*settings);
    MergeCities(*settings);
    MergeStandards();
    ChooseStandard(*settings);
    merged.form->AppendItem(settings.release());
    for (std::unique_ptr<QcDtDictionary>& standard : m_standards)
        merged.form->AppendItem(standard.release());
    merged.conflicts = std::move(m_conflicts);
    return merged;
}

void Merger::MergeSettingItems(QcDtDictionary& settings) {
    const auto itemOf = [](const QcDtDictionary& form, const wchar_t* key) {
        const QcDtDictionary* dictionary = form.FindDict(kSettings);
        return dictionary ? dictionary->FindItem(key) : nullptr;
    };
    for (const Setting& setting : kSettingLabels) {
        const Three<QcDtDictItem> three = {itemOf(m_known, setting.key), itemOf(m_mine, setting.key),
                                           itemOf(m_theirs, setting.key)};
        if (three.IsConflict())
            m_conflicts.push_back({CString(), setting.label});
        QcDtDictItem* item = settings.FindItem(setting.key);
        if (!three.IsTheirs() || !three.theirs || !item)
            continue;
        item->SetDoubleValue(three.theirs->GetDoubleValue());
        item->SetStringValue(three.theirs->GetStringValue());
    }
}

void Merger::MergeCities(QcDtDictionary& settings) const {
    const std::vector<CString> known = CitiesIn(m_known);
    const std::vector<CString> mine = CitiesIn(m_mine);
    const std::vector<CString> theirs = CitiesIn(m_theirs);
    std::vector<CString> merged;
    for (const CString& city : theirs)
        if (!Holds(merged, city) && (Holds(mine, city) || !Holds(known, city)))
            merged.push_back(city);
    for (const CString& city : mine)
        if (!Holds(merged, city) && !Holds(known, city))
            merged.push_back(city);
    CString joined;
    for (const CString& city : merged)
        joined += joined.IsEmpty() ? city : L"-" + city;
    if (QcDtDictItem* item = settings.FindItem(kCities))
        item->SetStringValue(joined);
}

void Merger::MergeStandards() {
    for (const QcDtDictionary* standard : StandardsIn(m_theirs))
        if (std::unique_ptr<QcDtDictionary> merged = MergeStandard(standard->GetName()))
            m_standards.push_back(std::move(merged));
    PlaceMyOwn();
    for (const QcDtDictionary* standard : StandardsIn(m_known)) {
        // Deleted by them, changed by me: PlaceMyOwn has put it back.
        const Three<QcDtDictionary> three = {standard, FindStandardIn(m_mine, standard->GetName()),
                                             FindStandardIn(m_theirs, standard->GetName())};
        if ((!three.mine || !three.theirs) && three.IsConflict())
            m_conflicts.push_back({standard->GetName(), nullptr});
    }
    if (!m_standards.empty() || StandardsIn(m_theirs).empty())
        return;
    for (const QcDtDictionary* standard : StandardsIn(m_mine)) {
        m_standards.emplace_back(standard->Clone());
        if (!IsTold(standard->GetName()))
            m_conflicts.push_back({standard->GetName(), nullptr});
    }
}

bool Merger::IsTold(const CString& standard) const {
    return std::any_of(m_conflicts.begin(), m_conflicts.end(),
                       [&](const SettingsConflict& conflict) { return conflict.standard == standard; });
}

// Null when it is gone. Of those that only one of the two has.
std::unique_ptr<QcDtDictionary> Merger::MergeStandard(const CString& name) {
    const Three<QcDtDictionary> three = {FindStandardIn(m_known, name), FindStandardIn(m_mine, name),
                                         FindStandardIn(m_theirs, name)};
    if (three.mine && three.theirs) {
        std::unique_ptr<QcDtDictionary> merged(three.mine->Clone());
        MergeFields(three, *merged);
        return merged;
    }
    const QcDtDictionary* kept = three.IsTheirs() ? three.theirs : three.mine;
    return std::unique_ptr<QcDtDictionary>(kept ? kept->Clone() : nullptr);
}

void Merger::MergeFields(const Three<QcDtDictionary>& three, QcDtDictionary& merged) {
    for (const StandardField& field : StandardFields()) {
        const std::unique_ptr<QcDtDictItem> known = three.known ? FieldValue(*three.known, field) : nullptr;
        const std::unique_ptr<QcDtDictItem> mine = FieldValue(*three.mine, field);
        const std::unique_ptr<QcDtDictItem> theirs = FieldValue(*three.theirs, field);
        const Three<QcDtDictItem> values = {known.get(), mine.get(), theirs.get()};
        if (values.IsConflict())
            m_conflicts.push_back({merged.GetName(), field.label});
        if (values.IsTheirs())
            SetFieldValue(merged, field, theirs.get());
    }
}

// Standards that only this program has, each behind the one that it follows there.
void Merger::PlaceMyOwn() {
    int position = 0;
    for (const QcDtDictionary* standard : StandardsIn(m_mine)) {
        const int present = PositionOf(m_standards, standard->GetName());
        if (present >= 0) {
            position = present + 1;
            continue;
        }
        if (std::unique_ptr<QcDtDictionary> merged = MergeStandard(standard->GetName()))
            m_standards.insert(m_standards.begin() + position++, std::move(merged));
    }
}

void Merger::ChooseStandard(QcDtDictionary& settings) {
    const Choice known(m_known);
    const Choice mine(m_mine);
    const Choice theirs(m_theirs);
    if (!(mine == known) && !(theirs == known) && !(mine == theirs))
        m_conflicts.push_back({CString(), L"当前标准"});
    const Choice& first = mine == known ? theirs : mine;
    const Choice& second = mine == known ? mine : theirs;
    QcDtDictItem* item = settings.FindItem(kIndex);
    if (!item)
        return;
    if (!first.isThere) {
        // Without a current standard: no index of the list may come to mean one.
        const bool isOutside = first.index < 0 || first.index >= static_cast<int>(m_standards.size());
        item->SetIntValue(isOutside ? first.index : -1);
        return;
    }
    int index = PositionOf(m_standards, first.name);
    if (index < 0 && second.isThere)
        index = PositionOf(m_standards, second.name);
    item->SetIntValue(std::max(index, 0));
}

}  // namespace

MergedSettings MergeSettings(const QcDtDictionary& known, const QcDtDictionary& mine, const QcDtDictionary& theirs) {
    return Merger(known, mine, theirs).Merge();
}
