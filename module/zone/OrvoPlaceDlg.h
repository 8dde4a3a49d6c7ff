// Choosing the site's city from the places that are known.
// Why: docs/decisions/zone.md
#pragma once

#include "containers/QcDynArray.h"
#include "platform/base/Api.h"
#include "platform/base/CString.h"
#include "platform/window/CListBox.h"
#include "platform/window/QcUiDialog.h"
#include "zone/OrvoZoneRecord.h"

// Takes the places from g_dictSunZone when it is made; FindZone chooses the city on which it opens, DoModal shows it,
// GetCurZone gives what was chosen (also after the dialog was cancelled: the choice follows the selection).
class ORVO_API OrvoPlaceDlg : public QcUiDialog {
public:
    // To be run over a parent (null: the window that is active then), with the places as they are now.
    explicit OrvoPlaceDlg(CWnd* parent = nullptr);
    ~OrvoPlaceDlg() override;

    // With this module's resources.
    INT_PTR DoModal() override;

    // A copy of the current record; a default one where there is none.
    OrvoZoneRecord GetCurZone() const;
    // Makes the first city of exactly this name, whatever its province, the current one, and copies its record out.
    // False, with nothing changed, when there is none.
    bool FindZone(CString city, OrvoZoneRecord& zone);
    // Whether any place is known.
    bool IsZoneDBReady() const;
    // The window over which it is run; null: the one that is active then.
    CWnd* GetParentWindow() const { return m_pParentWnd; }

    BOOL OnInitDialog() override;

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    afx_msg void OnSelchangeProvinceList();
    afx_msg void OnSelchangeCityList();
    afx_msg void OnDblclk();
    afx_msg void OnOpenDatafile();

    DECLARE_MESSAGE_MAP()

private:
    enum class CommentSource { Attribute, Value };

    void LoadZones(CommentSource comments);
    void FillLists();
    int FillCities(const CString& province);

    CListBox m_listProvince;
    CListBox m_listCity;
    CString m_strLongitude;
    CString m_strLatitude;
    CString m_strComment;
    CString m_strCity;
    CString m_strProvince;
    QcDynArray<OrvoZoneRecord> m_arrZone;       // every city, in the order of the places
    QcDynArray<OrvoZoneRecord> m_arrSpareZone;  // kept for the layout that callers know; nothing uses it
    QcDynArray<OrvoZoneRecord> m_arrOtherZone;  // likewise
    int m_nCurZone = 0;
    [[maybe_unused]] bool m_bSpare = false;  // likewise
};

// Lets the user choose a place, beginning with `city`, over a parent (null: none). Gives the dialog's result; on IDOK
// the chosen place's province and city are in the two texts, else they stay as they were. 0 where there is no memory.
ORVO_API INT_PTR SunZoneDlgDoModal(CString& province, CString& city, CWnd* parent);
