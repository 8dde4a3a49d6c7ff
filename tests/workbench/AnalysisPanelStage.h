// A drawing with two windows, open in the window beside its panel of analyses.
#pragma once

#include <QLineEdit>
#include <QPushButton>
#include <QTableView>

#include "workbench/WindowStage.h"
#include "workbench/panel/DayLine.h"
#include "workbench/panel/WindowModel.h"

inline std::string BodyOf(const char* handle, const char* layer, double x, double y, double width, double depth,
                          double height) {
    const auto number = [](double value) { return std::to_string(value); };
    std::string text =
        std::string("0\nLWPOLYLINE\n5\n") + handle + "\n8\n" + layer + "\n39\n" + number(height) + "\n90\n4\n70\n1\n";
    for (const auto& [dx, dy] : {std::pair(0.0, 0.0), {width, 0.0}, {width, depth}, {0.0, depth}})
        text += "10\n" + number(x + dx) + "\n20\n" + number(y + dy) + "\n";
    return text;
}

// A window of 1.5 metres in the wall at y = 0, which looks south.
inline std::string SouthWindow(const std::string& handle, double x) {
    std::string text = "0\n3DFACE\n5\n" + handle + "\n8\nWINDOW\n";
    int corner = 0;
    for (const auto& [dx, z] : {std::pair(0.0, 1.0), {1.5, 1.0}, {1.5, 2.5}, {0.0, 2.5}}) {
        const std::string which = std::to_string(corner++);
        text += "1" + which + "\n" + std::to_string(x + dx) + "\n2" + which + "\n0\n3" + which + "\n" +
                std::to_string(z) + "\n";
    }
    return text;
}

inline std::string Drawing(const std::string& entities) {
    return "0\nSECTION\n2\nHEADER\n9\n$INSUNITS\n70\n6\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n" + entities +
           "0\nENDSEC\n0\nEOF\n";
}

// A house with two windows, and a tower that stands 8 m south of the eastern one. From there it reaches from 31 degrees
// west of south to 42 degrees east of it, where the sun of the winter solstice is from 9 until about 14; from the
// western window it is seen between 37 and 69 degrees east of south, where the sun is not from half past nine on.
inline std::string Yard() {
    return Drawing(BodyOf("A1", "HOUSE", 0, 0, 20, 10, 9) + BodyOf("A2", "TOWER", 12, -12, 12, 4, 60) +
                   SouthWindow("B1", 2) + SouthWindow("B2", 16) + BodyOf("C1", "LAWN", 0, -6, 20, 4, 0));
}

class AnalysisPanelTest : public WindowStage {
protected:
    void SetUp() override {
        WindowStage::SetUp();
        m_window->resize(1200, 900);
        m_path = m_folder.Write("yard.dxf", Yard());
        ASSERT_TRUE(m_window->OpenFile(FromUtf8(m_path.string())));
    }
    SceneView* View() const { return Find<SceneView>("SceneView"); }
    QTableView* Table() const { return Find<QTableView>("WindowTable"); }
    DayLine* Day() const { return Find<DayLine>("DayLine"); }
    std::string Text(const char* name) const { return Find<QLabel>(name)->text().toStdString(); }
    std::string Cell(int row, int column) const {
        return Table()->model()->index(row, column).data().toString().toStdString();
    }
    void Set(const char* field, const char* text) const {
        auto* edit = Find<QLineEdit>(field);
        edit->setFocus();
        edit->selectAll();
        QTest::keyClick(edit, Qt::Key_Delete);
        edit->insert(QString::fromUtf8(text));
    }
    void Run() const { QTest::keyClick(m_window.get(), Qt::Key_F9); }
    void Press(const char* button) const { QTest::mouseClick(Find<QPushButton>(button), Qt::LeftButton); }
    void ClickRow(int row) const {
        const QRect cell = Table()->visualRect(Table()->model()->index(row, 0));
        QTest::mouseClick(Table()->viewport(), Qt::LeftButton, {}, cell.center());
    }
    void ClickIn(const QcGePoint& point) const {
        const ViewCamera& camera = View()->GetCamera();
        const auto pixel = camera.Project(point);
        ASSERT_TRUE(pixel);
        const double scale = static_cast<double>(camera.GetWidth()) / View()->width();
        QTest::mouseClick(View(), Qt::LeftButton, {}, QPointF(pixel->x / scale, pixel->y / scale).toPoint());
    }
    bool IsOutOfDate(const char* why) const {
        return Find<QLabel>("OutOfDate")->isVisible() && Text("OutOfDate").find(why) != std::string::npos;
    }

    std::filesystem::path m_path;
};
