// The widgets of the panel: where they stand, their texts, and what they do.
#include <QAction>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>
#include <QVBoxLayout>

#include "platform/host/AcDbDatabase.h"
#include "workbench/panel/ActionButton.h"
#include "workbench/panel/AnalysisPanel.h"
#include "workbench/panel/RequestForm.h"
#include "workbench/panel/ResultFiles.h"
#include "workbench/panel/WindowCells.h"
#include "workbench/panel/WindowDayView.h"
#include "workbench/view/SceneView.h"
#include "workbench/view/WidgetText.h"

namespace {

QLabel* NewLabel(QWidget& inside, const char* name) {
    auto* label = new QLabel(&inside);
    label->setObjectName(name);
    label->setWordWrap(true);
    return label;
}

// What a scroll area asks for room: it takes the height that one would like, where texts break their lines, and has the
// panel scroll although fields and table can do with less.
class Column : public QWidget {
public:
    int heightForWidth(int width) const override { return layout()->minimumHeightForWidth(width); }
};

}  // namespace

AnalysisPanel::AnalysisPanel(QWidget* parent, SceneView& view)
    : QScrollArea(parent),
      m_view(view),
      m_runAction(new QAction(this)),
      m_linesAction(new QAction(this)),
      m_reportAction(new QAction(this)),
      m_filmAction(new QAction(this)) {
    setObjectName("AnalysisPanel");
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_runAction->setShortcut(QKeySequence("F9"));
    m_reportAction->setShortcut(QKeySequence("Ctrl+R"));
    m_filmAction->setShortcut(QKeySequence("Ctrl+M"));
    for (QAction* action : GetActions())
        action->setEnabled(false);
    auto* inside = new Column;
    setWidget(inside);
    Build(*inside);
    Join();
    Retranslate();
    ShowAnswers();
    m_day->Clear();
}

void AnalysisPanel::Build(QWidget& inside) {
    auto* column = new QVBoxLayout(&inside);
    column->setContentsMargins(6, 4, 6, 4);
    column->setSpacing(4);
    m_form = new RequestForm(&inside);
    column->addWidget(m_form);
    auto* buttons = new QHBoxLayout;
    m_runButton = new QPushButton(&inside);
    m_runButton->setObjectName("RunAnalysis");
    m_lines = new QPushButton(&inside);
    m_lines->setObjectName("RunIsolines");
    buttons->addWidget(m_runButton, 1);
    buttons->addWidget(m_lines, 1);
    column->addLayout(buttons);
    m_files = new ResultFiles(&inside);
    column->addWidget(m_files);
    m_state = NewLabel(inside, "OutOfDate");
    QFont bold = m_state->font();
    bold.setBold(true);
    m_state->setFont(bold);
    column->addWidget(m_state);
    m_summary = NewLabel(inside, "AnalysisSummary");
    column->addWidget(m_summary);
    m_legend = NewLabel(inside, "AnalysisLegend");
    m_legend->setTextFormat(Qt::RichText);
    column->addWidget(m_legend);
    m_project = new QCheckBox(&inside);
    m_project->setObjectName("ShowProject");
    m_project->setChecked(true);
    column->addWidget(m_project);
    BuildTable(inside);
    m_day = new WindowDayView(&inside);
    column->addWidget(m_day);
    m_spotButton = new QPushButton(&inside);
    m_spotButton->setObjectName("RunSpot");
    column->addWidget(m_spotButton);
}

void AnalysisPanel::BuildTable(QWidget& inside) {
    auto* row = new QHBoxLayout;
    m_filter = new QLineEdit(&inside);
    m_filter->setObjectName("WindowFilter");
    m_filter->setClearButtonEnabled(true);
    m_failing = new QCheckBox(&inside);
    m_failing->setObjectName("OnlyFailing");
    row->addWidget(m_filter, 1);
    row->addWidget(m_failing);
    auto* column = static_cast<QVBoxLayout*>(inside.layout());
    column->addLayout(row);
    m_table = new QTableView(&inside);
    m_table->setObjectName("WindowTable");
    m_table->setModel(&m_model);
    m_table->setItemDelegate(new WindowCells(m_table));
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setAlternatingRowColors(true);
    m_table->setTabKeyNavigation(false);
    m_table->setWordWrap(false);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setDefaultSectionSize(m_table->fontMetrics().height() + 6);
    // Some rows are seen with their heading, however little room there is.
    constexpr int kRows = 4;
    m_table->setMinimumSize(100, m_table->horizontalHeader()->sizeHint().height() +
                                     kRows * m_table->verticalHeader()->defaultSectionSize() +
                                     m_table->horizontalScrollBar()->sizeHint().height() + 2 * m_table->frameWidth());
    m_table->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    m_table->setSortingEnabled(true);
    column->addWidget(m_table, 1);
}

void AnalysisPanel::Join() {
    connect(m_runAction, &QAction::triggered, this, [this] { RunWindows(); });
    connect(m_linesAction, &QAction::triggered, this, [this] { RunIsolines(); });
    connect(m_reportAction, &QAction::triggered, this, [this] { MakeReport(); });
    connect(m_filmAction, &QAction::triggered, this, [this] { MakeFilm(); });
    FollowAction(*m_runButton, *m_runAction);
    FollowAction(*m_lines, *m_linesAction);
    m_files->Follow(*m_reportAction, *m_filmAction);
    m_files->m_onLinesReport = [this] { MakeLinesReport(); };
    m_files->m_complain = [this](const CString& text) { m_complain(text); };
    connect(m_spotButton, &QPushButton::clicked, this, [this] { RunSpot(); });
    m_view.m_onSpot = [this](const QcGePoint& place, const QcGeVector3d& outward) { TakeSpot(place, outward); };
    const auto filter = [this] { m_model.SetFilter(m_filter->text(), m_failing->isChecked()); };
    connect(m_filter, &QLineEdit::textChanged, this, filter);
    connect(m_failing, &QCheckBox::toggled, this, filter);
    connect(&m_model, &QAbstractItemModel::modelReset, this, [this] { SelectChosen(); });
    connect(m_table->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this] { ChooseRow(); });
    connect(m_project, &QCheckBox::toggled, this, [this] {
        ShowShapes();
        ShowDay();
        if (m_onHidden)
            m_onHidden();
    });
    m_form->m_onChange = [this] {
        CheckState();
        if (const std::optional<double> north = m_form->GetNorth(); north && m_onNorth)
            m_onNorth(*north);
    };
    m_day->m_onTime = [this](double hours) {
        if (m_onTime)
            m_onTime(hours);
    };
    m_view.m_onChoose = [this] {
        m_toldSpot.reset();
        ShowDay();
        SelectChosen();
    };
    m_day->SetNames([this](std::uint64_t handle) { return NameOf(handle); });
    m_day->m_onEntity = [this](std::uint64_t handle) {
        if (!m_drawing.database)
            return;
        m_view.Pick(m_drawing.database->FindHandle(handle));
        m_view.Show(m_view.GetPicked());
    };
}

QWidget& AnalysisPanel::GetFirstField() const {
    return m_form->GetFirst();
}

QWidget& AnalysisPanel::GetTable() const {
    return *m_table;
}

QSize AnalysisPanel::minimumSizeHint() const {
    constexpr int kHeight = 80;
    return {widget()->minimumSizeHint().width() + verticalScrollBar()->sizeHint().width(), kHeight};
}

// What they do, and why they cannot now.
void AnalysisPanel::ShowReadiness() {
    const bool isReady = m_drawing.database != nullptr;
    const QString reason = isReady ? QString() : "\n" + ShownSay(L"没有打开的图形：请先打开一个 DXF 文件");
    m_runAction->setToolTip(ShownSay(L"分析每个窗的日照（F9）") + reason);
    m_linesAction->setToolTip(ShownSay(L"在区域图层的轮廓里画出每个整小时的线") + reason);
    m_reportAction->setToolTip(ShownSay(L"把结果写成一份可以打印的报告（Ctrl+R）") + reason);
    m_filmAction->setToolTip(ShownSay(L"从视图现在的方向把这一天录成动画（Ctrl+M）") + reason);
    for (QAction* action : GetActions())
        action->setEnabled(isReady);
}

void AnalysisPanel::Retranslate() {
    m_runAction->setText(ShownSay(L"分析日照(&A)"));
    m_linesAction->setText(ShownSay(L"画等时线(&I)"));
    m_reportAction->setText(ShownSay(L"报告(&R)..."));
    m_filmAction->setText(ShownSay(L"录像(&M)..."));
    ShowReadiness();
    m_files->Retranslate();
    m_runButton->setText(ShownSay(L"分析日照(&A)"));
    m_lines->setText(ShownSay(L"画等时线(&I)"));
    m_spotButton->setText(ShownSay(L"点击处的一天(&D)"));
    m_filter->setPlaceholderText(ShownSay(L"只看含有这些字的窗"));
    m_filter->setAccessibleName(ShownSay(L"只看含有这些字的窗"));
    m_failing->setText(ShownSay(L"只看不达标"));
    m_project->setText(ShownSay(L"显示方案，按有方案时的时数"));
    m_table->setAccessibleName(ShownSay(L"窗的列表"));
    m_state->setAccessibleDescription(ShownSay(L"结果是否过时"));
    m_form->Retranslate();
    m_model.Retranslate();
    m_day->Retranslate();
    // What was chosen in the old language is chosen in the new one.
    const std::optional<std::size_t> chosen = m_view.GetChosen();
    ShowAnswers();
    if (m_windows && chosen)
        Choose(*chosen, false);
    else
        ShowDay();
    ShowSpotButton();
}
