// Which texts name which windows.
#include "analysis/WindowTexts.h"

#include <random>

#include "DrawingForWindows.h"

namespace {

constexpr Site kHere;

// A window 1.5 m wide and high in the plane y = 0, from x on.
std::string Window(const std::string& groups = {}, double x = 1000.0, double y = 0.0) {
    return Upright("8=WINDOW " + groups, kHere, x, y, x + 1500, y, 900, 2400);
}

// Values may hold blanks, which Entity takes for ends.
std::string Text(const std::string& text, const std::string& groups) {
    return Entity("TEXT", "8=WINDOW " + groups) + "1\n" + text + "\n";
}
std::string LongText(const std::string& text, const std::string& groups) {
    return Entity("MTEXT", "8=WINDOW " + groups) + "1\n" + text + "\n";
}

std::vector<std::string> NamesIn(const std::string& entities) {
    std::vector<std::string> names;
    for (const DrawnWindow& window : WindowsIn(entities).windows)
        names.push_back(ToUtf8(window.name.View()));
    return names;
}
std::string NameIn(const std::string& entities) {
    const std::vector<std::string> names = NamesIn(entities);
    EXPECT_EQ(names.size(), 1U);
    return names.empty() ? std::string() : names[0];
}

const std::string kWithin = At(1700, 0, 1500);

}  // namespace

TEST(WindowTexts, NameTheWindowThatTheyLieIn) {
    EXPECT_EQ(NameIn(Window("5=AB") + Text("3-402-1", kWithin)), "3-402-1");
    EXPECT_EQ(NameIn(Text("3-402-1", kWithin) + Window("5=AB")), "3-402-1") << "before the window in the drawing";
    EXPECT_EQ(NameIn(Window("5=AB") + LongText("{\\fArial|b1;3-402-1}", kWithin)), "3-402-1");
    EXPECT_EQ(NameIn(Window("5=AB") + LongText("\\U+7A97 1", kWithin)), "窗 1");
}

TEST(WindowTexts, AreNoneOfOtherLayersKindsOrInvisible) {
    EXPECT_EQ(NameIn(Window("5=AB") + Entity("TEXT", "8=NAMES 1=3 " + kWithin)), "AB");
    EXPECT_EQ(NameIn(Window("5=AB") + Entity("ATTDEF", "8=WINDOW 1=3 " + kWithin)), "AB");
    EXPECT_EQ(NameIn(Window("5=AB") + Text("3", "60=1 " + kWithin)), "AB");
    EXPECT_EQ(NameIn(Window("5=AB") + Text("3", "67=1 " + kWithin)), "AB");
}

TEST(WindowTexts, NameWindowsOfTheirOwnLayerOnly) {
    EXPECT_EQ(NameIn(Window("5=AB") + Entity("TEXT", "8=窗 1=3 " + kWithin)), "AB");
    EXPECT_EQ(NameIn(Window("5=AB") + Entity("TEXT", "8=window 1=3 " + kWithin)), "3") << "the same in small letters";
    // The nearer window is on the other layer.
    EXPECT_EQ(NamesIn(Window("5=A", 1000, 100) + Upright("5=B 8=窗", kHere, 1000, 0, 2500, 0, 900, 2400) +
                      Text("3", kWithin)),
              (std::vector<std::string>{"3", "B"}));
}

TEST(WindowTexts, WithoutOneTheHandleIsTheName) {
    EXPECT_EQ(NameIn(Window("5=ab12")), "AB12");
    EXPECT_EQ(NamesIn(Window("") + Level("8=WINDOW", kHere, 0, 0, 9, 9, 0) + Window("5=F") + Window("")),
              (std::vector<std::string>{"#1", "F", "#3"}));
    EXPECT_EQ(NameIn(Window("5=AB") + Text("   ", kWithin) + LongText("{\\C1;}", kWithin)), "AB") << "empty";
    EXPECT_EQ(NameIn(Window("5=AB") + Text("", kWithin) + Text("2", kWithin)), "2") << "an empty one is none";
}

TEST(WindowTexts, LieInAWindowWhenTheyStandBeforeOrBehindIt) {
    const std::pair<Vector3, bool> kPlaces[] = {
        {{1000, 0, 900}, true},     {{2500, 0, 2400}, true},    {{998, 0, 1500}, false},   {{2502, 0, 1500}, false},
        {{1700, 0, 898}, false},    {{1700, 0, 2402}, false},   {{1700, 199, 1500}, true}, {{1700, -199, 1500}, true},
        {{1700, 201, 1500}, false}, {{1700, -201, 1500}, false}};
    for (const auto& [place, isIn] : kPlaces)
        EXPECT_EQ(NameIn(Window("5=AB") + Text("N", At(place))), isIn ? "N" : "AB")
            << place.x << " " << place.y << " " << place.z;
}

TEST(WindowTexts, NameTheNearestWindowOnly) {
    EXPECT_EQ(NamesIn(Window("5=A", 1000, 0) + Window("5=B", 1000, 150) + Text("N", At(1700, 100, 1500))),
              (std::vector<std::string>{"A", "N"}));
    EXPECT_EQ(NamesIn(Window("5=A", 1000, 0) + Window("5=B", 1000, 150) + Text("N", At(1700, 75, 1500))),
              (std::vector<std::string>{"N", "B"}))
        << "equally near: the first window";
}

TEST(WindowTexts, CountTheFirstOfSeveral) {
    EXPECT_EQ(NameIn(Text("1", At(1700, 150, 1500)) + Window("") + Text("2", At(1700, 0, 1500))), "1");
}

TEST(WindowTexts, LieAtTheirInsertionPoint) {
    const std::string elsewhere = At(90000, 0, 1500);
    const std::string second = At(1700, 0, 1500, 11);
    for (const char* justified : {"72=1", "72=2", "72=4", "73=1", "73=2 72=0", "72=0 73=3"})
        EXPECT_EQ(NameIn(Window("5=AB") + Text("N", elsewhere + second + justified)), "N") << justified;
    for (const char* byFirst : {"", "72=0", "72=0 73=0", "72=3", "72=5", "72=x"}) {
        EXPECT_EQ(NameIn(Window("5=AB") + Text("N", kWithin + At(90000, 0, 0, 11) + byFirst)), "N") << byFirst;
        EXPECT_EQ(NameIn(Window("5=AB") + Text("N", elsewhere + second + byFirst)), "AB") << byFirst;
    }
    EXPECT_EQ(NameIn(Window("5=AB") + Text("N", kWithin + "72=1")), "N") << "without a second point";
    EXPECT_EQ(NameIn(Window("5=AB") + LongText("N", kWithin + "72=1 73=1 " + At(1, 0, 0, 11))), "N")
        << "an MTEXT's second point is a direction";
}

TEST(WindowTexts, OfOneLineHaveTheirPointInObjectCoordinates) {
    // Seen from the south: its plane's x is the world's, its y is z, and it lies 50 before the window.
    EXPECT_EQ(NameIn(Window("5=AB") + Text("N", At(1700, 1500, 50) + "210=0 220=-1 230=0")), "N");
    EXPECT_EQ(NameIn(Window("5=AB") + Text("N", At(1700, 1500, 250) + "210=0 220=-1 230=0")), "AB");
    EXPECT_EQ(NameIn(Window("5=AB") + LongText("N", kWithin + "210=0 220=-1 230=0")), "N")
        << "an MTEXT's is the world's";
}

TEST(WindowTexts, MayBeContinued) {
    // The last piece is group 1, those before it are groups 3. A character may be divided.
    const std::string start = Entity("MTEXT", "8=WINDOW " + kWithin);
    EXPECT_EQ(NameIn(Window("5=AB") + start + "3\n3-\n3\n402\xE7\xAA\n1\n\x97-1\n"), "3-402窗-1");
}

TEST(WindowTexts, WithUnsoundNumbersNameNothing) {
    for (const char* groups : {"10=nan 20=0 30=0", "10=1e300 20=0 30=1500", "10=1700 30=1500", "10=x 20=0 30=1500", ""})
        EXPECT_EQ(NameIn(Window("5=AB") + Text("N", groups) + LongText("N", groups)), "AB") << groups;
    EXPECT_EQ(NameIn(Window("5=AB") + Text("N", kWithin + "210=0 220=0 230=0")), "AB");
    EXPECT_EQ(NameIn(Window("5=AB") + Text("N", kWithin + "210=nan 220=0 230=0")), "AB");
    EXPECT_EQ(NameIn(Window("5=AB") + Text("N", At(1e50, 1e50, 1e50))), "AB");
}

TEST(WindowTexts, FindTheSameWindowAsALookAtAllOfThem) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> at(0.0, 20000.0), angle(0.0, 6.3);
    std::vector<DrawnWindow> windows(400);
    for (std::size_t i = 0; i < windows.size(); ++i) {
        const double turn = angle(random);
        windows[i].handle = i + 1;
        windows[i].lowerLeft = {at(random), at(random), at(random) / 4.0};
        windows[i].right = {std::cos(turn), std::sin(turn), 0.0};
        windows[i].width = windows[i].height = 1500.0;
    }
    std::vector<WindowText> texts;
    for (int i = 0; i < 3000; ++i)
        texts.push_back(
            {CString(std::wstring_view(std::to_wstring(i))), {at(random), at(random), at(random) / 4.0}, 0});
    std::vector<DrawnWindow> named = windows;
    NameWindows(named, texts, 200.0);
    std::vector<CString> expected(windows.size());
    for (const WindowText& text : texts) {
        std::size_t nearest = windows.size();
        double least = 200.0;
        for (std::size_t i = 0; i < windows.size(); ++i) {
            const Vector3 to = text.place - windows[i].lowerLeft;
            const double x = to.x * windows[i].right.x + to.y * windows[i].right.y;
            const double away = std::fabs(to.x * windows[i].right.y - to.y * windows[i].right.x);
            if (x >= 0 && x <= 1500 && to.z >= 0 && to.z <= 1500 && away < least) {
                least = away;
                nearest = i;
            }
        }
        if (nearest < windows.size() && expected[nearest].IsEmpty())
            expected[nearest] = text.text;
    }
    int count = 0;
    for (std::size_t i = 0; i < windows.size(); ++i) {
        if (expected[i].IsEmpty())
            continue;
        ++count;
        EXPECT_EQ(named[i].name, expected[i]) << i;
    }
    EXPECT_GT(count, 50);
}
