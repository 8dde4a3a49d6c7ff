// Reads the fields, strictly: what is no number is refused, never guessed.
#include "workbench/panel/RequestForm.h"

#include <QCheckBox>
#include <QEvent>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QScrollBar>
#include <QToolButton>
#include <algorithm>
#include <cmath>
#include <optional>

#include "analysis/PointAnalysis.h"
#include "analysis/ResultLayers.h"
#include "analysis/WindowAnalysis.h"
#include "facts/NumberText.h"
#include "platform/base/PlainText.h"
#include "platform/base/TextNumber.h"
#include "platform/host/ExitCode.h"
#include "workbench/Texts.h"
#include "workbench/commands/AnalysisRemarks.h"
#include "workbench/commands/AskedDay.h"
#include "workbench/commands/AskedPlan.h"
#include "workbench/view/WidgetText.h"

namespace {

constexpr double kMostSpacing = 1000.0;

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

std::optional<CString> Given(const QLineEdit& edit) {
    const CString typed = Typed(edit.text().trimmed());
    return typed.IsEmpty() ? std::nullopt : std::optional(typed);
}

// For what an option's own reader has refused, and told why.
bool Refused(QLineEdit& edit) {
    edit.setFocus();
    edit.selectAll();
    return false;
}

// A direction of more than a turn becomes what it was taken for: it is said once, and what holds is seen.
void ShowTaken(QLineEdit& edit, const std::optional<double>& degrees) {
    constexpr double kTurn = 360.0;
    const std::optional<double> typed = ParseDecimal(Typed(edit.text().trimmed()));
    if (typed && degrees && std::fabs(*typed) >= kTurn)
        edit.setText(Shown(DoubleToText(*degrees)));
}

}  // namespace

RequestForm::RequestForm(QWidget* parent) : QScrollArea(parent) {
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);  // its fields take it
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    auto* inside = new QWidget;
    setWidget(inside);
    auto* form = new QFormLayout(inside);
    form->setContentsMargins(0, 0, 0, 0);
    form->setVerticalSpacing(3);
    form->setRowWrapPolicy(QFormLayout::DontWrapRows);
    constexpr const wchar_t* kLayers = L"图层的名字，几个之间用逗号";
    m_windows = Add(*form, "WindowLayers", L"窗的图层", nullptr, kLayers);
    m_need = Add(*form, "Need", L"需要（小时）", L"没有结论", nullptr);
    m_north = Add(*form, "North", L"正北（度）", L"0", L"正北从图形的 y 轴起逆时针的度数");
    m_proposed = Add(*form, "Proposed", L"方案图层", L"没有方案", kLayers);
    m_areas = Add(*form, "Areas", L"区域图层", L"画等时线时要有", kLayers);
    m_spacing = Add(*form, "Spacing", L"点距（米）", L"1", nullptr);
    BuildMore();
    m_need->setText("2");
    Retranslate();
}

void RequestForm::BuildMore() {
    m_fold = new QToolButton(widget());
    m_fold->setObjectName("MoreFields");
    m_fold->setCheckable(true);
    m_fold->setAutoRaise(true);
    m_fold->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_fold->setFocusPolicy(Qt::StrongFocus);
    m_fold->installEventFilter(this);
    m_more = new QWidget(widget());
    auto* rows = static_cast<QFormLayout*>(widget()->layout());
    rows->addRow(m_fold);
    rows->addRow(m_more);
    auto* form = new QFormLayout(m_more);
    form->setContentsMargins(0, 0, 0, 0);
    form->setVerticalSpacing(3);
    m_sill = Add(*form, "Sill", L"窗台标高（米）", nullptr, L"平面图里标高为 0 的窗的窗台标高");
    m_windowHeight = Add(*form, "WindowHeight", L"窗高（米）", nullptr, L"平面图里没有厚度的窗的窗高");
    m_storeys = Add(*form, "Storeys", L"层数=层高", L"1", L"把平面图里的窗重复成几层，例如 6=2.9");
    m_facing = Add(*form, "Facing", L"窗朝向（度）", nullptr, L"分不清室外侧的窗的朝向，从正东起逆时针的度数");
    m_altitude = Add(*form, "LeastAltitude", L"最低高度角", L"0", L"太阳高度角低于它的时间不计");
    m_scope = new QCheckBox(m_more);
    m_scope->setObjectName("Scope");
    m_scope->installEventFilter(this);
    form->addRow(m_scope);
    m_project = Add(*form, "ReportProject", L"项目名称", nullptr, L"报告上的项目名称");
    m_author = Add(*form, "ReportAuthor", L"编制人", nullptr, L"报告上的编制人");
    m_every = Add(*form, "FilmEvery", L"录像每隔（分）", L"5", L"录像每隔多少分钟一幅画面，1 到 720");
    m_size = Add(*form, "FilmSize", L"录像大小", L"1280x720", L"录像画面的大小，到 3840x2160");
    connect(m_scope, &QCheckBox::toggled, this, [this] { TakeChange(); });
    connect(m_fold, &QToolButton::toggled, this, [this] { ShowFolded(); });
}

QLineEdit* RequestForm::Add(QFormLayout& form, const char* name, const wchar_t* text, const wchar_t* hint,
                            const wchar_t* tip) {
    auto* edit = new QLineEdit(form.parentWidget());
    edit->setObjectName(name);
    edit->setMinimumWidth(60);
    edit->installEventFilter(this);
    auto* label = new QLabel(form.parentWidget());
    label->setBuddy(edit);
    form.addRow(label, edit);
    connect(edit, &QLineEdit::textChanged, this, [this] { TakeChange(); });
    m_fields.push_back({edit, label, text, hint, tip});
    return edit;
}

QWidget& RequestForm::GetFirst() const {
    return *m_windows;
}

QSize RequestForm::sizeHint() const {
    return {minimumSizeHint().width(), widget()->sizeHint().height()};
}

// A few fields are seen at least, and nothing is cut off at the side.
QSize RequestForm::minimumSizeHint() const {
    constexpr int kRows = 3;
    const QSize all = widget()->minimumSizeHint();
    const int height = kRows * (m_windows->sizeHint().height() + 3);
    return {all.width() + verticalScrollBar()->sizeHint().width(), std::min(all.height(), height)};
}

bool RequestForm::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn) {
        auto* field = static_cast<QWidget*>(watched);
        ensureWidgetVisible(field, 0, field->height());  // of a field for text it means the cursor alone
    }
    return QScrollArea::eventFilter(watched, event);
}

void RequestForm::TakeChange() {
    ShowFolded();
    if (m_onChange)
        m_onChange();
}

// Nothing that counts is out of sight without a word.
void RequestForm::ShowFolded() {
    m_more->setVisible(m_fold->isChecked());
    m_fold->setArrowType(m_fold->isChecked() ? Qt::DownArrow : Qt::RightArrow);
    const auto count = std::count_if(m_fields.begin(), m_fields.end(), [this](const Field& field) {
        return field.edit->parentWidget() == m_more && !field.edit->text().trimmed().isEmpty();
    });
    const int filled = static_cast<int>(count) + (m_scope->isChecked() ? 1 : 0);
    updateGeometry();
    m_fold->setText(filled == 0 ? ShownSay(L"更多") : Shown(SayFormat(L"更多（已填 %d 项）", filled)));
}

void RequestForm::Retranslate() {
    for (const Field& field : m_fields) {
        field.label->setText(ShownSay(field.text));
        field.edit->setAccessibleName(ShownSay(field.text));
        if (field.hint)
            field.edit->setPlaceholderText(ShownSay(field.hint));
        if (field.tip)
            field.edit->setToolTip(ShownSay(field.tip));
    }
    m_windows->setPlaceholderText(Shown(WindowLayersText(AnalysisRequest())));
    m_scope->setText(ShownSay(L"略去太远的遮挡"));
    m_scope->setToolTip(ShownSay(L"按范围、高度的参数略去太远的遮挡"));
    m_fold->setToolTip(ShownSay(L"平面图里的窗、朝向、范围、报告和录像"));
    ShowFolded();
}

// One at a time, to know whose fault it was; each reading of them takes north as 0 unless it is given.
bool RequestForm::ReadDay(DayRequest& request) const {
    const std::pair<QLineEdit*, std::optional<CString> AskedDay::*> fields[] = {{m_need, &AskedDay::need},
                                                                                {m_facing, &AskedDay::facing},
                                                                                {m_altitude, &AskedDay::leastAltitude},
                                                                                {m_north, &AskedDay::north}};
    for (const auto& [edit, field] : fields) {
        AskedDay asked;
        asked.*field = Given(*edit);
        if (ReadAskedDay(asked, request) != kExitOk)
            return Refused(*edit);
    }
    ShowTaken(*m_north, request.north);
    ShowTaken(*m_facing, request.facing);
    return true;
}

// One at a time, to know whose fault it was.
bool RequestForm::ReadPlan(PlanRules& rules) const {
    if (ReadAskedPlan({Given(*m_sill), {}, {}}, rules) != kExitOk)
        return Refused(*m_sill);
    if (ReadAskedPlan({{}, Given(*m_windowHeight), {}}, rules) != kExitOk)
        return Refused(*m_windowHeight);
    return ReadAskedPlan({{}, {}, Given(*m_storeys)}, rules) == kExitOk || Refused(*m_storeys);
}

bool RequestForm::Read(AnalysisRequest& request, CString& reason) const {
    request.isScoped = m_scope->isChecked();
    return ReadLayers(*m_windows, request.windowLayers, reason) && ReadDay(request) && ReadPlan(request.plan) &&
           ReadLayers(*m_proposed, request.proposedLayers, reason);
}

bool RequestForm::ReadAreas(PointRequest& request, CString& reason) const {
    if (!ReadLayers(*m_areas, request.areaLayers, reason) || !ReadDay(request))
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
    QStringList texts;
    for (const QLineEdit* edit :
         {m_windows, m_need, m_north, m_proposed, m_sill, m_windowHeight, m_storeys, m_facing, m_altitude})
        texts << edit->text();
    return texts << (m_scope->isChecked() ? "1" : "0");
}

QStringList RequestForm::GetAreaTexts() const {
    return {m_areas->text(), m_north->text(), m_spacing->text(), m_facing->text(), m_altitude->text()};
}

AskedReport RequestForm::GetReport() const {
    AskedReport asked;
    asked.project = Given(*m_project);
    asked.author = Given(*m_author);
    return asked;
}

AskedFilm RequestForm::GetFilm() const {
    AskedFilm asked;
    asked.every = Given(*m_every);
    asked.size = Given(*m_size);
    return asked;
}

std::optional<double> RequestForm::GetNorth() const {
    const CString typed = Typed(m_north->text().trimmed());
    return typed.IsEmpty() ? 0.0 : ParseDecimal(typed);
}

std::vector<KeptField> RequestForm::GetKept() const {
    std::vector<KeptField> kept;
    for (const Field& field : m_fields)
        kept.emplace_back(Typed(field.edit->objectName()), Typed(field.edit->text()));
    kept.emplace_back(Typed(m_scope->objectName()), m_scope->isChecked() ? L"1" : L"0");
    return kept;
}

// What is filled in is seen.
void RequestForm::SetKept(const std::vector<KeptField>& kept) {
    for (const auto& [name, text] : kept) {
        for (const Field& field : m_fields)
            if (Typed(field.edit->objectName()) == name)
                field.edit->setText(Shown(text));
        if (Typed(m_scope->objectName()) == name)
            m_scope->setChecked(text == L"1");
    }
    const auto isFilled = [this](const Field& field) {
        return field.edit->parentWidget() == m_more && !field.edit->text().isEmpty();
    };
    m_fold->setChecked(m_scope->isChecked() || std::any_of(m_fields.begin(), m_fields.end(), isFilled));
}
