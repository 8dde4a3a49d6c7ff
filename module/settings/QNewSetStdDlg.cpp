// The dialog that asks for a standard's name, and its check of the name.
#include "settings/QNewSetStdDlg.h"

#include "frame/Resources.h"
#include "platform/window/DataExchange.h"
#include "resources/Resource.h"
#include "settings/OrvoDataSet.h"

namespace {

// In the settings file standards stand beside the settings themselves and the name of the current standard, told apart
// by their names alone.
bool IsKeyOfSettings(const CString& name) {
    return name == L"CUR_SUNSETDATA" || name == L"CUR_SUNSETSTD";
}

// Nobody could tell such a name from none in a list.
bool IsBlank(CString name) {
    return name.Trim().IsEmpty();
}

}  // namespace

QNewSetStdDlg::QNewSetStdDlg(CWnd* parent)
    : CDialog(ChooseTemplate(IDD_STANDARD_NAME, IDD_STANDARD_NAME_WIDE), parent),
      m_strName(TranslateText(L"新建标准")) {}

QNewSetStdDlg::~QNewSetStdDlg() = default;

BOOL QNewSetStdDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    if (m_bRename)
        SetWindowText(TranslateText(L"重命名标准"));
    return TRUE;
}

void QNewSetStdDlg::DoDataExchange(CDataExchange* exchange) {
    CDialog::DoDataExchange(exchange);
    CString name = m_strName;
    DDX_Text(exchange, IDC_STANDARD_NAME, name);
    if (!exchange->m_bSaveAndValidate)
        return;
    const wchar_t* refusal = nullptr;
    if (g_SunDataSet.FindStd(name) >= 0 || IsKeyOfSettings(name))
        refusal = L"该名称已经被使用,请修改名称";
    else if (IsBlank(name))
        refusal = L"请输入标准的名称";
    if (refusal != nullptr) {
        MessageBox(TranslateText(refusal));
        exchange->Fail();
    }
    m_strName = name;
}
