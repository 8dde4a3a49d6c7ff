// The place dialog: two lists, four fields, and the way to the editor of the places.
#include "zone/OrvoPlaceDlg.h"

#include <memory>
#include <new>
#include <set>

#include "frame/ConfigDictionaries.h"
#include "frame/Resources.h"
#include "platform/base/QcDtDictionary.h"
#include "platform/window/DataExchange.h"
#include "resources/Resource.h"
#include "zone/OrvoZoneDbSetDlg.h"

namespace {

// How many records the places will give.
long CountPlaces() {
    long count = 0;
    for (int i = 0; i < g_dictSunZone.GetCount(); ++i) {
        const QcDtDictItem* item = g_dictSunZone.GetItem(i);
        if (item->GetType() == QcDtKindDictionary)
            count += static_cast<const QcDtDictionary*>(item)->GetCount();
    }
    return count;
}

}  // namespace

BEGIN_MESSAGE_MAP(OrvoPlaceDlg, QcUiDialog)
    ON_LBN_SELCHANGE(IDC_PROVINCES, &OrvoPlaceDlg::OnSelchangeProvinceList)
    ON_LBN_SELCHANGE(IDC_CITIES, &OrvoPlaceDlg::OnSelchangeCityList)
    ON_LBN_DBLCLK(IDC_CITIES, &OrvoPlaceDlg::OnDblclk)
    ON_BN_CLICKED(IDC_EDIT_ZONES, &OrvoPlaceDlg::OnOpenDatafile)
END_MESSAGE_MAP()

OrvoPlaceDlg::OrvoPlaceDlg(CWnd* parent) : QcUiDialog(ChooseTemplate(IDD_PLACE, IDD_PLACE_WIDE), parent) {
    LoadZones(CommentSource::Attribute);
}

OrvoPlaceDlg::~OrvoPlaceDlg() = default;

INT_PTR OrvoPlaceDlg::DoModal() {
    const QcUtPushResource scope(GetModuleResourceHandle());
    return QcUiDialog::DoModal();
}

void OrvoPlaceDlg::LoadZones(CommentSource comments) {
    m_arrZone.Reset();
    m_arrZone.SetSpaceSize(CountPlaces());
    OrvoZoneRecord record;
    for (int i = 0; i < g_dictSunZone.GetCount(); ++i) {
        const QcDtDictItem* item = g_dictSunZone.GetItem(i);
        if (item->GetType() != QcDtKindDictionary)
            continue;
        const auto& province = *static_cast<const QcDtDictionary*>(item);
        record.m_strProvince = province.GetName();
        for (int j = 0; j < province.GetCount(); ++j) {
            const QcDtDictItem& city = *province.GetItem(j);
            record.m_strCity = city.GetName();
            record.m_strLatitude = city.GetAttributeValue(L"latitude");
            record.m_strLongitude = city.GetAttributeValue(L"longitude");
            // After the editor a comment comes from the item's text, which the editor leaves empty, on purpose.
            record.m_strComment =
                comments == CommentSource::Attribute ? city.GetAttributeValue(L"comment") : city.GetStringValue();
            m_arrZone.Append(record);
        }
    }
}

OrvoZoneRecord OrvoPlaceDlg::GetCurZone() const {
    const OrvoZoneRecord* record = m_arrZone.GetAt(m_nCurZone);
    return record ? *record : OrvoZoneRecord();
}

// By value, because `zone` may be what the city is a part of.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
bool OrvoPlaceDlg::FindZone(CString city, OrvoZoneRecord& zone) {
    for (long i = 0; i < m_arrZone.GetLength(); ++i) {
        const OrvoZoneRecord& record = *m_arrZone.GetAt(i);
        if (record.m_strCity != city)
            continue;
        m_nCurZone = static_cast<int>(i);
        zone = record;
        return true;
    }
    return false;
}

bool OrvoPlaceDlg::IsZoneDBReady() const {
    return m_arrZone.GetLength() > 0;
}

void OrvoPlaceDlg::DoDataExchange(CDataExchange* exchange) {
    QcUiDialog::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_PROVINCES, m_listProvince);
    DDX_Control(exchange, IDC_CITIES, m_listCity);
    DDX_Text(exchange, IDC_LONGITUDE, m_strLongitude);
    DDX_Text(exchange, IDC_LATITUDE, m_strLatitude);
    DDX_Text(exchange, IDC_COMMENT, m_strComment);
    DDX_Text(exchange, IDC_CITY, m_strCity);
}

BOOL OrvoPlaceDlg::OnInitDialog() {
    QcUiDialog::OnInitDialog();
    FillLists();
    return TRUE;
}

// Provinces in the order in which they first appear, and the cities of the current record's.
void OrvoPlaceDlg::FillLists() {
    const CString current = GetCurZone().m_strProvince;
    m_listProvince.ResetContent();
    m_listCity.ResetContent();
    int provinceEntry = 0;
    std::set<CString> listed;  // the same exact search as in the list, but not as long as that is
    for (long i = 0; i < m_arrZone.GetLength(); ++i) {
        const CString& province = m_arrZone.GetAt(i)->m_strProvince;
        if (!listed.insert(province).second)
            continue;
        const int entry = m_listProvince.AddString(province);
        if (province == current)
            provinceEntry = entry;
    }
    m_listCity.SetCurSel(FillCities(current));
    m_listProvince.SetCurSel(provinceEntry);
    // A current record that is no more leaves the first province selected: its cities belong to it.
    if (m_listCity.GetCount() == 0 && m_listProvince.GetCount() > 0)
        OnSelchangeProvinceList();
    else
        OnSelchangeCityList();
}

// Adds a province's cities to the list. Gives the entry of the current record, 0 when it is not among them.
int OrvoPlaceDlg::FillCities(const CString& province) {
    int current = 0;
    for (long i = 0; i < m_arrZone.GetLength(); ++i) {
        const OrvoZoneRecord& record = *m_arrZone.GetAt(i);
        if (record.m_strProvince != province)
            continue;
        const int entry = m_listCity.AddString(record.m_strCity);
        m_listCity.SetItemData(entry, static_cast<DWORD_PTR>(i));
        if (i == m_nCurZone)
            current = entry;
    }
    return current;
}

void OrvoPlaceDlg::OnSelchangeProvinceList() {
    m_listCity.ResetContent();
    CString province;
    m_listProvince.GetText(m_listProvince.GetCurSel(), province);
    FillCities(province);
    m_listCity.SetCurSel(0);
    OnSelchangeCityList();
}

void OrvoPlaceDlg::OnSelchangeCityList() {
    const int entry = m_listCity.GetCurSel();
    if (entry >= 0)
        m_nCurZone = static_cast<int>(m_listCity.GetItemData(entry));
    const OrvoZoneRecord record = GetCurZone();
    record.FormatLongitude(m_strLongitude);
    record.FormatLatitude(m_strLatitude);
    m_strCity = record.m_strCity;
    m_strComment = record.m_strComment;
    m_strProvince = record.m_strProvince;
    UpdateData(FALSE);
}

void OrvoPlaceDlg::OnDblclk() {
    OnOK();
}

void OrvoPlaceDlg::OnOpenDatafile() {
    {
        const QcUtPushResource scope(GetModuleResourceHandle());
        OrvoZoneDbSetDlg editor(this);
        editor.DoModal();
    }
    LoadZones(CommentSource::Value);
    FillLists();
}

INT_PTR SunZoneDlgDoModal(CString& province, CString& city, CWnd* parent) {
    const QcUtPushResource scope(GetModuleResourceHandle());
    const std::unique_ptr<OrvoPlaceDlg> dialog(new (std::nothrow) OrvoPlaceDlg(parent));
    if (!dialog)
        return 0;
    OrvoZoneRecord preset;
    dialog->FindZone(city, preset);
    const INT_PTR result = dialog->DoModal();
    if (result == IDOK) {
        const OrvoZoneRecord chosen = dialog->GetCurZone();
        province = chosen.m_strProvince;
        city = chosen.m_strCity;
    }
    return result;
}
