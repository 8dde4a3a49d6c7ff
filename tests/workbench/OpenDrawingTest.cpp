// Opening and saving the window's drawing.
#include "workbench/window/OpenDrawing.h"

#include <gtest/gtest.h>

#include "support/FileTree.h"
#include "support/RecordingPlugIn.h"
#include "workbench/MoveFirstCorner.h"

namespace {

std::string Drawing(const char* x) {
    return std::string("0\nSECTION\n2\nENTITIES\n0\n3DFACE\n5\n1A\n8\n0\n10\n0\n20\n0\n30\n0\n11\n") + x +
           "\n21\n0\n31\n0\n12\n4\n22\n3\n32\n0\n13\n0\n23\n3\n33\n0\n0\nENDSEC\n0\nEOF\n";
}

class WindowDrawing : public testing::Test {
protected:
    bool Open(const char* name) { return m_drawing.Open(m_folder.File(name), m_message); }

    FileTree m_folder;
    OpenDrawing m_drawing;
    CString m_message;
};

}  // namespace

TEST_F(WindowDrawing, IsNoneAtFirst) {
    EXPECT_FALSE(m_drawing.IsOpen());
    EXPECT_FALSE(m_drawing.IsModified());
    EXPECT_FALSE(m_drawing.HasFileChanged());
    EXPECT_EQ(m_drawing.GetScene(), nullptr);
    EXPECT_EQ(m_drawing.GetEntityCount(), 0u);
}

TEST_F(WindowDrawing, IsTheHostsWhileItIsOpen) {
    m_folder.Write("house.dxf", Drawing("4"));
    {
        OpenDrawing drawing;
        ASSERT_TRUE(drawing.Open(m_folder.File("house.dxf"), m_message));
        ASSERT_NE(acdbCurDwg(), nullptr);
        EXPECT_EQ(acdbCurDwg()->GetEntityCount(), 1u);
        EXPECT_EQ(drawing.GetEntityCount(), 1u);
        EXPECT_EQ(drawing.GetFileName(), L"house.dxf");
        EXPECT_EQ(drawing.GetPath(), m_folder.File("house.dxf"));
        EXPECT_EQ(drawing.GetScene()->faces.size(), 1u);
    }
    EXPECT_EQ(acdbCurDwg(), nullptr);
}

TEST_F(WindowDrawing, TellsOfFaultsThatCanBeRead) {
    m_folder.Write("loose.dxf", "0\nSECTION\n2\nHEADER\n0\nENDSEC\n9\n$INSUNITS\n70\n6\n" + Drawing("4"));
    m_folder.Write("house.dxf", Drawing("4"));
    ASSERT_TRUE(Open("loose.dxf"));
    EXPECT_EQ(m_message, acdbCurDwg()->GetReadWarning());
    EXPECT_FALSE(m_message.IsEmpty());
    ASSERT_TRUE(Open("house.dxf"));
    EXPECT_TRUE(m_message.IsEmpty());
}

TEST_F(WindowDrawing, StaysWhenAnotherOneCannotBeOpened) {
    m_folder.Write("house.dxf", Drawing("4"));
    m_folder.Write("broken.dxf", "0\nSECTION\n2\nENTITIES\nnoise\n");
    ASSERT_TRUE(Open("house.dxf"));
    const AcDbDatabase* const before = acdbCurDwg();
    for (const char* name : {"broken.dxf", "missing.dxf", ""}) {
        m_message = CString();
        EXPECT_FALSE(Open(name)) << name;
        EXPECT_FALSE(m_message.IsEmpty()) << name;
        EXPECT_EQ(acdbCurDwg(), before);
        EXPECT_EQ(m_drawing.GetFileName(), L"house.dxf");
    }
}

TEST_F(WindowDrawing, GivesWayToAnotherOne) {
    m_folder.Write("a.dxf", Drawing("4"));
    m_folder.Write("b.dxf", Drawing("7"));
    ASSERT_TRUE(Open("a.dxf"));
    ASSERT_TRUE(Open("b.dxf"));
    EXPECT_EQ(m_drawing.GetFileName(), L"b.dxf");
    EXPECT_EQ(m_drawing.GetScene()->most.x, 7.0);
    EXPECT_NE(acdbCurDwg(), nullptr);
}

TEST_F(WindowDrawing, IsToldToPlugIns) {
    m_folder.Write("a.dxf", Drawing("4"));
    m_folder.Write("empty.dxf", "0\nSECTION\n2\nENTITIES\n0\nENDSEC\n0\nEOF\n");
    m_folder.Write("broken.dxf", "0\nSECTION\n2\nENTITIES\nnoise\n");
    const RecordingPlugIn plugIn;
    {
        OpenDrawing drawing;
        EXPECT_FALSE(drawing.Open(m_folder.File("broken.dxf"), m_message));
        EXPECT_EQ(plugIn.Take(), "") << "nothing was opened";
        ASSERT_TRUE(drawing.Open(m_folder.File("a.dxf"), m_message));
        EXPECT_EQ(plugIn.Take(), "3 of 1;");
        EXPECT_FALSE(drawing.Open(m_folder.File("broken.dxf"), m_message));
        ASSERT_TRUE(drawing.Save(m_folder.File("b.dxf"), m_message));
        EXPECT_EQ(plugIn.Take(), "") << "nothing was closed";
        ASSERT_TRUE(drawing.Open(m_folder.File("empty.dxf"), m_message));
        EXPECT_EQ(plugIn.Take(), "4 of 1;3 of 0;") << "one takes the other's place";
        ASSERT_TRUE(drawing.Open(m_folder.File("empty.dxf"), m_message));
        EXPECT_EQ(plugIn.Take(), "4 of 0;3 of 0;") << "read again";
    }
    EXPECT_EQ(plugIn.Take(), "4 of 0;");
    EXPECT_EQ(acdbCurDwg(), nullptr);
}

TEST_F(WindowDrawing, IsSavedAndItsFileBeforeKept) {
    m_folder.Write("house.dxf", Drawing("4"));
    ASSERT_TRUE(Open("house.dxf"));
    EXPECT_FALSE(m_drawing.IsModified());
    MoveFirstCorner();
    EXPECT_TRUE(m_drawing.IsModified());
    ASSERT_TRUE(m_drawing.Save(m_drawing.GetPath(), m_message)) << ToUtf8(m_message.View());
    EXPECT_FALSE(m_drawing.IsModified());
    EXPECT_FALSE(m_drawing.HasFileChanged());
    EXPECT_EQ(m_folder.Read("house.dxf.bak"), Drawing("4"));
    EXPECT_NE(m_folder.Read("house.dxf").find("\n1.5\n"), std::string::npos);
}

TEST_F(WindowDrawing, TakesTheNameThatItIsSavedUnder) {
    m_folder.Write("house.dxf", Drawing("4"));
    ASSERT_TRUE(Open("house.dxf"));
    ASSERT_TRUE(m_drawing.Save(m_folder.File("copy.dxf"), m_message)) << ToUtf8(m_message.View());
    EXPECT_EQ(m_drawing.GetFileName(), L"copy.dxf");
    EXPECT_EQ(m_folder.Read("copy.dxf"), Drawing("4"));
}

TEST_F(WindowDrawing, KeepsNameAndChangesWhenItCannotBeSaved) {
    m_folder.Write("house.dxf", Drawing("4"));
    ASSERT_TRUE(Open("house.dxf"));
    MoveFirstCorner();
    EXPECT_FALSE(m_drawing.Save(m_folder.File("no such folder/copy.dxf"), m_message));
    EXPECT_FALSE(m_message.IsEmpty());
    EXPECT_EQ(m_drawing.GetFileName(), L"house.dxf");
    EXPECT_TRUE(m_drawing.IsModified());
}

TEST_F(WindowDrawing, NoticesThatItsFileWasWritten) {
    m_folder.Write("house.dxf", Drawing("4"));
    ASSERT_TRUE(Open("house.dxf"));
    m_folder.Write("house.dxf", Drawing("4.25"));
    EXPECT_TRUE(m_drawing.HasFileChanged());
    std::filesystem::remove(m_folder / "house.dxf");
    EXPECT_TRUE(m_drawing.HasFileChanged());
}

TEST_F(WindowDrawing, ReadsItsFacesAnew) {
    m_folder.Write("house.dxf", Drawing("4"));
    ASSERT_TRUE(Open("house.dxf"));
    EXPECT_EQ(m_drawing.GetScene()->least.x, 0.0);
    const std::shared_ptr<const Scene> before = m_drawing.GetScene();
    ASSERT_TRUE(m_drawing.RefreshScene(m_message));
    EXPECT_EQ(m_drawing.GetScene(), before) << "nothing was changed";
    MoveFirstCorner();
    ASSERT_TRUE(m_drawing.RefreshScene(m_message));
    EXPECT_NE(m_drawing.GetScene(), before);
    ASSERT_EQ(m_drawing.GetScene()->faces.size(), 1u);
    EXPECT_EQ(m_drawing.GetScene()->faces[0].m_pt[0].x, 1.5);
}

TEST_F(WindowDrawing, SaysWhatADrawingWithoutFacesHolds) {
    const std::string begin = "0\nSECTION\n2\nENTITIES\n";
    m_folder.Write("lines.dxf", begin + "0\nLINE\n0\nTEXT\n0\nLINE\n0\nENDSEC\n0\nEOF\n");
    m_folder.Write("empty.dxf", begin + "0\nENDSEC\n0\nEOF\n");
    ASSERT_TRUE(Open("lines.dxf"));
    EXPECT_EQ(TextForNoFaces(*m_drawing.GetScene()),
              L"这个图形中没有可以显示的面。图形中有 2 LINE, 1 TEXT：都没有高度");
    ASSERT_TRUE(Open("empty.dxf"));
    EXPECT_EQ(TextForNoFaces(*m_drawing.GetScene()), L"这个图形中没有可以显示的面");
}

TEST_F(WindowDrawing, NamesTheInsertsThatAreTooLarge) {
    std::string inserts;
    for (int i = 0; i < 21; ++i)
        inserts += "0\nINSERT\n5\n" + std::to_string(10 + i) + "\n2\nA\n10\n0\n20\n0\n70\n100000\n71\n100000\n";
    m_folder.Write("large.dxf",
                   "0\nSECTION\n2\nBLOCKS\n0\nBLOCK\n2\nA\n0\nLINE\n39\n1\n10\n0\n20\n0\n11\n1\n21\n0\n0\nENDBLK\n"
                   "0\nENDSEC\n0\nSECTION\n2\nENTITIES\n" +
                       inserts + "0\nENDSEC\n0\nEOF\n");
    ASSERT_TRUE(Open("large.dxf"));
    EXPECT_EQ(m_drawing.GetTooLargeText(),
              L"21 个块参照的面太多（图形一共超过 5000000 个面），没有显示："
              L"10 11 12 13 14 15 16 17 18 19 20 21 22 23 24 25 26 27 28 29 ...");
}
