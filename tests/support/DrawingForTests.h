// A drawing of the test's own, read from a file as drawings are and made the host's drawing as long as the test lives.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "platform/host/AcDbDatabase.h"
#include "support/FileTree.h"

class DrawingForTests {
public:
    // The whole text of a DXF file.
    explicit DrawingForTests(std::string_view dxf) {
        m_files.Write("drawing.dxf", dxf);
        CString message;
        if (m_drawing.dxfIn(m_files.File("drawing.dxf"), &message) != Acad::eOk)
            ADD_FAILURE() << ToUtf8(message.View());
        acdbSetCurDwg(&m_drawing);
    }
    ~DrawingForTests() { acdbSetCurDwg(nullptr); }
    DrawingForTests(const DrawingForTests&) = delete;
    DrawingForTests& operator=(const DrawingForTests&) = delete;

    AcDbDatabase& Database() { return m_drawing; }
    AcDbObjectId Id(std::uint64_t handle) const {
        const AcDbObjectId id = m_drawing.FindHandle(handle);
        EXPECT_FALSE(id.isNull()) << "no object with the handle " << handle;
        return id;
    }
    std::vector<DxfGroup> Groups(std::uint64_t handle) const {
        std::vector<DxfGroup> groups;
        EXPECT_TRUE(m_drawing.GetGroups(Id(handle), groups));
        return groups;
    }
    // An object's data as "code=value" pieces, for comparing at a glance.
    std::string Text(std::uint64_t handle) const {
        std::string text;
        for (const DxfGroup& group : Groups(handle))
            text += std::to_string(group.code) + "=" + group.value + "|";
        return text;
    }
    // The file as it would be saved now.
    std::string Saved() {
        CString message;
        EXPECT_EQ(m_drawing.dxfOut(m_files.File("saved.dxf"), &message), Acad::eOk) << ToUtf8(message.View());
        return m_files.Read("saved.dxf");
    }

private:
    FileTree m_files;
    AcDbDatabase m_drawing;
};

// A drawing of AC1015 with a table of layers (handle 2, its records 10 "0" and 11 "墙" in the code page of Chinese) and
// these entities.
inline std::string ChineseDrawing(std::string_view entities) {
    return std::string(
               "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1015\n9\n$DWGCODEPAGE\n3\nANSI_936\n0\nENDSEC\n"
               "0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nLAYER\n5\n2\n70\n2\n"
               "0\nLAYER\n5\n10\n2\n0\n70\n0\n62\n7\n6\nCONTINUOUS\n"
               "0\nLAYER\n5\n11\n2\n\xC7\xBD\n70\n0\n62\n1\n6\nCONTINUOUS\n"
               "0\nENDTAB\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n") +
           std::string(entities) + "0\nENDSEC\n0\nEOF\n";
}
