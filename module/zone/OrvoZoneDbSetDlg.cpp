// The editor of the places: fills its grid from the tree of places, and writes it back on OK.
#include "zone/OrvoZoneDbSetDlg.h"

#include <memory>
#include <new>

#include "frame/ConfigDictionaries.h"
#include "frame/ConfigFiles.h"
#include "frame/Resources.h"
#include "platform/base/QcDtDictionary.h"
#include "platform/base/Support.h"
#include "platform/window/CFileDialog.h"
#include "resources/Resource.h"
#include "zone/ZoneMerge.h"

namespace {

constexpr DWORD kGridStyle = 0x56810000;  // a visible child with a border that the keyboard visits
const wchar_t* const kRootTag = L"ORVO_ZONEDATA";

}  // namespace

BEGIN_MESSAGE_MAP(OrvoZoneDbSetDlg, QcUiDialog)
    ON_BN_CLICKED(IDC_IMPORT_ZONES, &OrvoZoneDbSetDlg::OnImport)
END_MESSAGE_MAP()

OrvoZoneDbSetDlg::OrvoZoneDbSetDlg(CWnd* parent)
    : QcUiDialog(ChooseTemplate(IDD_ZONE_EDITOR, IDD_ZONE_EDITOR_WIDE), parent) {}

OrvoZoneDbSetDlg::~OrvoZoneDbSetDlg() = default;

BOOL OrvoZoneDbSetDlg::OnInitDialog() {
    QcUiDialog::OnInitDialog();
    m_grid.Setup();
    m_grid.Create(kGridStyle, RECT{}, this, IDC_ZONE_GRID);  // in the place that the template keeps for it
    m_grid.FitLastColumn();
    m_grid.Fill(g_dictSunZone);
    return TRUE;
}

void OrvoZoneDbSetDlg::OnOK() {
    m_grid.EndEditCell();
    g_dictSunZone.RemoveAll();
    m_grid.Write(g_dictSunZone);
    SaveSunData();
    QcUiDialog::OnOK();
}

void OrvoZoneDbSetDlg::OnCancel() {
    QcUiDialog::OnCancel();
}

void OrvoZoneDbSetDlg::OnImport() {
    CFileDialog chooser(TRUE, nullptr, nullptr, OFN_HIDEREADONLY | OFN_FILEMUSTEXIST,
                        TranslateText(L"地理位置数据 (*.xml)|*.xml||"), this);
    if (chooser.DoModal() != IDOK)
        return;
    QcDtDictionary imported;
    if (!imported.ReadFromXML(chooser.GetPathName())) {
        MessageBox(TranslateText(L"打开XML文档失败！请安装MSXML4.0SP2组件!"));
        return;
    }
    if (imported.GetTag() != kRootTag) {
        MessageBox(TranslateText(L"请导入正确地理位置数据!"));
        return;
    }
    CString path;
    if (!FindFile(L"zone.xml", path)) {
        MessageBox(TranslateText(L"\n加载选项配置文件失败！未找到配置文件zone.xml。"));
        return;
    }
    QcDtDictionary merged;
    merged.ReadFromXML(path);  // what cannot be read counts as empty
    MergeZones(merged, imported);
    m_grid.Fill(merged);
    MessageBox(TranslateText(L"导入成功!"));
}

INT_PTR SunZoneDbDoModal(CWnd* /*parent*/) {
    const QcUtPushResource scope(GetModuleResourceHandle());
    const std::unique_ptr<OrvoZoneDbSetDlg> dialog(new (std::nothrow) OrvoZoneDbSetDlg(acedGetAcadFrame()));
    return dialog ? dialog->DoModal() : 0;
}
