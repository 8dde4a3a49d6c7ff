// The command line of the window, with real keys.
#include <QClipboard>
#include <filesystem>

#include "support/FileTree.h"
#include "workbench/WindowStage.h"

namespace {

class WindowCommandEdit : public WindowStage {
protected:
    std::string Text() const { return Edit()->text().toStdString(); }
    void Key(Qt::Key key) const { QTest::keyClick(Edit(), key); }
};

}  // namespace

TEST_F(WindowCommandEdit, HasTheFocusAtFirst) {
    EXPECT_TRUE(Edit()->hasFocus());
}

TEST_F(WindowCommandEdit, RunsALineOnEnterAndIsEmptyThen) {
    QTest::keyClicks(Edit(), "  bogus ");
    Key(Qt::Key_Enter);
    EXPECT_EQ(Text(), "");
    EXPECT_TRUE(HasLogged("orvo> bogus\n")) << Log();
}

TEST_F(WindowCommandEdit, RunsNothingForAnEmptyLine) {
    QTest::keyClicks(Edit(), "   ");
    Key(Qt::Key_Return);
    EXPECT_EQ(Log(), "");
}

TEST_F(WindowCommandEdit, RecallsLinesWithTheArrows) {
    Type("terms --year 2024");
    Type("standards");
    QTest::keyClicks(Edit(), "pla");
    Key(Qt::Key_Up);
    EXPECT_EQ(Text(), "standards");
    Key(Qt::Key_Up);
    EXPECT_EQ(Text(), "terms --year 2024");
    Key(Qt::Key_Up);
    EXPECT_EQ(Text(), "terms --year 2024");
    Key(Qt::Key_Down);
    Key(Qt::Key_Down);
    EXPECT_EQ(Text(), "pla");
}

TEST_F(WindowCommandEdit, KeepsItsLinesForTheNextWindow) {
    Type("places 北京");
    m_window.reset();
    m_window = std::make_unique<MainWindow>();
    Key(Qt::Key_Up);
    EXPECT_EQ(Text(), "places 北京");
}

TEST_F(WindowCommandEdit, CompletesTheWordBeforeTheCursor) {
    QTest::keyClicks(Edit(), "stan");
    Key(Qt::Key_Tab);
    EXPECT_EQ(Text(), "standards ");
    EXPECT_TRUE(Edit()->hasFocus());
    Key(Qt::Key_Escape);
    QTest::keyClicks(Edit(), "QSet");
    Key(Qt::Key_Tab);
    EXPECT_EQ(Text(), "QSetSunPrec ");
    Key(Qt::Key_Escape);
    QTest::keyClicks(Edit(), "set --pl");
    Key(Qt::Key_Tab);
    Key(Qt::Key_Tab);
    EXPECT_EQ(Text(), "set --place ") << "two places, which share no letter";
    EXPECT_TRUE(HasLogged("北京  通州")) << Log();
}

TEST_F(WindowCommandEdit, CompletesNamesOfFiles) {
    const std::filesystem::path before = std::filesystem::current_path();
    const FileTree folder;
    folder.Write("my house.dxf", "");
    std::filesystem::current_path(folder.Path());
    QTest::keyClicks(Edit(), "window my");
    Key(Qt::Key_Tab);
    EXPECT_EQ(Text(), "window \"my house.dxf\" ");
    Key(Qt::Key_Escape);
    QTest::keyClicks(Edit(), "window my --x");
    Edit()->setCursorPosition(9);
    Key(Qt::Key_Tab);
    EXPECT_EQ(Text(), "window \"my house.dxf\"  --x") << "what stands behind the cursor stays";
    std::filesystem::current_path(before);
}

TEST_F(WindowCommandEdit, ShowsTheWaysToGoOn) {
    QTest::keyClicks(Edit(), "s");
    Key(Qt::Key_Tab);
    EXPECT_EQ(Text(), "s");
    EXPECT_TRUE(HasLogged("standards")) << Log();
    EXPECT_TRUE(HasLogged("shadow")) << Log();
}

TEST_F(WindowCommandEdit, TabLeavesItWhenItIsEmpty) {
    Key(Qt::Key_Tab);
    EXPECT_FALSE(Edit()->hasFocus());
    Edit()->setFocus();
    QTest::keyClicks(Edit(), "terms");
    QTest::keyClick(Edit(), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_FALSE(Edit()->hasFocus());
}

TEST_F(WindowCommandEdit, EscapeEmptiesIt) {
    QTest::keyClicks(Edit(), "terms");
    Key(Qt::Key_Escape);
    EXPECT_EQ(Text(), "");
}

TEST_F(WindowCommandEdit, PastedLinesRunButTheLast) {
    QApplication::clipboard()->setText("first\r\nsecond\nthi");
    QTest::keySequence(Edit(), QKeySequence::Paste);
    EXPECT_TRUE(HasLogged("orvo> first\n")) << Log();
    EXPECT_TRUE(HasLogged("orvo> second\n")) << Log();
    EXPECT_EQ(Text(), "thi");
}

TEST_F(WindowCommandEdit, TakesWhateverIsTyped) {
    Type(std::string(100000, 'x').c_str());
    Type("👪 \"");
    Type("\x01\x02");
    EXPECT_TRUE(HasLogged("引号没有配对")) << Log().substr(0, 200);
}
