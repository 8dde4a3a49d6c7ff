// The panel that runs analyses of the open drawing and shows their answers, beside the view and in it.
// Why: docs/decisions/workbench.md
#pragma once

#include <QScrollArea>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "analysis/SpotAnalysis.h"
#include "calendar/CalendarDay.h"
#include "platform/geometry/QcGeVector3d.h"
#include "platform/host/AcDbObjectId.h"
#include "scene/LayerHeight.h"
#include "scene/SceneProgress.h"
#include "workbench/commands/AskedReport.h"
#include "workbench/commands/PointsReport.h"
#include "workbench/panel/AskedState.h"
#include "workbench/panel/WindowModel.h"
#include "workbench/view/Plate.h"
#include "workbench/view/ScenePick.h"
#include "workbench/view/ViewSun.h"

class AcDbDatabase;
class QAction;
class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;
class RequestForm;
class ResultFiles;
class SceneView;
class WindowDayView;

// What an analysis tells of its progress, told on.
AnalysisProgress ProgressTo(SceneProgress& progress);

// The drawing that is analysed. Without a database there is none.
struct PanelDrawing {
    const AcDbDatabase* database = nullptr;
    std::shared_ptr<const Scene> scene;
    std::vector<LayerHeight> heights;
    CString path;
    std::optional<CString> fingerprint;  // of the file
};

// Answers are kept until the next one, or another drawing, comes. When drawing, settings or fields are no more those
// that an answer was made with, the panel says so above it.
class AnalysisPanel : public QScrollArea {
public:
    AnalysisPanel(QWidget* parent, SceneView& view);

    // Another drawing, or a later state of the same one.
    void SetDrawing(PanelDrawing drawing, bool isAnother);
    // To be called whenever settings may have changed.
    void CheckState();
    // Somebody has picked an entity in the view.
    void TakePicked(AcDbObjectId id);
    // Which of the scene's layers are hidden because the project is.
    HiddenLayers GetHidden() const;
    // How many layers the view does not show, which count nevertheless.
    void SetHiddenCount(int count);
    // What the colours mean that are shown in the view; empty without results.
    std::vector<PlateRow> GetLegend() const;
    // The sun that the view shows, and its day; none while it shows none.
    void SetSun(const std::optional<ViewSun>& sun, CalendarDay day);
    void Retranslate();

    // False when there is no answer; why has been said.
    bool RunWindows();
    void RunIsolines();
    // The day of the spot that was clicked last; nothing where there is none.
    void RunSpot();
    // Ask where to, and make the answer that they are of when there is none that holds.
    void MakeReport();
    void MakeLinesReport();  // always made anew, because points are not kept
    void MakeFilm();
    // To run, to draw isolines, to make a report, and a film: possible when a drawing is open. The buttons follow them.
    std::vector<QAction*> GetActions() const { return {m_runAction, m_linesAction, m_reportAction, m_filmAction}; }
    // Where the fields begin, and the windows are listed.
    QWidget& GetFirstField() const;
    QWidget& GetTable() const;
    RequestForm& GetForm() const { return *m_form; }
    ResultFiles& GetFiles() const { return *m_files; }

    // Each must be set. Runs work in a thread of its own while events go on, with these widgets disabled, and nobody
    // changes the drawing; false when something else runs.
    std::function<bool(const QString& title, const std::vector<QWidget*>& disabled,
                       const std::function<void(SceneProgress&)>& work)>
        m_run;
    // Whether that would begin: nothing else runs, and the window stays.
    std::function<bool()> m_mayRun;
    std::function<void(const CString&)> m_say;
    std::function<void(const CString&)> m_complain;
    std::function<void()> m_onHidden;
    // Somebody has chosen a moment: true solar time, hours.
    std::function<void(double)> m_onTime;
    // The field of the north holds another number.
    std::function<void(double degrees)> m_onNorth;

protected:
    QSize sizeHint() const override { return {320, 560}; }
    // It scrolls up and down alone: nothing is cut off at the side.
    QSize minimumSizeHint() const override;

private:
    void Build(QWidget& inside);
    void BuildTable(QWidget& inside);
    void Join();
    // Whether something may run now; says why not.
    bool MayBegin();
    bool RunAside(const wchar_t* title, const std::function<void(SceneProgress&)>& work);
    // The fields, the settings in force and the heights. False, and why has been said, when one of them will not do.
    bool ReadRequest(AnalysisRequest& request);
    bool ReadSettings(DayRequest& request);
    bool HoldsAnswer() const;
    bool HasAnswer();
    // Whether an answer that holds has none; that there is no report then has been said.
    bool LacksWindows() const;
    // Asks for isolines; `use` gets the whole answer, on another thread, with the points that are not kept. False when
    // there is no answer; why has been said.
    bool AskPoints(const std::function<void(const PointsReport&)>& use);
    void TellOfDrawing(DayReport& report) const;
    // The folder that somebody chose, with what the page begins with; none when nobody did, or it will not do.
    std::optional<PageRequest> AskForFolder();
    void ShowReadiness();
    void TellOfReport(const PageRequest& page);
    AskedState StateNow(const QStringList& fields) const;
    bool IsWithProject() const;
    void ShowAnswers();
    void ShowSummary();
    void ShowShapes();
    void ShowLegend();
    void ChooseRow();
    void Choose(std::size_t window, bool isShown);
    void ChooseAgain(const AnalysisReport* before);
    void ShowDay();
    void SelectChosen();
    CString NameOf(std::uint64_t handle) const;
    void ShowSpotButton();
    void TakeSpot(const QcGePoint& place, const QcGeVector3d& outward);

    SceneView& m_view;
    PanelDrawing m_drawing;
    std::shared_ptr<const AnalysisReport> m_windows;
    std::shared_ptr<const PointsReport> m_points;
    AskedState m_windowState;
    AskedState m_pointState;
    WindowModel m_model;
    struct Spot {
        QcGePoint place;  // the drawing's units
        QcGeVector3d outward;
        AcDbObjectId entity;
    };
    std::optional<Spot> m_spot;  // that was clicked last
    // The spot whose day is shown.
    struct ToldSpot {
        std::uint64_t handle;
        SpotRequest request;
        SpotAnswer answer;
    };
    std::optional<ToldSpot> m_toldSpot;
    bool m_isBusy = false;
    int m_hiddenCount = 0;
    bool m_isSelecting = false;          // by us, and not by the user
    bool m_isDayNew = false;             // nobody has looked at an hour of it yet
    std::optional<std::size_t> m_dayOf;  // the window whose day is shown

    QAction* m_runAction;
    QAction* m_linesAction;
    QAction* m_reportAction;
    QAction* m_filmAction;
    ResultFiles* m_files = nullptr;
    RequestForm* m_form = nullptr;
    QPushButton* m_runButton = nullptr;
    QPushButton* m_lines = nullptr;
    QPushButton* m_spotButton = nullptr;
    QLabel* m_state = nullptr;
    QLabel* m_summary = nullptr;
    QLabel* m_legend = nullptr;
    QLineEdit* m_filter = nullptr;
    QCheckBox* m_failing = nullptr;
    QCheckBox* m_project = nullptr;
    QTableView* m_table = nullptr;
    WindowDayView* m_day = nullptr;
};
