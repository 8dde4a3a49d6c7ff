// Drawings that nobody drew: cut off, garbled, and large in what they claim.
#include <numbers>
#include <random>

#include "SceneForTests.h"

namespace {

// Every kind that has faces, all of them sound.
std::string AllKinds() {
    return Entity("3DFACE", "8=A 62=3 70=5 " + At(0, 0, 0) + At(9, 0, 0, 11) + At(9, 9, 1, 12) + At(0, 9, 0, 13)) +
           Entity("MESH",
                  "100=AcDbSubDMesh 71=2 72=0 91=0 92=5 10=0 20=0 30=0 10=4 20=0 30=0 10=4 20=4 30=0 10=2 20=1 30=0 "
                  "10=0 20=4 30=0 93=10 90=5 90=0 90=1 90=2 90=3 90=4 90=3 90=0 90=1 90=2 94=1 90=0 90=1 95=0") +
           Entity("LWPOLYLINE",
                  "90=5 70=1 38=2 39=30 10=0 20=0 10=40 20=0 42=0.5 10=40 20=14 10=14 20=14 10=0 20=35 "
                  "210=0 220=0.1 230=1") +
           Entity("POLYLINE", "39=7 70=1 30=4") + Entity("VERTEX", "10=0 20=0 42=1") +
           Entity("VERTEX", "10=9 20=0 42=1") + Entity("SEQEND", "") + Entity("POLYLINE", "70=64") +
           Entity("VERTEX", "10=0 20=0 30=0 70=192") + Entity("VERTEX", "10=1 20=0 30=0 70=192") +
           Entity("VERTEX", "10=0 20=1 30=5 70=192") + Entity("VERTEX", "70=128 71=1 72=-2 73=3") +
           Entity("SEQEND", "") + Entity("POLYLINE", "70=16 71=2 72=2") + Entity("VERTEX", "10=0 20=0 30=0 70=64") +
           Entity("VERTEX", "10=0 20=1 30=0 70=64") + Entity("VERTEX", "10=1 20=0 30=0 70=64") +
           Entity("VERTEX", "10=1 20=1 30=0 70=64") + Entity("SEQEND", "") +
           Entity("SOLID", "39=4 " + At(0, 0, 0) + At(9, 0, 0, 11) + At(0, 9, 0, 12) + At(9, 9, 0, 13)) +
           Entity("TRACE", At(0, 0, 0) + At(9, 0, 0, 11) + At(0, 9, 0, 12) + "210=0 220=0.1 230=1") +
           Entity("LINE", "39=4 " + At(0, 0, 0) + At(9, 0, 0, 11)) +
           Entity("ARC", "39=4 40=5 50=10 51=200 " + At(1, 2, 3)) + Entity("CIRCLE", "39=4 40=5 " + At(1, 2, 3));
}

}  // namespace

TEST(HostileScene, AllKindsAreSoundAtFirst) {
    const Scene scene = SceneOf(AllKinds());
    EXPECT_EQ(scene.entities.size(), 11U);
    EXPECT_EQ(scene.faultyCount + OtherCount(scene), 0U);
    ExpectSound(scene);
}

TEST(HostileScene, EveryValueMayBeAnything) {
    const std::vector<std::string> lines = LinesOf(AllKinds());
    for (const char* value :
         {"", "x", "-1", "0", "1e50", "-1e50", "nan", "2147483647", "-2147483648", "1e-320", "7", "3.5"})
        for (std::size_t i = 3; i < lines.size(); i += 2) {
            if (lines[i - 1] == "0")
                continue;
            std::string text;
            for (std::size_t k = 0; k < lines.size(); ++k)
                text += (k == i ? value : lines[k]) + "\n";
            ExpectSound(SceneOf(text));
        }
}

TEST(HostileScene, EveryGroupMayBeMissingOrTwice) {
    const std::vector<std::string> lines = LinesOf(AllKinds());
    for (std::size_t i = 2; i < lines.size(); i += 2)
        for (const int times : {0, 2}) {
            std::string text;
            for (std::size_t k = 0; k < lines.size(); k += 2)
                for (int n = 0; n < (k == i ? times : 1); ++n)
                    text += lines[k] + "\n" + lines[k + 1] + "\n";
            ExpectSound(SceneOf(text));
        }
}

TEST(HostileScene, GroupsMayStandInAnyOrder) {
    std::mt19937 random(3);
    const std::vector<std::string> lines = LinesOf(AllKinds());
    for (int round = 0; round < 200; ++round) {
        std::vector<std::size_t> order;
        for (std::size_t i = 2; i < lines.size(); i += 2)
            order.push_back(i);
        for (int swaps = 0; swaps < 6; ++swaps)
            std::swap(order[random() % order.size()], order[random() % order.size()]);
        std::string text = lines[0] + "\n" + lines[1] + "\n";
        for (const std::size_t i : order)
            text += lines[i] + "\n" + lines[i + 1] + "\n";
        ExpectSound(SceneOf(text));
    }
}

TEST(HostileScene, AHundredThousandCornersAreWallsOnly) {
    std::string points;
    for (int i = 0; i < 100000; ++i) {
        const double angle = 2.0 * std::numbers::pi * i / 100000;
        points +=
            "10\n" + std::to_string(1e6 * std::cos(angle)) + "\n20\n" + std::to_string(1e6 * std::sin(angle)) + "\n";
    }
    const Scene scene = SceneOf(Entity("LWPOLYLINE", "39=3000 70=1") + points);
    EXPECT_EQ(scene.faces.size(), 100000U);
    EXPECT_EQ(scene.faultyCount, 0U);
    EXPECT_EQ(scene.entities.size(), 1U);
}

TEST(HostileScene, ChordsOfAWholeDrawingHaveABound) {
    // 6,000 arcs that would have 64 chords each: 250,000 beyond the four of each arc.
    std::string text;
    for (int i = 0; i < 6000; ++i)
        text += "0\nLWPOLYLINE\n39\n1\n10\n0\n20\n0\n42\n1\n10\n10000000\n20\n0\n";
    EXPECT_EQ(SceneOf(text).faces.size(), 4U * 6000U + 250000U);
}

TEST(HostileScene, RandomOutlinesNeverHang) {
    std::mt19937 random(11);
    for (int round = 0; round < 300; ++round) {
        std::string points;
        const std::size_t corners = 3 + random() % 40;
        const std::size_t raster = 2 + random() % 12;
        for (std::size_t i = 0; i < corners; ++i)
            points += "10=" + std::to_string(random() % raster) + " 20=" + std::to_string(random() % raster) + " ";
        ExpectSound(SceneOf(Entity("LWPOLYLINE", "39=5 70=1 " + points)));
    }
}
