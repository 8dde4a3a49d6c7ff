// Reads the fields, strictly: what is no number is refused, never guessed.
#include "workbench/panel/RequestForm.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <cmath>
#include <optional>

#include "analysis/PointAnalysis.h"
#include "analysis/ResultLayers.h"
#include "analysis/WindowAnalysis.h"
#include "facts/NumberText.h"
#include "platform/base/PlainText.h"
#include "workbench/Texts.h"
#include "workbench/commands/AnalysisRemarks.h"
#include "workbench/view/WidgetText.h"

namespace {

constexpr double kMostHours = 24.0;
constexpr double kMostSpacing = 1000.0;
constexpr double kTurn = 360.0;

// Names between commas of either kind.
std::vector<CString> LayersIn(const QLineEdit& edit) {
    static const QRegularExpression kBetween(QString::fromUtf8("[,，、;；]"));
    std::vector<CString> layers;
    for (const QString& each : edit.text().split(kBetween, Qt::SkipEmptyParts))
        if (const QString name = each.trimmed(); !name.isEmpty())
            layers.push_back(Typed(name));
    return layers;
}

bool Refuse(QLineEdit& edit, const CString& text, CString& reason) {
    reason = text;
    edit.setFocus();
    edit.selectAll();
    return false;
}

bool ReadLayers(QLineEdit& edit, std::vector<CString>& layers, CString& reason) {
    layers = LayersIn(edit);
    for (const CString& layer : layers)
        if (IsResultLayer(layer))
            return Refuse(edit, SayFormat(L"图层“%s”上是画出的结果，不能分析：请写别的图层", Printable(layer)), reason);
    return true;
}

bool ReadNeed(QLineEdit& edit, std::optional<double>& need, CString& reason) {
    const CString typed = Typed(edit.text().trimmed());
    need.reset();
    if (typed.IsEmpty())
        return true;
    need = ParseDecimal(typed);
    if (need && *need > 0.0 && *need <= kMostHours)
        return true;
    return Refuse(
        edit,
        SayFormat(L"“%s”不是需要的时数：请写大于 0、不超过 24 的小时数，例如 2；空着就没有结论", Printable(typed)),
        reason);
}

bool ReadNorth(QLineEdit& edit, double& north, CString& reason) {
    const CString typed = Typed(edit.text().trimmed());
    north = 0.0;
    if (typed.IsEmpty())
        return true;
    const std::optional<double> degrees = ParseDecimal(typed);
    if (!degrees)
        return Refuse(
            edit, SayFormat(L"“%s”不是角度：请写正北从 y 轴起逆时针的度数，例如 15 或 -7.5", Printable(typed)), reason);
    north = std::fmod(*degrees, kTurn);
    return true;
}

}  // namespace

RequestForm::RequestForm(QWidget* parent) : QWidget(parent) {
    auto* form = new QFormLayout(this);
    form->setContentsMargins(0, 0, 0, 0);
    form->setVerticalSpacing(3);
    form->setRowWrapPolicy(QFormLayout::DontWrapRows);
    m_windows = Add(*form, "WindowLayers", L"窗的图层", nullptr);
    m_need = Add(*form, "Need", L"需要（小时）", L"没有结论");
    m_north = Add(*form, "North", L"正北（度）", L"0");
    m_proposed = Add(*form, "Proposed", L"方案图层", L"没有方案");
    m_areas = Add(*form, "Areas", L"区域图层", L"画等时线时要有");
    m_spacing = Add(*form, "Spacing", L"点距（米）", L"1");
    m_need->setText("2");
    Retranslate();
}

QLineEdit* RequestForm::Add(QFormLayout& form, const char* name, const wchar_t* label, const wchar_t* hint) {
    auto* edit = new QLineEdit(this);
    edit->setObjectName(name);
    edit->setMinimumWidth(60);
    form.addRow(new QLabel(this), edit);
    connect(edit, &QLineEdit::textChanged, this, [this] {
        if (m_onChange)
            m_onChange();
    });
    m_fields.push_back({edit, label, hint});
    return edit;
}

void RequestForm::Retranslate() {
    for (const Field& field : m_fields) {
        auto* label = qobject_cast<QLabel*>(static_cast<QFormLayout*>(layout())->labelForField(field.edit));
        label->setText(ShownSay(field.label));
        field.edit->setAccessibleName(ShownSay(field.label));
        if (field.hint)
            field.edit->setPlaceholderText(ShownSay(field.hint));
    }
    m_windows->setPlaceholderText(Shown(WindowLayersText(AnalysisRequest())));
    m_north->setToolTip(ShownSay(L"正北从图形的 y 轴起逆时针的度数"));
    for (QLineEdit* edit : {m_windows, m_proposed, m_areas})
        edit->setToolTip(ShownSay(L"图层的名字，几个之间用逗号"));
}

bool RequestForm::Read(AnalysisRequest& request, CString& reason) const {
    return ReadLayers(*m_windows, request.windowLayers, reason) && ReadNeed(*m_need, request.need, reason) &&
           ReadNorth(*m_north, request.north, reason) && ReadLayers(*m_proposed, request.proposedLayers, reason);
}

bool RequestForm::ReadAreas(PointRequest& request, CString& reason) const {
    if (!ReadLayers(*m_areas, request.areaLayers, reason) || !ReadNeed(*m_need, request.need, reason) ||
        !ReadNorth(*m_north, request.north, reason))
        return false;
    if (request.areaLayers.empty())
        return Refuse(*m_areas, Say(L"没有写区域图层：请写地面、屋面等闭合轮廓所在的图层"), reason);
    const CString typed = Typed(m_spacing->text().trimmed());
    if (typed.IsEmpty())
        return true;
    const std::optional<double> spacing = ParseDecimal(typed);
    if (!spacing || *spacing <= 0.0 || *spacing > kMostSpacing)
        return Refuse(*m_spacing, SayFormat(L"“%s”不是点距：请写大于 0、不超过 1000 的米数，例如 1", Printable(typed)),
                      reason);
    request.spacing = *spacing;
    return true;
}

QStringList RequestForm::GetWindowTexts() const {
    return {m_windows->text(), m_need->text(), m_north->text(), m_proposed->text()};
}

QStringList RequestForm::GetAreaTexts() const {
    return {m_areas->text(), m_north->text(), m_spacing->text()};
}
