// Texts of drawing files for tests, and a database that has read one.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "platform/host/AcDbDatabase.h"
#include "support/FileTree.h"

// Lines with their line ends.
inline std::string Lines(std::initializer_list<std::string_view> lines, std::string_view lineEnd = "\n") {
    std::string text;
    for (const std::string_view line : lines)
        text.append(line).append(lineEnd);
    return text;
}

inline std::string Section(std::string_view name, std::string_view body) {
    return "  0\nSECTION\n  2\n" + std::string(name) + "\n" + std::string(body) + "  0\nENDSEC\n";
}
inline std::string DrawingOf(std::string_view sections) {
    return std::string(sections) + "  0\nEOF\n";
}

// A small drawing with everything that has a structure: 0 or more of each kind of object, and what nobody understands.
inline std::string SmallDrawing() {
    return DrawingOf(
        "999\nmade by hand\n" +
        Section("HEADER",
                "  9\n$ACADVER\n  1\nAC1015\n  9\n$DWGCODEPAGE\n  3\nANSI_936\n  9\n$INSUNITS\n 70\n     6\n"
                "  9\n$EXTMIN\n 10\n0.0\n 20\n-1.5\n 30\n2.25\n") +
        Section("CLASSES", "  0\nCLASS\n  1\nSOMETHING\n  5\nFFFF\n") +
        Section(
            "TABLES",
            "  0\nTABLE\n  2\nLAYER\n  5\n2\n 70\n1\n  0\nLAYER\n  5\n10\n  2\n0\n  0\nENDTAB\n"
            "  0\nTABLE\n  2\nDIMSTYLE\n  5\nA\n 70\n1\n  0\nDIMSTYLE\n105\n27\n  2\nISO-25\n  5\n10\n  0\nENDTAB\n") +
        Section("BLOCKS",
                "  0\nBLOCK\n  5\n20\n  2\n*Model_Space\n  0\nLINE\n  5\n21\n  8\n0\n  0\nENDBLK\n  5\n22\n") +
        Section("ENTITIES",
                "  0\nPOLYLINE\n  5\n30\n  8\n0\n 66\n1\n  0\nVERTEX\n  5\n31\n 10\n1.0\n  0\nSEQEND\n  5\n32\n"
                "  0\nTEXT\n  5\n1aF\n  8\n0\n  1\n\xB1\xB1\xBE\xA9\n999\nin between\n 40\n2.5\n") +
        Section("OBJECTS", "  0\nDICTIONARY\n  5\nC\n281\n1\n") + Section("NOBODY", "  0\nX\n  5\n31\n310\n00FF\n"));
}

// A database in a folder of its own.
struct OpenDrawing {
    explicit OpenDrawing(std::string_view text) {
        files.Write("drawing.dxf", text);
        CString message;
        EXPECT_EQ(database.dxfIn(files.File("drawing.dxf"), &message), Acad::eOk) << ToUtf8(message.View());
        EXPECT_TRUE(message.IsEmpty());
    }

    AcDbObjectId Handle(std::uint64_t handle) const { return database.FindHandle(handle); }
    std::vector<DxfGroup> Groups(AcDbObjectId id) const {
        std::vector<DxfGroup> groups;
        EXPECT_TRUE(database.GetGroups(id, groups));
        return groups;
    }
    // What a save writes.
    std::string Saved() {
        CString message;
        EXPECT_EQ(database.dxfOut(files.File("saved.dxf"), &message), Acad::eOk) << ToUtf8(message.View());
        return files.Read("saved.dxf");
    }

    FileTree files;
    AcDbDatabase database;
};
