// Reading what the script wrote.
#include "District.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

#include "platform/base/CString.h"
#include "platform/host/AcDbDatabase.h"

namespace {

// district_test.py makes it, and says where.
std::string FileOf(std::string_view name, std::string_view ending) {
    const char* folder = std::getenv("ORVO_DISTRICT");
    EXPECT_NE(folder, nullptr) << "ORVO_DISTRICT names no folder: run this through ctest, or district_test.py";
    return std::string(folder ? folder : ".") + '/' + std::string(name) + std::string(ending);
}

void ReadTriangle(std::istream& line, SlowFace& face) {
    for (int i = 0; i < 3; ++i) {
        SlowPoint corner;
        line >> corner.x >> corner.y >> corner.z;
        face.corners.push_back(corner);
    }
}

void ReadWindow(std::istream& line, SlowTarget& drawn) {
    line >> drawn.lowerLeft.x >> drawn.lowerLeft.y >> drawn.lowerLeft.z >> drawn.facing >> drawn.width >> drawn.height;
}

}  // namespace

District ReadDistrict(std::string_view name) {
    District district;
    std::ifstream file(FileOf(name, ".txt"));
    for (std::string text; std::getline(file, text);) {
        std::istringstream line(text);
        std::string word;
        std::uint64_t handle = 0;
        line >> word >> std::hex >> handle >> std::dec;
        if (word == "triangle") {
            district.triangles.push_back({{}, handle});
            ReadTriangle(line, district.triangles.back());
        } else {
            district.windows.push_back({handle, {}});
            ReadWindow(line, district.windows.back().drawn);
        }
        EXPECT_FALSE(line.fail()) << text;
    }
    EXPECT_FALSE(district.triangles.empty() || district.windows.empty());
    return district;
}

AnalysisAnswer AnalyseDistrict(std::string_view name, const AnalysisRequest& request) {
    AcDbDatabase drawing;
    CString message;
    EXPECT_EQ(drawing.dxfIn(FromUtf8(FileOf(name, ".dxf")), &message), Acad::eOk) << ToUtf8(message.View());
    return AnalyseWindows(drawing, request);
}
