// Changes that are refused, and drawings of any shape: nothing is done by halves.
#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <set>

#include "RedrawText.h"

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinite = std::numeric_limits<double>::infinity();

// Refused with a message that tells it, and nothing has changed.
void ExpectRefused(const DrawingChange& change, const std::string& part, Acad::ErrorStatus status = Acad::eInvalidInput,
                   const std::string& text = SmallDrawing()) {
    OpenDrawing drawing(text);
    DrawingChange all = change;
    all.emptiedLayers = {L"0"};
    all.layers.insert(all.layers.begin(), {L"FIRST", 1});
    all.entities.insert(all.entities.begin(), NewLine(L"FIRST"));
    CString message;
    EXPECT_EQ(drawing.database.Redraw(all, &message), status) << part;
    EXPECT_NE(ToUtf8(message.View()).find(part), std::string::npos) << ToUtf8(message.View());
    EXPECT_FALSE(drawing.database.IsModified());
    EXPECT_EQ(drawing.Saved(), text);
}

// What hostile drawings have more of than they should.
constexpr std::string_view kPieces[] = {"0\n",
                                        "\n",
                                        "  0\nENDSEC\n",
                                        "  0\nSECTION\n  2\nENTITIES\n",
                                        "-1",
                                        "999\nx\n",
                                        "5\n",
                                        "EOF\n",
                                        "FFFFFFFFFFFFFFFF",
                                        "TABLE",
                                        "  0\nENDTAB\n",
                                        " 67\n1\n",
                                        " "};

}  // namespace

TEST(RedrawRefusal, EntitiesThatAreNotSound) {
    const auto refuse = [](const std::string& part, const NewEntity& sound, const auto& spoil) {
        NewEntity entity = sound;
        spoil(entity);
        ExpectRefused(ChangeOf({}, {entity}), "第 2 个新实体的" + part);
    };
    for (const double bad : {kNan, kInfinite, -kInfinite}) {
        refuse("点不对", NewLine(), [=](NewEntity& entity) { entity.points[1][2] = bad; });
        refuse("拉伸方向不对", NewPolyline(), [=](NewEntity& entity) { entity.extrusion[1] = bad; });
        refuse("文字不对", NewText(L"t"), [=](NewEntity& entity) { entity.height = bad; });
        refuse("文字不对", NewText(L"t"), [=](NewEntity& entity) { entity.rotation = bad; });
    }
    refuse("点不对", NewLine(), [](NewEntity& entity) { entity.points.pop_back(); });
    refuse("点不对", NewLine(), [](NewEntity& entity) { entity.points.clear(); });
    refuse("点不对", NewLine(), [](NewEntity& entity) { entity.points.push_back({}); });
    refuse("点不对", NewFace(), [](NewEntity& entity) { entity.points.pop_back(); });
    refuse("点不对", NewFace(), [](NewEntity& entity) { entity.points.resize(5); });
    refuse("点不对", NewPolyline(), [](NewEntity& entity) { entity.points.resize(1); });
    refuse("点不对", NewPolyline(), [](NewEntity& entity) { entity.points[2][2] = 4.6; });
    refuse("点不对", NewText(L"t"), [](NewEntity& entity) { entity.points.clear(); });
    refuse("拉伸方向不对", NewText(L"t"), [](NewEntity& entity) { entity.extrusion = {}; });
    for (const int bad : {-1, 257})
        refuse("颜色不对", NewLine(), [=](NewEntity& entity) { entity.colorIndex = bad; });
    refuse("颜色不对", NewLine(), [](NewEntity& entity) { entity.trueColor = 0x1000000; });
    for (const wchar_t* bad : {L"", L"two\nlines", L"\r"})
        refuse("文字不对", NewText(bad), [](NewEntity&) {});
    refuse("文字不对", NewText(L"t"),
           [](NewEntity& entity) { entity.text = CString(std::wstring(1 << 21, L'x').c_str()); });
    for (const double bad : {0.0, -1.0})
        refuse("文字不对", NewText(L"t"), [=](NewEntity& entity) { entity.height = bad; });
}

TEST(RedrawRefusal, EntitiesOnLayersThatAreNotThere) {
    ExpectRefused(ChangeOf({{L"A", 1}}, {NewLine(L"a"), NewLine(L"B")}), "第 3 个新实体的图层“B”不在图形中",
                  Acad::eKeyNotFound);
    ExpectRefused(ChangeOf({}, {NewLine(L"")}), "不在图形中", Acad::eKeyNotFound);
}

TEST(RedrawRefusal, LayersThatAreNotSound) {
    const std::wstring longest(255, L'x');
    for (const CString& name : {CString(), CString((longest + L"x").c_str()), CString(L" a"), CString(L"a "),
                                CString(L"a\nb"), CString(L"a\x7F")})
        ExpectRefused(ChangeOf({{name, 1}}, {}), "不能用：应为 1 到 255 个字符");
    for (const wchar_t bad : std::wstring_view(L"<>/\\\":;?*|,=`\t"))
        ExpectRefused(ChangeOf({{CString(L"a") + CString(std::wstring(1, bad).c_str()) + L"b", 1}}, {}), "不能用：");
    for (const int color : {0, -1, 256})
        ExpectRefused(ChangeOf({{L"A", color}}, {}), "图层“A”的颜色号 " + std::to_string(color) + " 不对");
    OpenDrawing drawing(SmallDrawing());
    MustRedraw(drawing, ChangeOf({{CString(longest.c_str()), 1}}, {}));
    const std::string old = DrawingOf(HeaderOf("AC1009"));
    ExpectRefused(ChangeOf({{CString(longest.substr(0, 32).c_str()), 1}}, {}), "1 到 31 个字符", Acad::eInvalidInput,
                  old);
    OpenDrawing before(old);
    MustRedraw(before, ChangeOf({{CString(longest.substr(0, 31).c_str()), 1}}, {}));
}

TEST(RedrawRefusal, ADatabaseWithoutADrawing) {
    AcDbDatabase database;
    CString message;
    EXPECT_EQ(database.Redraw({}, &message), Acad::eInvalidInput);
    EXPECT_EQ(ToUtf8(message.View()), "没有可以改动的图形。");
}

// Whatever can be opened can be redrawn or refuses; no handle is given twice, and emptying gives the entities back.
TEST(RedrawHostile, MutatedDrawingsAreRedrawnOrRefused) {
    std::mt19937 random(5);
    const std::string text = DrawingOf(HeaderOf("AC1015", "40") + SmallDrawing().substr(0, SmallDrawing().size() - 8));
    DrawingChange change = ChangeOf({{L"ORVO", 1}}, {NewLine(L"ORVO"), NewPolyline(L"ORVO"), NewText(L"北", L"ORVO")});
    change.emptiedLayers = {L"ORVO"};
    DrawingChange emptying;
    emptying.emptiedLayers = {L"ORVO"};
    int redrawn = 0;
    const FileTree files;
    for (int round = 0; round < 1000; ++round) {
        std::string mutated = text;
        for (std::size_t i = 1 + random() % 3; i > 0; --i) {
            const std::size_t at = random() % mutated.size();
            if (random() % 2 == 0)
                mutated.erase(at, 1 + random() % 20);
            else
                mutated.insert(at, kPieces[random() % std::size(kPieces)]);
            mutated += '\n';
        }
        files.Write("mutated.dxf", mutated);
        AcDbDatabase database;
        CString message;
        if (database.dxfIn(files.File("mutated.dxf"), &message) != Acad::eOk)
            continue;
        const std::size_t before = database.GetEntityCount();
        if (database.Redraw(change, &message) != Acad::eOk) {
            EXPECT_FALSE(message.IsEmpty());
            EXPECT_EQ(database.GetEntityCount(), before);
            continue;
        }
        ++redrawn;
        std::set<std::uint64_t> given;
        ASSERT_GE(database.GetEntityCount(), 3U);
        for (std::size_t i = database.GetEntityCount() - 3; i < database.GetEntityCount(); ++i) {
            const AcDbObjectId id = database.GetEntityId(i);
            if (const std::uint64_t handle = database.GetHandle(id)) {
                EXPECT_TRUE(given.insert(handle).second) << round;
                EXPECT_EQ(database.FindHandle(handle), id) << round;
            }
        }
        ASSERT_EQ(database.dxfOut(files.File("redrawn.dxf")), Acad::eOk);
        const std::string saved = files.Read("redrawn.dxf");
        ASSERT_EQ(database.dxfIn(files.File("redrawn.dxf"), &message), Acad::eOk) << round << ToUtf8(message.View());
        ASSERT_EQ(database.Redraw(emptying, &message), Acad::eOk) << round;
        EXPECT_EQ(database.GetEntityCount(), before) << round;
    }
    EXPECT_GT(redrawn, 100);
}
