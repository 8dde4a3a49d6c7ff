// Throwing the dice for a scene, its place, its day and its rules.
#include "RandomScene.h"

#include <cmath>
#include <random>
#include <sstream>

#include "settings/OrvoStdSet.h"

namespace {

class Dice {
public:
    explicit Dice(unsigned seed) : m_random(seed) {}
    double Within(double least, double most) { return std::uniform_real_distribution<double>(least, most)(m_random); }
    int Number(int least, int most) { return std::uniform_int_distribution<int>(least, most)(m_random); }
    // Lengths and directions of a drawing whose author snapped to a grid: planes and edges fall into one another.
    void SnapToGrid() { m_isSnapped = true; }
    double Length(double least, double most) { return Snapped(Within(least, most)); }
    double Snapped(double length) const {
        constexpr double kGrid = 250.0;
        return m_isSnapped ? kGrid * std::round(length / kGrid) : length;
    }
    double Direction(double least, double most) {
        constexpr double kQuarter = 90.0;
        const double direction = Within(least, most);
        return m_isSnapped ? kQuarter * std::round(direction / kQuarter) : direction;
    }
    bool Chance(double part) { return Within(0.0, 1.0) < part; }
    template <typename T>
    T OneOf(std::initializer_list<T> values) {
        return values.begin()[Number(0, static_cast<int>(values.size()) - 1)];
    }

private:
    std::mt19937 m_random;
    bool m_isSnapped = false;
};

// What stands at a window's side, above and before it, in the window's own axes: x along the wall, y into the house.
void AddAround(Dice& dice, JudgedScene& scene, double x, double sill, double width, double height) {
    const double deep = dice.Length(500.0, 2500.0);
    if (dice.Chance(0.4)) {
        const double gap = dice.OneOf({0.0, 100.0, 700.0});
        scene.Box(x + width + gap, -deep, sill - 200.0, x + width + gap + 150.0, 0.0, sill + height + 600.0);
    }
    if (dice.Chance(0.3)) {
        const double gap = dice.OneOf({0.0, 350.0});
        scene.Box(x - gap - 150.0, -deep, sill - 200.0, x - gap, 0.0, sill + height + 600.0);
    }
    if (dice.Chance(0.4)) {
        const double gap = dice.OneOf({0.0, 200.0, 900.0});
        const double wide = dice.Length(300.0, 3000.0);
        scene.Box(x - wide, -deep, sill + height + gap, x + width + wide, 0.0, sill + height + gap + 120.0);
    }
    if (dice.Chance(0.3))
        scene.Box(x - 600.0, -deep, sill - 500.0, x + width + 600.0, -deep + 100.0, sill + dice.OneOf({0.0, 80.0}));
    for (int i = dice.Number(0, 2); i > 0; --i) {
        const double thick = dice.Within(15.0, 120.0);
        const double at = dice.Length(x - 2000.0, x + width + 2000.0);
        const double before = dice.Length(400.0, 9000.0);
        scene.Box(at, -before, 0.0, at + thick, -before + thick, sill + dice.Length(-500.0, 6000.0));
    }
}

// Where the windows' wall stands: rather towards the sun. What stands around may cover a window, whose side nobody
// could tell then.
void StandAnywhere(Dice& dice, RandomScene& made) {
    const bool isSouthern = made.request.settings.place->latitude < 0.0;
    const double degrees = made.request.north + (isSouthern ? 180.0 : 0.0) + dice.Direction(-120.0, 120.0);
    made.scene.StandOn(dice.Length(-3000.0, 3000.0), dice.Length(-3000.0, 3000.0), degrees);
    made.request.facing = degrees - 90.0 - made.request.north;
}

// As a box, as six loose faces that close it, or as an L whose wing comes forward beside the windows.
void AddHouse(Dice& dice, JudgedScene& scene, double half, double deep, double tall) {
    const double wing = dice.Length(2000.0, 9000.0);
    switch (dice.Number(0, 3)) {
        case 0:
            scene.Face({{-half, 0, 0}, {half, 0, 0}, {half, 0, tall}, {-half, 0, tall}});
            scene.Face({{-half, deep, 0}, {half, deep, 0}, {half, deep, tall}, {-half, deep, tall}});
            scene.Face({{-half, 0, 0}, {-half, deep, 0}, {-half, deep, tall}, {-half, 0, tall}});
            scene.Face({{half, 0, 0}, {half, deep, 0}, {half, deep, tall}, {half, 0, tall}});
            scene.Face({{-half, 0, 0}, {half, 0, 0}, {half, deep, 0}, {-half, deep, 0}});
            scene.Face({{-half, 0, tall}, {half, 0, tall}, {half, deep, tall}, {-half, deep, tall}});
            break;
        case 1:
            scene.Prism(
                {{half, 0}, {half, -wing}, {half + 5000, -wing}, {half + 5000, deep}, {-half, deep}, {-half, 0}}, 0.0,
                tall);
            break;
        case 2:
            scene.Prism(
                {{-half, 0}, {half, 0}, {half, deep}, {-half - 5000, deep}, {-half - 5000, -wing}, {-half, -wing}}, 0.0,
                tall);
            break;
        default:
            scene.Box(-half, 0.0, 0.0, half, deep, tall);
    }
}

void AddHouse(Dice& dice, RandomScene& made) {
    JudgedScene& scene = made.scene;
    StandAnywhere(dice, made);
    const double half = dice.Length(5000.0, 12000.0);
    const double tall = dice.Length(3500.0, 40000.0);
    AddHouse(dice, scene, half, dice.Length(6000.0, 12000.0), tall);
    for (int i = dice.Number(1, 2); i > 0; --i) {
        const double width = dice.OneOf({600.0, 1200.0, 1800.0, 2700.0});
        const double height = dice.OneOf({900.0, 1500.0, 2200.0});
        const double x = dice.Length(-half + 200.0, half - width - 200.0);
        const double sill = dice.Length(150.0, tall - height - 150.0);
        made.windows.push_back(scene.Window(x, 0.0, sill, width, height));
        AddAround(dice, scene, x, sill, width, height);
    }
}

// A wall of one face with a window a hand's breadth before it.
void AddLooseWall(Dice& dice, RandomScene& made) {
    JudgedScene& scene = made.scene;
    StandAnywhere(dice, made);
    const double sill = dice.Length(100.0, 3000.0);
    scene.Face({{-4000, 0, 0}, {4000, 0, 0}, {4000, 0, 7000}, {-4000, 0, 7000}});
    made.windows.push_back(scene.Window(-900.0, -dice.OneOf({50.0, 100.0, 150.0}), sill, 1800.0, 1500.0));
    AddAround(dice, scene, -900.0, sill, 1800.0, 1500.0);
}

void AddSurroundings(Dice& dice, JudgedScene& scene) {
    for (int i = dice.Number(3, 10); i > 0; --i) {
        const double way = dice.Within(0.0, 6.3);
        const double far = std::exp(dice.Within(std::log(22e3), std::log(180e3)));
        scene.StandOn(dice.Snapped(far * std::cos(way)), dice.Snapped(far * std::sin(way)),
                      dice.Direction(-180.0, 180.0));
        const double size = dice.Length(1000.0, 8000.0);
        scene.Box(-size, -size, dice.OneOf({0.0, 0.0, 6000.0}), size, dice.Length(500.0, 20000.0),
                  dice.Length(7000.0, 90000.0));
    }
    scene.StandOn(0.0, 0.0, 0.0);
    for (int i = dice.Number(0, 4); i > 0; --i) {
        const SlowPoint at = {dice.Length(-40e3, 40e3), dice.Length(-40e3, 40e3), dice.Length(0.0, 20e3)};
        const SlowPoint a = {dice.Length(-6e3, 6e3), dice.Length(-6e3, 6e3), dice.Length(-6e3, 6e3)};
        const SlowPoint b = {dice.Length(-6e3, 6e3), dice.Length(-6e3, 6e3), dice.Length(-6e3, 6e3)};
        std::vector<SlowPoint> corners = {at, {at.x + a.x, at.y + a.y, at.z + a.z}};
        if (dice.Chance(0.5))
            corners.push_back({at.x + a.x + b.x, at.y + a.y + b.y, at.z + a.z + b.z});
        corners.push_back({at.x + b.x, at.y + b.y, at.z + b.z});
        scene.Face(corners);
    }
}

void ChooseRules(Dice& dice, AnalysisRequest& request) {
    Standard& standard = *request.settings.standard;
    struct Span {
        double start;
        double end;
    };
    const Span span = dice.OneOf<Span>({{0.0, 24.0}, {0.0, 24.0}, {8.0, 16.0}, {9.0, 15.0}, {5.5, 18.25}});
    standard.start = span.start;
    standard.end = span.end;
    standard.fullWindow = dice.Chance(0.65) ? 1 : 0;
    standard.beijingTime = dice.Chance(0.5) ? ORVO_BEIJING_TIME : ORVO_TRUE_SOLAR_TIME;
    standard.validSunType = dice.Chance(0.2) ? ORVO_SUN_SHANGHAI : ORVO_SUN_CUSTOM;
    standard.minValidAngle = dice.OneOf({0, 0, 12, 30});
    standard.limitWidth = dice.Chance(0.3) ? 1 : 0;
    standard.minWidth = 800.0;
    standard.maxWidth = 1500.0;
    standard.step = dice.OneOf({1.0, 5.0, 10.0});
    standard.minValidTime = dice.OneOf({0, 5});
    request.settings.place->longitude = dice.OneOf({120.0, 116.4, 75.0, 135.0, -120.0, -179.0, 179.0});
    if (dice.Chance(0.15))
        request.leastAltitude = dice.OneOf({3.0, 10.0});
    request.terms.equationOfTime = dice.Within(-0.27, 0.27);
    request.north = dice.Chance(0.5) ? 0.0 : dice.Direction(-180.0, 360.0);
}

std::string Describe(const RandomScene& made) {
    const AnalysisRequest& request = made.request;
    const Standard& standard = *request.settings.standard;
    std::ostringstream out;
    out << "latitude " << request.settings.place->latitude << ", longitude " << request.settings.place->longitude
        << ", declination " << request.terms.declination << ", equation " << request.terms.equationOfTime << ", north "
        << request.north << ", span " << standard.start << " to " << standard.end
        << (standard.beijingTime ? " clock" : "") << (standard.fullWindow ? ", whole" : ", sill")
        << (standard.validSunType == ORVO_SUN_SHANGHAI ? ", shanghai" : "") << ", least angle "
        << standard.minValidAngle << ", least altitude " << request.leastAltitude.value_or(0.0) << ", moved "
        << made.placement.moveX << '\n';
    return out.str();
}

}  // namespace

RandomScene MakeRandomScene(unsigned seed) {
    Dice dice(seed);
    const double latitude =
        dice.OneOf({18.0, 22.5, 31.2, 31.2, 39.9, 39.9, 45.8, 53.0, 0.0, -33.9, 66.6, 78.0, 89.9, -89.0});
    RandomScene made;
    made.request = RequestFor(latitude, dice.OneOf({-23.44, -20.1, -10.0, 0.0, 7.3, 23.44}));
    if (dice.Chance(0.4))
        dice.SnapToGrid();
    ChooseRules(dice, made.request);
    if (dice.Chance(0.8))
        AddHouse(dice, made);
    else
        AddLooseWall(dice, made);
    AddSurroundings(dice, made.scene);
    made.placement.moveX = dice.OneOf({0.0, 0.0, 5e8});
    made.placement.moveY = dice.OneOf({0.0, 0.0, -3e8});
    made.placement.windowsAsOutlines = dice.OneOf({0, 0, 1, -1});
    made.about = Describe(made);
    return made;
}

// What comes before the first window is the house that it is in.
std::set<std::uint64_t> ProposeSome(RandomScene& made, unsigned seed) {
    Dice dice(seed);
    const double share = dice.OneOf({0.15, 0.5, 0.85});
    std::set<std::uint64_t> others;
    for (const SlowFace& face : made.scene.Faces())
        if (face.handle > made.windows.front())
            others.insert(face.handle);
    std::set<std::uint64_t> proposed;
    for (const std::uint64_t handle : others) {
        if (!dice.Chance(share))
            continue;
        made.scene.MoveToLayer(handle, "PROJECT");
        proposed.insert(handle);
    }
    made.request.proposedLayers = {L" project"};
    return proposed;
}
