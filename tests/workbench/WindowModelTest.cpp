// Rows of the table of windows: their order, which there are, and what stands in them.
#include "workbench/panel/WindowModel.h"

#include <gtest/gtest.h>

#include "workbench/AnalysisForTests.h"

namespace {

WindowResult Judged(std::uint64_t handle, const CString& name, double minutes) {
    WindowResult window = LitWindow(handle, name);
    window.judged = minutes;
    window.passes = minutes >= 120.0;
    return window;
}

std::shared_ptr<const AnalysisReport> ReportOf(std::vector<WindowResult> windows) {
    auto report = std::make_shared<AnalysisReport>(BareReport());
    report->answer.windows = std::move(windows);
    return report;
}

class WindowModelTest : public testing::Test {
protected:
    std::vector<std::size_t> Rows() const {
        std::vector<std::size_t> rows;
        for (int i = 0; i < m_model.rowCount(); ++i)
            rows.push_back(m_model.WindowAt(i));
        return rows;
    }
    std::string Cell(int row, int column) const {
        return m_model.data(m_model.index(row, column), Qt::DisplayRole).toString().toStdString();
    }
    WindowModel m_model;
};

using Order = std::vector<std::size_t>;

}  // namespace

TEST_F(WindowModelTest, KeepsTheOrderOfTheDrawingAmongEquals) {
    m_model.SetReport(ReportOf({Judged(1, L"1-10-1", 90), Judged(2, L"1-9-1", 200), Judged(3, L"1-10-2", 90),
                                Judged(4, L"1-2-1", 130), WindowWithoutSide(5, L"1-1-1")}));
    EXPECT_EQ(Rows(), (Order{0, 1, 2, 3, 4})) << "as drawn";
    m_model.sort(WindowModel::Hours, Qt::AscendingOrder);
    EXPECT_EQ(Rows(), (Order{4, 0, 2, 3, 1})) << "what could not be told comes first";
    m_model.sort(WindowModel::Hours, Qt::DescendingOrder);
    EXPECT_EQ(Rows(), (Order{1, 3, 0, 2, 4}));
    m_model.sort(WindowModel::Verdict, Qt::AscendingOrder);
    EXPECT_EQ(Rows(), (Order{0, 2, 1, 3, 4})) << "those that fail first";
    m_model.sort(WindowModel::Name, Qt::AscendingOrder);
    EXPECT_EQ(m_model.RowOf(0), 3) << "10 behind 9 and 2";
    EXPECT_EQ(m_model.RowOf(3), 1);
}

TEST_F(WindowModelTest, FiltersByTextAndVerdict) {
    m_model.SetReport(ReportOf({Judged(0x1A, L"North-1", 90), Judged(0x2B, L"North-2", 200), Judged(3, L"South", 60)}));
    m_model.SetFilter(" NORTH ", false);
    EXPECT_EQ(Rows(), (Order{0, 1}));
    m_model.SetFilter("north", true);
    EXPECT_EQ(Rows(), (Order{0}));
    EXPECT_EQ(m_model.RowOf(1), -1);
    m_model.SetFilter("2b", false);
    EXPECT_EQ(Rows(), (Order{1})) << "by its handle";
    m_model.SetFilter("", true);
    EXPECT_EQ(Rows(), (Order{0, 2}));
    m_model.SetReport(nullptr);
    EXPECT_EQ(m_model.rowCount(), 0);
}

TEST_F(WindowModelTest, TellsWhatAProjectTakes) {
    WindowResult gain = ShadedWindow(2, L"B");
    gain.before->judged = 100.0;
    m_model.SetReport(
        std::make_shared<AnalysisReport>(ProjectReport(2.5, {ShadedWindow(1, L"A"), gain, LitWindow(3, L"C")})));
    EXPECT_EQ(Cell(0, WindowModel::Hours), "2:00:00");
    EXPECT_EQ(Cell(0, WindowModel::Before), "3:00:00");
    EXPECT_EQ(Cell(0, WindowModel::Lost), "1:00:00");
    EXPECT_EQ(Cell(0, WindowModel::Verdict), "不达标");
    EXPECT_EQ(Cell(1, WindowModel::Lost), "-0:20:00") << "what it gives";
    EXPECT_EQ(Cell(2, WindowModel::Before), "-") << "it is on the project";
    m_model.sort(WindowModel::Lost, Qt::DescendingOrder);
    EXPECT_EQ(Rows(), (Order{0, 1, 2}));
}

TEST_F(WindowModelTest, ShowsNoControlCharactersOfNames) {
    m_model.SetReport(ReportOf({Judged(1, L"A\n\x7f-1", 90)}));
    EXPECT_EQ(Cell(0, WindowModel::Name).find('\n'), std::string::npos);
}
