// The grid with 5,000 rows, filled, shown and painted, against a bare tree widget of the toolkit that does the same,
// and a walk through them page by page.
#include <QHeaderView>
#include <QScrollBar>
#include <QTreeWidget>
#include <cstdio>

#include "MedianReporter.h"
#include "platform/host/ResourceText.h"
#include "platform/window/CDialog.h"
#include "platform/window/ModalDriver.h"
#include "platform/window/QcUiGrid.h"

namespace {

constexpr int kProvinces = 50;
constexpr int kCities = 99;
constexpr int kRounds = 9;
constexpr int kMostMilliseconds = 200;
constexpr int kWidth = 560;
constexpr int kHeight = 400;
constexpr const char* kDialog =
    "1 DIALOGEX 0, 0, 400, 300\nSTYLE WS_POPUP | WS_CAPTION\nCAPTION \"bench\"\nFONT 9, \"sans\"\nBEGIN\nEND\n";
constexpr const wchar_t* kTitles[] = {L"省份", L"城市", L"经度", L"纬度", L"附注"};
constexpr const wchar_t* kTexts[] = {L"河北省", L"石家庄市", L"114度25分30秒", L" 38度02分00秒", L"气象站"};
constexpr int kColumnWidth = 80;

CDialog* g_dialog = nullptr;

QWidget* WidgetOf(const CWnd& window) {
    return reinterpret_cast<QWidget*>(window.GetSafeHwnd());
}

void Fill(QcUiGrid& grid) {
    for (int i = 0; i < kProvinces; ++i) {
        QcUiGridTreeRow* province = grid.AppendRow();
        province->SetItemText(0, kTexts[0]);
        for (int k = 0; k < kCities; ++k) {
            QcUiGridTreeRow* city = province->AppendChild();
            for (int column = 0; column < 5; ++column)
                city->SetItemText(column, kTexts[column]);
        }
    }
}

void MakeGrid(QcUiGrid& grid) {
    for (const wchar_t* title : kTitles)
        grid.AppendColumn(title, kColumnWidth);
    grid.SetOption(QCGRID_RESIZE_COLUMNS | QCGRID_MULTI_SELECT | QCGRID_LINES | QCGRID_TREE);
    grid.Create(0x56810000, {0, 0, kWidth, kHeight}, g_dialog, 2001);
    grid.FitLastColumn();
}

void Fill(QTreeWidget& tree) {
    for (int i = 0; i < kProvinces; ++i) {
        auto* province = new QTreeWidgetItem(&tree);
        province->setText(0, QString::fromWCharArray(kTexts[0]));
        for (int k = 0; k < kCities; ++k) {
            auto* city = new QTreeWidgetItem(province);
            for (int column = 0; column < 5; ++column)
                city->setText(column, QString::fromWCharArray(kTexts[column]));
        }
        province->setExpanded(true);
    }
}

void MakeTree(QTreeWidget& tree) {
    tree.setParent(WidgetOf(*g_dialog));
    tree.setGeometry(0, 0, kWidth, kHeight);
    tree.setUniformRowHeights(true);
    tree.setAlternatingRowColors(true);
    QStringList titles;
    for (const wchar_t* title : kTitles)
        titles << QString::fromWCharArray(title);
    tree.setHeaderLabels(titles);
    for (int column = 0; column < 5; ++column)
        tree.setColumnWidth(column, kColumnWidth);
    tree.show();
}

void OpenGrid(benchmark::State& state) {
    for (auto _ : state) {
        QcUiGrid grid(1, 100);
        MakeGrid(grid);
        Fill(grid);
        benchmark::DoNotOptimize(WidgetOf(grid)->grab());
        state.PauseTiming();
        grid.DestroyWindow();
        state.ResumeTiming();
    }
}

void OpenBareTree(benchmark::State& state) {
    for (auto _ : state) {
        auto tree = std::make_unique<QTreeWidget>();
        MakeTree(*tree);
        Fill(*tree);
        benchmark::DoNotOptimize(tree->grab());
        state.PauseTiming();
        tree.reset();
        state.ResumeTiming();
    }
}

// From the first row to the last, a page at a time, each page painted.
void Scroll(benchmark::State& state, QTreeView& view) {
    view.grab();
    QScrollBar& bar = *view.verticalScrollBar();
    int pages = 0;
    for (auto _ : state)
        for (int row = 0; row <= bar.maximum(); row += bar.pageStep(), ++pages) {
            bar.setValue(row);
            benchmark::DoNotOptimize(view.viewport()->grab());
        }
    state.SetItemsProcessed(pages);
}

void ScrollGrid(benchmark::State& state) {
    QcUiGrid grid(1, 100);
    MakeGrid(grid);
    Fill(grid);
    Scroll(state, *static_cast<QTreeView*>(WidgetOf(grid)));
    grid.DestroyWindow();
}

void ScrollBareTree(benchmark::State& state) {
    QTreeWidget tree;
    MakeTree(tree);
    Fill(tree);
    Scroll(state, tree);
}

void Print(const char* what, double ours, double bare, int most) {
    std::printf("%s: %.1f ms", what, ours * 1e3);
    if (most > 0)
        std::printf(" (at most %d)", most);
    std::printf(", a bare tree widget: %.1f ms, ratio %.2f\n", bare * 1e3, ours / bare);
}

}  // namespace

BENCHMARK(OpenGrid)->Iterations(1)->Repetitions(kRounds)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenBareTree)->Iterations(1)->Repetitions(kRounds)->Unit(benchmark::kMillisecond);
BENCHMARK(ScrollGrid)->Iterations(1)->Repetitions(kRounds)->Unit(benchmark::kMillisecond);
BENCHMARK(ScrollBareTree)->Iterations(1)->Repetitions(kRounds)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
    InitializeForMedians(argc, argv);
    MedianReporter reporter;

    AfxSetResourceText(nullptr, kDialog);
    CDialog dialog(1);
    g_dialog = &dialog;
    const ModalDriver driver([&reporter](const ModalWindow&) {
        benchmark::RunSpecifiedBenchmarks(&reporter);
        return 2;
    });
    dialog.DoModal();
    AfxSetResourceText(nullptr, {});

    std::map<std::string, double>& seconds = reporter.cpuSeconds;  // others may share the machine
    if (seconds["OpenGrid"] > 0 && seconds["OpenBareTree"] > 0)
        Print("Opening 5,000 rows", seconds["OpenGrid"], seconds["OpenBareTree"], kMostMilliseconds);
    if (seconds["ScrollGrid"] > 0 && seconds["ScrollBareTree"] > 0)
        Print("Paging through them", seconds["ScrollGrid"], seconds["ScrollBareTree"], 0);
    return 0;
}
