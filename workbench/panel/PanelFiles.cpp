// What the panel makes of an answer: a report and a film, as the subcommand for windows makes them.
#include <algorithm>
#include <optional>

#include "facts/Settings.h"
#include "platform/base/PlainText.h"
#include "platform/host/AcDbDatabase.h"
#include "platform/host/ExitCode.h"
#include "platform/host/Progress.h"
#include "platform/window/CFileDialog.h"
#include "workbench/Texts.h"
#include "workbench/commands/AnalysisPage.h"
#include "workbench/commands/AskedFilm.h"
#include "workbench/commands/AskedReport.h"
#include "workbench/commands/PointsPage.h"
#include "workbench/film/Film.h"
#include "workbench/panel/AnalysisPanel.h"
#include "workbench/panel/RequestForm.h"
#include "workbench/panel/ResultFiles.h"
#include "workbench/panel/SuggestedName.h"
#include "workbench/view/SceneView.h"

namespace {

class ProgressInBar : public Progress {
public:
    explicit ProgressInBar(SceneProgress& progress) : m_progress(progress) {}
    bool Show(int done, int total, const CString& /*text*/) override {
        m_progress.total = static_cast<std::size_t>(total);
        m_progress.done = static_cast<std::size_t>(done);
        return !m_progress.isCancelled;
    }

private:
    SceneProgress& m_progress;
};

// From where the view looks; its plan is the film's.
void LookAs(const ViewCamera& camera, double north, FilmRequest& film) {
    constexpr double kSteepest = 89.0;
    if (camera.GetAltitude() > kSteepest)
        film.view = StandardView::Top;
    else
        film.camera = FilmCamera{camera.GetAzimuth() + north, std::max(0.0, camera.GetAltitude())};
}

}  // namespace

bool AnalysisPanel::HoldsAnswer() const {
    return m_windows && ChangesBetween(m_windowState, StateNow(m_form->GetWindowTexts())).IsEmpty();
}

bool AnalysisPanel::HasAnswer() {
    return HoldsAnswer() || RunWindows();
}

bool AnalysisPanel::LacksWindows() const {
    const bool isLacking = HoldsAnswer() && m_windows->answer.windows.empty();
    if (isLacking)
        m_complain(Say(L"没有分析任何窗，没有写出报告：请先改“窗的图层”，或在图里画窗"));
    return isLacking;
}

// Whether the folder may be taken is found out before anybody waits.
std::optional<PageRequest> AnalysisPanel::AskForFolder() {
    const FieldWords words;
    if (!m_drawing.database || !MayBegin())
        return {};
    const CString suggested = SuggestedName(m_drawing.path, CurrentSettings().Day(), L"");
    CFolderPickerDialog dialog(suggested.GetString(), 0, acedGetAcadFrame());
    if (dialog.DoModal() != IDOK)
        return {};
    AskedReport asked = m_form->GetReport();
    asked.folder = dialog.GetPathName();
    PageRequest page;
    return ReadAskedReport(asked, page) == kExitOk ? std::optional(page) : std::nullopt;
}

void AnalysisPanel::TellOfReport(const PageRequest& page) {
    const CString file = page.folder + L"/index.html";
    m_say(SayFormat(L"报告已写到 %s", Printable(file)));
    m_files->SetMade(Say(L"报告："), file);
}

void AnalysisPanel::MakeReport() {
    if (LacksWindows())  // before anybody chooses a folder
        return;
    const std::optional<PageRequest> page = AskForFolder();
    if (!page || !HasAnswer() || LacksWindows())
        return;
    const AnalysisReport& report = *m_windows;
    const AcDbDatabase& database = *m_drawing.database;
    int code = kExitFailed;
    const auto write = [&](SceneProgress& progress) {
        code = WriteAnalysisPage(report, database, *page, ProgressTo(progress));
    };
    if (RunAside(L"写出报告", write) && code == kExitOk)
        TellOfReport(*page);
}

void AnalysisPanel::MakeLinesReport() {
    const std::optional<PageRequest> page = AskForFolder();
    if (!page)
        return;
    int code = kExitFailed;
    const auto write = [&](const PointsReport& report) { code = WritePointsPage(report, *m_drawing.database, *page); };
    if (AskPoints(write) && code == kExitOk)
        TellOfReport(*page);
}

// What draws belongs to the thread that records, and ends there. How long and large it will be stands beside its name.
void AnalysisPanel::MakeFilm() {
    const FieldWords words;
    if (!m_drawing.database || !MayBegin())
        return;
    AskedFilm asked = m_form->GetFilm();
    asked.file = SuggestedName(m_drawing.path, CurrentSettings().Day(), L".avi");
    asked.isYes = true;  // the dialog asks
    std::optional<FilmRequest> request;
    AnalysisRequest day;
    if (ReadAskedFilm(asked, request) != kExitOk || !ReadRequest(day))
        return;
    const CString size = FilmSizeText(*request, day);
    const CString type = size.IsEmpty() ? Say(L"录像 (*.avi)") : SayFormat(L"录像，%s (*.avi)", size);
    CFileDialog dialog(FALSE, L"avi", asked.file->GetString(), OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT,
                       (type + L"|*.avi||").GetString(), acedGetAcadFrame());
    if (dialog.DoModal() != IDOK)
        return;
    request->file = dialog.GetPathName();
    LookAs(m_view.GetCamera(), day.north, *request);
    Film film(*request);
    if (film.Check(day, m_drawing.path) != kExitOk || !HasAnswer())
        return;
    const AnalysisReport& report = *m_windows;
    const AcDbDatabase& database = *m_drawing.database;
    int code = kExitFailed;
    const auto shoot = [&](SceneProgress& progress) {
        Film shot = std::move(film);
        ProgressInBar bar(progress);
        code = shot.Prepare();
        if (code == kExitOk)
            code = shot.Shoot(database, report.request, report.answer, bar, [&] { return progress.isGivenUp.load(); });
    };
    if (RunAside(L"录制动画", shoot) && code == kExitOk)
        m_files->SetMade(Say(L"录像："), request->file);
}
