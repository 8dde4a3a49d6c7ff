// Polygons put together, layers, and room for texts.
#include "workbench/report/PaperOutline.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "SvgForTests.h"
#include "workbench/report/PaperLabels.h"
#include "workbench/report/PaperLayers.h"

namespace {

std::vector<PaperLoop> UnionOf(const std::vector<PaperLoop>& polygons) {
    PaperUnion all;
    for (const PaperLoop& polygon : polygons)
        all.Add(polygon);
    return all.TakeLoops();
}

PaperLoop Rectangle(int left, int top, int right, int bottom) {
    return {{left, top}, {right, top}, {right, bottom}, {left, bottom}};
}

std::vector<SvgLine> Read(const std::vector<PaperLoop>& loops) {
    std::string path;
    for (const PaperLoop& loop : loops)
        AppendLoop(path, loop);
    return LinesOf(QString::fromStdString(path));
}

bool IsInConvex(const PaperLoop& polygon, double x, double y) {
    int left = 0, right = 0;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const PaperPoint a = polygon[i], b = polygon[(i + 1) % polygon.size()];
        const double turn = (b.x - a.x) * (y - a.y) - (b.y - a.y) * (x - a.x);
        (turn > 0 ? left : right) += 1;
    }
    return left == 0 || right == 0;
}

}  // namespace

TEST(PaperUnion, LosesTheSidesThatPolygonsShare) {
    // Two triangles, turned differently, of a rectangle.
    const std::vector<PaperLoop> loops = UnionOf({{{0, 0}, {400, 0}, {400, 300}}, {{0, 0}, {0, 300}, {400, 300}}});
    ASSERT_EQ(loops.size(), 1U);
    EXPECT_EQ(loops[0].size(), 4U);
}

TEST(PaperUnion, LosesALongSideThatTwoShortOnesMeet) {
    const std::vector<PaperLoop> loops =
        UnionOf({Rectangle(0, 0, 400, 100), Rectangle(0, 100, 150, 300), Rectangle(150, 100, 400, 300)});
    ASSERT_EQ(loops.size(), 1U);
    EXPECT_EQ(loops[0].size(), 4U);
}

TEST(PaperUnion, KeepsCourtyards) {
    const std::vector<PaperLoop> loops = UnionOf({Rectangle(0, 0, 400, 100), Rectangle(0, 300, 400, 400),
                                                  Rectangle(0, 100, 100, 300), Rectangle(300, 100, 400, 300)});
    EXPECT_EQ(loops.size(), 2U);
    EXPECT_FALSE(IsInside(Read(loops), {200, 200}));
    EXPECT_TRUE(IsInside(Read(loops), {50, 200}));
    EXPECT_FALSE(Cover(loops, {150, 150, 250, 250}));
    EXPECT_FALSE(Cover(loops, {50, 50, 150, 150}));
    EXPECT_TRUE(Cover(loops, {10, 10, 390, 90}));
}

TEST(PaperUnion, DoesNotCancelWhatIsDrawnTwice) {
    const std::vector<PaperLoop> loops = UnionOf({Rectangle(0, 0, 400, 100), Rectangle(0, 0, 400, 100)});
    EXPECT_TRUE(IsInside(Read(loops), {200, 50}));
}

TEST(PaperUnion, PassesOverWhatHasNoArea) {
    EXPECT_TRUE(UnionOf({}).empty());
    EXPECT_TRUE(UnionOf({{{0, 0}, {100, 0}, {50, 0}}, {{7, 7}, {7, 7}, {7, 7}}}).empty());
}

TEST(PaperUnion, CoversWhatAnyOfItsPolygonsCovers) {
    std::mt19937 random(3);
    std::uniform_int_distribution<int> place(0, 4000);
    int inside = 0;
    for (int round = 0; round < 40; ++round) {
        std::vector<PaperLoop> polygons;
        for (int i = 0; i < 6; ++i)
            polygons.push_back(
                {{place(random), place(random)}, {place(random), place(random)}, {place(random), place(random)}});
        const std::vector<SvgLine> loops = Read(UnionOf(polygons));
        for (int i = 0; i < 200; ++i) {
            const double x = place(random) + 0.5, y = place(random) + 0.5;
            // What dividing sides at corners moves is a hundredth of a millimetre.
            const auto isNear = [&](double dx, double dy) {
                return std::any_of(polygons.begin(), polygons.end(),
                                   [&](const PaperLoop& each) { return IsInConvex(each, x + dx, y + dy); });
            };
            const bool isIn = isNear(0, 0);
            if (isNear(3, 0) != isIn || isNear(-3, 0) != isIn || isNear(0, 3) != isIn || isNear(0, -3) != isIn)
                continue;
            EXPECT_EQ(IsInside(loops, {x, y}), isIn) << round << ' ' << x << ' ' << y;
            inside += isIn ? 1 : 0;
        }
    }
    EXPECT_GT(inside, 1000);
    EXPECT_LT(inside, 7000);
}

TEST(PaperPath, HasTheShortestWayToSayIt) {
    std::string path;
    AppendLoop(path, {{10, -20}, {110, -20}, {110, 30}, {60, 90}});
    EXPECT_EQ(path, "M10-20h100v50l-50 60z");
    path.clear();
    AppendLine(path, {{-5, 7}, {0, 0}});
    EXPECT_EQ(path, "M-5 7l5-7");
}

TEST(PaperLayers, PutLaterShapesAboveThoseTheyMeet) {
    struct Shape {
        int style;
        PaperBox box;
        std::size_t layer;
    };
    std::mt19937 random(5);
    std::uniform_int_distribution<int> place(0, 9000), size(10, 900), style(0, 3);
    PaperLayers layers({0, 0, 10000, 10000});
    std::vector<Shape> shapes;
    for (int i = 0; i < 400; ++i) {
        const int x = place(random), y = place(random);
        Shape shape{style(random), {x, y, x + size(random), y + size(random)}, 0};
        const std::string mark = "<" + std::to_string(i) + ">";
        layers.LayerFor(shape.style, shape.box) += mark;
        shapes.push_back(shape);
    }
    for (std::size_t i = 0; i < shapes.size(); ++i)
        for (std::size_t k = 0; k < layers.All().size(); ++k)
            if (layers.All()[k].content.find("<" + std::to_string(i) + ">") != std::string::npos) {
                shapes[i].layer = k;
                EXPECT_EQ(layers.All()[k].style, shapes[i].style);
            }
    for (std::size_t i = 0; i < shapes.size(); ++i)
        for (std::size_t k = i + 1; k < shapes.size(); ++k)
            if (shapes[i].box.Meets(shapes[k].box))
                EXPECT_LT(shapes[i].layer, shapes[k].layer) << i << ' ' << k;
}

TEST(PaperLayers, AreFewForShapesApart) {
    PaperLayers layers({0, 0, 18000, 18000});
    for (int i = 0; i < 60; ++i)
        for (int k = 0; k < 60; ++k)
            layers.LayerFor((i + k) % 3, {i * 300, k * 300, i * 300 + 100, k * 300 + 100}) += "x";
    EXPECT_EQ(layers.All().size(), 3U);
}

TEST(PaperLabels, NeverCoverEachOtherAndStayInTheFrame) {
    std::mt19937 random(11);
    std::uniform_int_distribution<int> place(-500, 8000), size(20, 900);
    PaperLabels labels({0, 0, 8000, 8000});
    std::vector<PaperBox> taken;
    for (int i = 0; i < 2000; ++i) {
        const int x = place(random), y = place(random);
        const PaperBox box = {x, y, x + size(random), y + size(random) / 3};
        const bool isFree = x >= 0 && y >= 0 && box.right <= 8000 && box.bottom <= 8000 &&
                            std::none_of(taken.begin(), taken.end(), [&](const PaperBox& other) {
                                return box.left < other.right && other.left < box.right && box.top < other.bottom &&
                                       other.top < box.bottom;
                            });
        EXPECT_EQ(labels.TryTake(box), isFree) << i;
        if (isFree)
            taken.push_back(box);
    }
    EXPECT_GT(taken.size(), 50U);
}

TEST(PaperLabels, GiveWideCharactersMoreRoom) {
    EXPECT_GT(TextWidthOnPaper(L"三层", 200), TextWidthOnPaper(L"ab", 200));
    EXPECT_GE(TextWidthOnPaper(L"三层", 200), 2 * 200);
    EXPECT_EQ(TextWidthOnPaper(L"", 200), 0);
}
