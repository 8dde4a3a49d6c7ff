// Compares the rows of an editor of the places with what was saved of them.
#include "workbench/commands/ZoneEditorWatch.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "facts/NearestNames.h"
#include "frame/ConfigDictionaries.h"
#include "platform/base/PlainText.h"
#include "platform/base/QcDtDictionary.h"
#include "platform/base/Support.h"
#include "platform/base/TextNumber.h"
#include "workbench/Texts.h"
#include "workbench/terminal/Complaint.h"
#include "zone/OrvoZoneWDGrid.h"
#include "zone/ZoneRows.h"

namespace {

constexpr std::size_t kMostNamed = 20;

enum class Loss { None, Minutes, Sign };

// The number that the text's digits make, without its sign: 33.87 for -033度52分12秒.
double AmountOf(const CString& text) {
    double amount = 0.0;
    double unit = 1.0;
    int start = 1;
    for (const wchar_t word : {L'度', L'分', L'秒'}) {
        const int end = text.Find(word, start);
        if (end < 0)
            break;
        amount += unit * _wtoi(text.Mid(start, end - start));
        unit /= 60.0;
        start = end + 1;
    }
    return amount;
}

// What saving made of a position that reads `text` in the editor. A row that was not saved has lost nothing.
Loss LossOf(const CString& text, const CString& saved) {
    constexpr double kSaved = 1e-9;  // ten decimals
    if (text.Left(1) != L"-" || text.Find(L'度') < 0)
        return Loss::None;
    const double amount = AmountOf(text);
    const double value = _wtof(saved);
    if (saved == text)
        return std::abs(-amount - value) > kSaved ? Loss::Minutes : Loss::None;
    return value > 0.0 && std::abs(amount - value) < kSaved ? Loss::Sign : Loss::None;
}

struct Losses {
    std::vector<CString>& minutes;
    std::vector<CString>& signs;
};

std::vector<const QcUiGridTreeRow*> ChildrenOf(const QcUiGridTreeRow& row) {
    std::vector<const QcUiGridTreeRow*> children;
    for (int i = 0; i < row.GetChildNum(); ++i)
        children.push_back(row.GetChild(i));
    return children;
}

std::vector<const QcUiGridTreeRow*> TopRowsOf(const QcUiGrid& grid) {
    std::vector<const QcUiGridTreeRow*> rows;
    for (int i = 0; i < grid.GetRowCount(); ++i)
        if (!grid.GetRow(i)->IsChildRow())
            rows.push_back(grid.GetRow(i));
    return rows;
}

void CheckCity(const QcUiGridTreeRow& row, const QcDtDictItem& saved, const Losses& losses) {
    CString lostMinutes;
    CString lostSigns;
    for (const auto& [column, attribute] :
         {std::pair(ZoneRows::kLongitude, L"longitude"), std::pair(ZoneRows::kLatitude, L"latitude")}) {
        const CString text = row.GetItemText(column).Trim();
        const Loss loss = LossOf(text, saved.GetAttributeValue(attribute));
        if (loss != Loss::None)
            (loss == Loss::Minutes ? lostMinutes : lostSigns) += L" " + text;
    }
    const CString province = row.IsChildRow() ? row.GetParent()->GetItemText(ZoneRows::kProvince) + L"/" : CString();
    const CString place = province + row.GetItemText(ZoneRows::kCity);
    if (!lostMinutes.IsEmpty())
        losses.minutes.push_back(place + lostMinutes);
    if (!lostSigns.IsEmpty())
        losses.signs.push_back(place + lostSigns);
}

// Rows that were saved have become an item each, in their order; only provinces without a name have not.
void CheckRows(const std::vector<const QcUiGridTreeRow*>& rows, const QcDtDictionary& saved, const Losses& losses) {
    int next = 0;
    for (const QcUiGridTreeRow* row : rows) {
        const bool isProvince = row->IsParentRow();
        const CString name = row->GetItemText(isProvince ? ZoneRows::kProvince : ZoneRows::kCity);
        if (isProvince && name.IsEmpty())
            continue;
        const QcDtDictItem* item = next < saved.GetCount() ? saved.GetItem(next++) : nullptr;
        if (item == nullptr || item->GetName() != name)
            continue;
        if (const auto* province = dynamic_cast<const QcDtDictionary*>(item); isProvince && province != nullptr)
            CheckRows(ChildrenOf(*row), *province, losses);
        else if (!isProvince)
            CheckCity(*row, *item, losses);
    }
}

CString Named(std::vector<CString> places) {
    const std::size_t count = places.size();
    places.resize(std::min(count, kMostNamed));
    const CString names = JoinNames(places);
    if (count <= kMostNamed)
        return names;
    return SayFormat(L"%s 等 %d 处", names, static_cast<int>(count));
}

}  // namespace

ZoneEditorWatch::ZoneEditorWatch() {
    SetGridObserver(&ZoneEditorWatch::OnGridGoing, this);
}

ZoneEditorWatch::~ZoneEditorWatch() {
    SetGridObserver(nullptr, nullptr);
}

void ZoneEditorWatch::OnGridGoing(const QcUiGrid& grid, void* watch) {
    if (dynamic_cast<const OrvoZoneWDGrid*>(&grid) == nullptr)
        return;
    auto& self = *static_cast<ZoneEditorWatch*>(watch);
    // Of several editors in one command the last one's rows are what is saved now.
    self.m_lostMinutes.clear();
    self.m_lostSigns.clear();
    CheckRows(TopRowsOf(grid), g_dictSunZone, {self.m_lostMinutes, self.m_lostSigns});
}

void ZoneEditorWatch::Report() const {
    if (!m_lostMinutes.empty())
        Complain(SayFormat(L"这些地区在赤道以南或格林尼治以西，保存的位置读回来只有整度，没有分和秒：%s",
                           Named(m_lostMinutes)));
    if (!m_lostSigns.empty())
        Complain(
            SayFormat(L"这些地区离赤道或格林尼治不到一度，保存的位置没有了负号，到了另一边：%s", Named(m_lostSigns)));
    if (m_lostMinutes.empty() && m_lostSigns.empty())
        return;
    CString path;
    if (!FindFile(L"zone.xml", path))
        path = L"zone.xml";
    Complain(SayFormat(
        L"请退出程序，在“%s”里把它们的经纬度改成十进制度数，例如 -33.8688；每次用这个编辑器保存以后都要重新改",
        Printable(path)));
}
