// Asks, keeps the answers, and shows them in table, time line and view.
#include "workbench/panel/AnalysisPanel.h"

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <algorithm>
#include <set>
#include <utility>

#include "platform/base/PlainText.h"
#include "platform/host/AcDbDatabase.h"
#include "platform/host/DrawingUnits.h"
#include "platform/host/ExitCode.h"
#include "workbench/Texts.h"
#include "workbench/commands/AnalysisRemarks.h"
#include "workbench/commands/AnalysisWords.h"
#include "workbench/commands/AskedDay.h"
#include "workbench/commands/EntityWords.h"
#include "workbench/commands/PointRemarks.h"
#include "workbench/panel/RequestForm.h"
#include "workbench/panel/ResultFiles.h"
#include "workbench/panel/ResultShapes.h"
#include "workbench/panel/WindowDayView.h"
#include "workbench/view/HoursLegend.h"
#include "workbench/view/IndexColors.h"
#include "workbench/view/SceneView.h"
#include "workbench/view/WidgetText.h"

AnalysisProgress ProgressTo(SceneProgress& progress) {
    return [&progress](std::size_t done, std::size_t total) {
        progress.total = total;
        progress.done = done;
        return !progress.isCancelled;
    };
}

namespace {

// Whoever opened a drawing without windows, of a site perhaps, wants something of it all the same.
constexpr const wchar_t* kNoWindows =
    L"没有窗可以分析。窗画在窗的图层上，是竖直的矩形，或平面图里的直线；指南“五分钟完成第一次分析”说明怎样画。"
    L"没有窗也可以：把地面等闭合轮廓的图层写进“区域图层”，按“画等时线”；或按 F6 看太阳和阴影。";
// Lines take some four times as long as the points before them.
constexpr std::size_t kPartsOfLines = 4;
constexpr std::size_t kParts = kPartsOfLines + 1;

AnalysisProgress PointsTo(SceneProgress& progress) {
    return [&progress](std::size_t done, std::size_t total) {
        progress.total = total * kParts;
        progress.done = done;
        return !progress.isCancelled;
    };
}

std::function<bool(double)> LinesTo(SceneProgress& progress) {
    return [&progress](double share) {
        const double points = static_cast<double>(progress.total) / kParts;
        progress.done = static_cast<std::size_t>(points * (1.0 + share * kPartsOfLines));
        return !progress.isCancelled;
    };
}

QString Sample(int rgb) {
    return QString("<span style=\"color:#%1\">&#9632;</span>&nbsp;").arg(rgb, 6, 16, QChar('0'));
}

}  // namespace

bool AnalysisPanel::RunAside(const wchar_t* title, const std::function<void(SceneProgress&)>& work) {
    bool isDone = false;
    m_isBusy = true;
    try {
        isDone = m_run(ShownSay(title), {m_form, m_runButton, m_lines, m_spotButton, m_project, m_files},
                       [&work](SceneProgress& progress) {
                           const FieldWords words;  // of that thread
                           work(progress);
                       });
    } catch (const std::bad_alloc&) {
        m_complain(Say(L"内存不够，没有分析"));
    } catch (const std::exception& error) {
        m_complain(SayFormat(L"内部错误：%s", FromUtf8(error.what())));
    }
    m_isBusy = false;
    ShowSpotButton();
    return isDone;
}

bool AnalysisPanel::MayBegin() {
    if (!m_mayRun())
        m_complain(Say(L"上一条命令还没有结束"));
    return m_mayRun();
}

bool AnalysisPanel::ReadRequest(AnalysisRequest& request) {
    CString reason;
    const bool isRead = m_form->Read(request, reason);
    if (!reason.IsEmpty())
        m_complain(reason);
    return isRead && ReadSettings(request);
}

// A place that nobody knows is told in words for the window: those of the command line name its subcommands.
bool AnalysisPanel::ReadSettings(DayRequest& request) {
    request.settings = CurrentSettings();
    if (!request.settings.place) {
        DayAnswer answer;
        answer.failure = AnalysisFailure::NoPlace;
        m_complain(FailureText(request, answer));
        return false;
    }
    request.heights = m_drawing.heights;
    return ReadDaySettings({}, request) == kExitOk;
}

bool AnalysisPanel::RunWindows() {
    const FieldWords words;
    const auto refuse = [this](const CString& why) {
        m_complain(why);
        return false;
    };
    if (!MayBegin())
        return false;
    if (!m_drawing.database)
        return refuse(Say(L"没有打开的图形：请先打开一个 DXF 文件"));
    auto report = std::make_shared<AnalysisReport>();
    if (!ReadRequest(report->request))
        return false;
    TellOfDrawing(*report);
    const AskedState state = StateNow(m_form->GetWindowTexts());
    const AcDbDatabase& database = *m_drawing.database;
    if (!RunAside(L"分析日照", [&](SceneProgress& progress) {
            report->answer = AnalyseWindows(database, report->request, ProgressTo(progress));
            TellEntities(database, *report);
        }))
        return false;
    if (report->answer.failure != AnalysisFailure::None)
        return refuse(FailureText(report->request, report->answer));
    FindStandardOf(report->request.settings, *report);
    for (const CString& each : MessagesOf(report->request, report->answer))
        m_complain(each);
    const std::shared_ptr<const AnalysisReport> before = std::exchange(m_windows, report);
    m_windowState = state;
    ShowAnswers();
    ChooseAgain(before.get());
    if (!report->answer.windows.empty())  // else a message has said so
        m_say(Typed(m_summary->text()));
    return true;
}

void AnalysisPanel::RunIsolines() {
    AskPoints(nullptr);
}

bool AnalysisPanel::AskPoints(const std::function<void(const PointsReport&)>& use) {
    const FieldWords words;
    const auto refuse = [this](const CString& why) {
        m_complain(why);
        return false;
    };
    if (!MayBegin())
        return false;
    if (!m_drawing.database)
        return refuse(Say(L"没有打开的图形：请先打开一个 DXF 文件"));
    auto report = std::make_shared<PointsReport>();
    CString reason;
    const bool isRead = m_form->ReadAreas(report->request, reason);
    if (!reason.IsEmpty())
        m_complain(reason);
    if (!isRead || !ReadSettings(report->request))
        return false;
    report->request.isolines = true;
    TellOfDrawing(*report);
    FindStandardOf(report->request.settings, *report);
    const AskedState state = StateNow(m_form->GetAreaTexts());
    const AcDbDatabase& database = *m_drawing.database;
    if (!RunAside(L"画等时线", [&](SceneProgress& progress) {
            report->answer = AnalysePoints(database, report->request, PointsTo(progress), LinesTo(progress));
            progress.total = 0;  // how long the rest takes is not known
            if (use && !progress.isCancelled && report->answer.failure == AnalysisFailure::None)
                use(*report);
        }))
        return false;
    if (report->answer.failure != AnalysisFailure::None)
        return refuse(PointFailureText(report->request, report->answer));
    for (const CString& each : MessagesOf(report->request, report->answer))
        m_complain(each);
    m_say(SayFormat(L"等时线：%d 条", static_cast<int>(report->answer.isolines.size())));
    report->answer.points = {};  // millions, perhaps, of which nothing is shown
    m_points = report;
    m_pointState = state;
    ShowAnswers();
    return true;
}

void AnalysisPanel::TellOfDrawing(DayReport& report) const {
    report.drawing = m_drawing.path;
    report.fingerprint = m_drawing.fingerprint;
    report.isChanged = m_drawing.database->IsModified();
}

// At once where that takes a moment: of a large drawing all that casts shadows is gathered first, which is for the
// button.
void AnalysisPanel::TakeSpot(const QcGePoint& place, const QcGeVector3d& outward) {
    constexpr std::size_t kMostAtOnce = 10'000;
    m_spot = Spot{place, outward, m_view.GetPicked()};
    if (m_isBusy)
        return;  // the button tells its day afterwards
    ShowSpotButton();
    if (m_mayRun() && !m_view.GetChosen() && m_drawing.scene && m_drawing.scene->faces.size() <= kMostAtOnce &&
        isVisible())
        RunSpot();
}

void AnalysisPanel::RunSpot() {
    const FieldWords words;
    if (!m_spot || !m_drawing.database || !MayBegin())
        return;
    SpotRequest request;
    AnalysisRequest asked;
    if (!ReadRequest(asked))
        return;
    static_cast<DayRequest&>(request) = asked;
    request.windowLayers = asked.windowLayers;
    request.place = m_spot->place;
    request.outward = m_spot->outward;
    const Spot spot = *m_spot;
    const AcDbDatabase& database = *m_drawing.database;
    SpotAnswer answer;
    if (!RunAside(L"分析一个点",
                  [&](SceneProgress& progress) { answer = AnalyseSpot(database, request, ProgressTo(progress)); }))
        return;
    if (answer.failure != AnalysisFailure::None)
        return m_complain(FailureText(request, answer));
    m_view.Choose({}, false);
    SelectChosen();
    m_toldSpot = ToldSpot{database.GetHandle(spot.entity), request, answer};
    ShowDay();
}

void AnalysisPanel::ShowSpotButton() {
    m_spotButton->setEnabled(m_spot.has_value());
    m_spotButton->setToolTip(m_spot ? ShownSay(L"算出在视图里点击的那一点何时有太阳")
                                    : ShownSay(L"先在视图里点击一个面，再按这里，看那一点何时有太阳"));
}

AskedState AnalysisPanel::StateNow(const QStringList& fields) const {
    return {m_drawing.scene, SettingsState(CurrentSettings(), CurrentTuningParameters()), fields};
}

void AnalysisPanel::SetDrawing(PanelDrawing drawing, bool isAnother) {
    m_drawing = std::move(drawing);
    ShowReadiness();
    m_spot.reset();  // what was there may be elsewhere
    ShowSpotButton();
    if (isAnother) {
        m_windows.reset();
        m_points.reset();
        m_files->Clear();
        m_view.Choose({}, false);
        m_toldSpot.reset();
        m_day->Clear();
        m_project->setChecked(true);
        ShowAnswers();
    }
    CheckState();
}

void AnalysisPanel::CheckState() {
    CString windows;
    CString points;
    if (m_windows)
        windows = ChangesBetween(m_windowState, StateNow(m_form->GetWindowTexts()));
    if (m_points)
        points = ChangesBetween(m_pointState, StateNow(m_form->GetAreaTexts()));
    QStringList texts;
    if (!windows.IsEmpty())
        texts << Shown(SayFormat(L"窗的结果已经过时：%s。请重新分析", windows));
    if (!points.IsEmpty())
        texts << Shown(SayFormat(L"等时线已经过时：%s。请重新画", points));
    m_state->setText(texts.join('\n'));
    m_state->setVisible(!texts.isEmpty());
}

bool AnalysisPanel::IsWithProject() const {
    return m_project->isChecked();
}

HiddenLayers AnalysisPanel::GetHidden() const {
    HiddenLayers hidden;
    if (!m_windows || !IsCompared(*m_windows) || IsWithProject() || !m_drawing.database)
        return hidden;
    const std::vector<std::string>& layers = m_drawing.scene->layers;
    for (std::size_t i = 0; i < layers.size(); ++i) {
        CString name = m_drawing.database->Decode(layers[i]);
        name.Trim();
        const auto& proposed = m_windows->request.proposedLayers;
        hidden.push_back(std::any_of(proposed.begin(), proposed.end(),
                                     [&](CString each) { return each.Trim().CompareNoCase(name) == 0; }));
    }
    return hidden;
}

void AnalysisPanel::ShowAnswers() {
    const bool isCompared = m_windows && IsCompared(*m_windows);
    m_project->setVisible(isCompared);
    for (const int column : {WindowModel::Before, WindowModel::Lost})
        m_table->setColumnHidden(column, !isCompared);
    m_model.SetReport(m_windows);
    m_table->resizeColumnsToContents();
    ShowShapes();
    m_files->SetHasLines(m_points != nullptr);
    ShowSummary();
    m_day->SetAnswerDay(m_windows  ? std::optional(m_windows->request.terms.day)
                        : m_points ? std::optional(m_points->request.terms.day)
                                   : std::nullopt);
    ShowLegend();
    CheckState();
    if (m_onHidden)
        m_onHidden();
}

void AnalysisPanel::SetHiddenCount(int count) {
    m_hiddenCount = count;
    ShowSummary();
}

void AnalysisPanel::ShowSummary() {
    CString summary = Say(L"还没有结果：打开图形，按“分析日照”，每个窗的时数就列在下面");
    if (m_windows) {
        const std::vector<WindowResult>& windows = m_windows->answer.windows;
        const auto count = [&](bool passes) {
            return static_cast<int>(std::count_if(windows.begin(), windows.end(),
                                                  [=](const WindowResult& each) { return each.passes == passes; }));
        };
        summary = windows.empty() ? Say(kNoWindows) : SayFormat(L"窗 %d 个", static_cast<int>(windows.size()));
        if (m_windows->request.need && !windows.empty())
            summary += SayFormat(L"：达标 %d 个，不达标 %d 个", count(true), count(false));
    }
    if ((m_windows || m_points) && m_hiddenCount > 0)
        summary += L"\n" + SayFormat(L"视图里隐藏的图层也计入：%d 个", m_hiddenCount);
    m_summary->setText(Shown(summary));
}

void AnalysisPanel::ShowShapes() {
    if (!m_windows && !m_points)
        return m_view.SetResults(nullptr);
    const double millimetres = UnitOf(*m_drawing.database).millimetres.value_or(1.0);
    m_view.SetResults(ShapesOf(m_windows.get(), m_points.get(), IsWithProject(), millimetres));
}

// Which colour is which hours, by the standard's table; of isolines those that there are.
std::vector<PlateRow> AnalysisPanel::GetLegend() const {
    std::vector<PlateRow> rows;
    if (m_windows) {
        const AnalysisRequest& request = m_windows->request;
        rows = HoursLegend(request.settings.standard->timeColors, request.need);
        if (!rows.empty())
            rows.insert(rows.begin(), {-1, ShownSay(L"颜色（小时）：").trimmed()});
    }
    std::set<int> hours;
    if (m_points)
        for (const Isoline& line : m_points->answer.isolines)
            hours.insert(line.hours);
    if (!hours.empty())
        rows.push_back({-1, ShownSay(L"等时线（小时）：").trimmed()});
    for (const int each : hours)
        rows.push_back({RgbOfLine(m_points->request.settings.standard->TimeColorOf(each), -1), QString::number(each)});
    return rows;
}

void AnalysisPanel::ShowLegend() {
    QString text;
    for (const PlateRow& row : GetLegend()) {
        const QString words = row.text.toHtmlEscaped();
        if (row.rgb >= 0)
            text += Sample(row.rgb) + QString(words).remove(' ') + " &nbsp;";
        else if (row.isMark)
            text += "<b>|&nbsp;" + QString(words).replace(' ', "&nbsp;") + "&nbsp;|</b> &nbsp;";
        else
            text += (text.isEmpty() ? "" : "<br>") + words + " ";
    }
    m_legend->setText(text);
    m_legend->setVisible(!text.isEmpty());
}

void AnalysisPanel::ChooseRow() {
    const QModelIndex current = m_table->selectionModel()->currentIndex();
    if (m_isSelecting || !current.isValid())
        return;
    Choose(m_model.WindowAt(current.row()), true);
}

// Chosen first: whoever is told of the entity then finds the window chosen already.
void AnalysisPanel::Choose(std::size_t window, bool isShown) {
    m_toldSpot.reset();
    m_view.Choose(window, isShown);
    if (isShown)
        m_view.Pick(m_drawing.database->FindHandle(m_windows->answer.windows[window].handle));
    ShowDay();
    SelectChosen();
}

// The window that was chosen in the answer before, which has other hours now and perhaps another place, or is gone.
void AnalysisPanel::ChooseAgain(const AnalysisReport* before) {
    const std::optional<std::size_t> chosen = m_view.GetChosen();
    if (!before || !chosen || *chosen >= before->answer.windows.size())
        return;
    const WindowResult& then = before->answer.windows[*chosen];
    const std::vector<WindowResult>& windows = m_windows->answer.windows;
    const auto found = std::find_if(windows.begin(), windows.end(), [&](const WindowResult& each) {
        return each.handle == then.handle && each.name == then.name;
    });
    if (found != windows.end())
        return Choose(static_cast<std::size_t>(found - windows.begin()), false);
    m_view.Choose({}, false);
    m_day->Clear();
    SelectChosen();
}

void AnalysisPanel::ShowDay() {
    const std::optional<std::size_t> chosen = m_view.GetChosen();
    const bool isWindow = m_windows && chosen && *chosen < m_windows->answer.windows.size();
    if (!isWindow || chosen != m_dayOf)
        m_isDayNew = isWindow;
    m_dayOf = isWindow ? chosen : std::nullopt;
    if (isWindow)
        m_day->SetWindow(*m_windows, *chosen, IsWithProject());
    else if (m_toldSpot)
        m_day->SetSpot(SayFormat(L"%s 上点击的一点", NameOf(m_toldSpot->handle)), m_toldSpot->request,
                       m_toldSpot->answer);
    else
        m_day->Clear();
}

void AnalysisPanel::SetSun(const std::optional<ViewSun>& sun, CalendarDay day) {
    if (sun)
        m_day->SetTime(sun->trueSolarTime);
    // Once: whoever then scrolls elsewhere while the day plays is left there.
    if (sun && std::exchange(m_isDayNew, false))
        ensureWidgetVisible(m_day);
    m_day->SetSeenDay(sun ? std::optional(day) : std::nullopt);
}

void AnalysisPanel::SelectChosen() {
    m_isSelecting = true;
    const std::optional<std::size_t> chosen = m_view.GetChosen();
    const int row = m_windows && chosen ? m_model.RowOf(*chosen) : -1;
    if (row < 0) {
        m_table->clearSelection();
        m_table->setCurrentIndex({});
    } else if (m_table->currentIndex().row() != row) {
        m_table->setCurrentIndex(m_model.index(row, 0));
    }
    m_isSelecting = false;
}

// What a key has picked is a window, too, when the analysis had it for one; of several with one handle the first.
void AnalysisPanel::TakePicked(AcDbObjectId id) {
    if (!m_windows || m_view.GetChosen() || id.isNull() || !m_drawing.database)
        return;
    const std::uint64_t handle = m_drawing.database->GetHandle(id);
    const std::vector<WindowResult>& windows = m_windows->answer.windows;
    const auto found = std::find_if(windows.begin(), windows.end(),
                                    [=](const WindowResult& each) { return handle != 0 && each.handle == handle; });
    if (found != windows.end())
        Choose(static_cast<std::size_t>(found - windows.begin()), false);
}

CString AnalysisPanel::NameOf(std::uint64_t handle) const {
    if (handle == 0 || !m_drawing.database)
        return HandleOrNone(handle);
    const EntityWords words = WordsOfEntity(*m_drawing.database, m_drawing.database->FindHandle(handle));
    if (words.type.IsEmpty())
        return HandleOrNone(handle);
    return SayFormat(L"%s（%s，图层 %s）", HandleOrNone(handle), Printable(words.type), Printable(words.layer));
}
