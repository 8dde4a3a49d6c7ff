// Building, drawing and, independently of that, foreseeing the picture of the house.
#include "HouseScene.h"

#include <GL/gl.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <optional>

namespace {

constexpr double kWest = -5, kEast = 5, kSouth = -3.5, kNorth = 3.5, kEaves = 3.2, kRidge = 6.0;
constexpr double kGround = 40;  // half the side of the ground
enum Material { kGrass, kPlaster, kTiles, kGlass };

constexpr float kSunColour[] = {0.80F, 0.76F, 0.68F, 1};
constexpr float kSkyColour[] = {0.55F, 0.58F, 0.64F, 1};

QcGeVector3d Unit(const QcGeVector3d& vector) {
    const double length = std::sqrt(Dot(vector, vector));
    return {vector.x / length, vector.y / length, vector.z / length};
}

// All points with n . p <= limit.
struct HalfSpace {
    QcGeVector3d n;
    double limit;
};

// The house is the common part of these: a box under two slopes of equal steepness.
std::vector<HalfSpace> House() {
    const double rise = kRidge - kEaves;
    const double depth = (kNorth - kSouth) / 2;
    const double limit = rise * kNorth + depth * kEaves;
    return {{{-1, 0, 0}, -kWest}, {{1, 0, 0}, kEast},        {{0, -1, 0}, -kSouth},     {{0, 1, 0}, kNorth},
            {{0, 0, -1}, 0},      {{0, rise, depth}, limit}, {{0, -rise, depth}, limit}};
}

// Where the ray from a point first enters the house, as a multiple of its direction; nothing when it passes by.
std::optional<double> MeetsHouse(const QcGePoint& from, const QcGeVector3d& direction) {
    double enter = 0;
    double leave = std::numeric_limits<double>::infinity();
    for (const HalfSpace& half : House()) {
        const double speed = Dot(half.n, direction);
        const double room = half.limit - Dot(half.n, from);
        if (speed == 0 && room < 0)
            return std::nullopt;
        if (speed > 0)
            leave = std::min(leave, room / speed);
        else if (speed < 0)
            enter = std::max(enter, room / speed);
    }
    return enter < leave ? std::optional(enter) : std::nullopt;
}

FaceMaterial Matt(float r, float g, float b) {
    FaceMaterial material;
    material.SetAmbient(r * 0.75F, g * 0.75F, b * 0.8F, 1.0F);
    material.SetDiffuse(r, g, b, 1.0F);
    material.SetSpecular(0.0F, 0.0F, 0.0F, 1.0F);
    material.SetShininess(0.0F);
    return material;
}

}  // namespace

Camera::Camera(const QcGePoint& eye, const QcGePoint& target, double degreesUp, double width, double height)
    : m_eye(eye), m_halfHeight(std::tan(degreesUp / 2 * std::numbers::pi / 180)), m_width(width), m_height(height) {
    m_back = Unit(eye - target);
    m_right = Unit(QcGeVector3d(0, 0, 1) * m_back);
    m_up = m_back * m_right;
}

QcGeVector3d Camera::RayThrough(double x, double y) const {
    const double right = (x / m_width * 2 - 1) * m_halfHeight * m_width / m_height;
    const double up = (1 - y / m_height * 2) * m_halfHeight;
    return {m_right.x * right + m_up.x * up - m_back.x, m_right.y * right + m_up.y * up - m_back.y,
            m_right.z * right + m_up.z * up - m_back.z};
}

std::array<double, 2> Camera::PlaceOf(const QcGePoint& point) const {
    const QcGeVector3d way = point - m_eye;
    const double distance = -Dot(way, m_back);
    const double right = Dot(way, m_right) / distance / m_halfHeight;
    const double up = Dot(way, m_up) / distance / m_halfHeight;
    return {(right * m_height / m_width + 1) / 2 * m_width, (1 - up) / 2 * m_height};
}

std::array<double, 16> Camera::Projection() const {
    constexpr double kNear = 1, kFar = 400;
    const double scale = 1 / m_halfHeight;
    return {
        scale * m_height / m_width,         0, 0, 0, 0, scale, 0, 0, 0, 0, -(kFar + kNear) / (kFar - kNear), -1, 0, 0,
        -2 * kFar * kNear / (kFar - kNear), 0};
}

std::array<double, 16> Camera::View() const {
    return {m_right.x,
            m_up.x,
            m_back.x,
            0,
            m_right.y,
            m_up.y,
            m_back.y,
            0,
            m_right.z,
            m_up.z,
            m_back.z,
            0,
            -Dot(m_right, m_eye),
            -Dot(m_up, m_eye),
            -Dot(m_back, m_eye),
            1};
}

HouseScene::HouseScene()
    : m_light(0.8, 0.8, -0.85),
      m_ground(QcGePoint(-kGround, -kGround, 0), QcGePoint(kGround, -kGround, 0), QcGePoint(kGround, kGround, 0),
               QcGePoint(-kGround, kGround, 0), true),
      m_materials{Matt(0.80F, 0.86F, 0.62F), Matt(0.93F, 0.88F, 0.78F), Matt(0.72F, 0.36F, 0.26F),
                  Matt(0.30F, 0.40F, 0.50F)} {
    m_ground.SetMaterialIndex(kGrass);
    AddWalls();
    AddRoof();
    AddWindows();
}

void HouseScene::AddFace(const QcGePoint& p0, const QcGePoint& p1, const QcGePoint& p2, const QcGePoint& p3,
                         int material) {
    m_faces.emplace_back(p0, p1, p2, p3, true);
    m_faces.back().SetMaterialIndex(material);
}

void HouseScene::AddWalls() {
    const QcGePoint foot[] = {{kWest, kSouth, 0}, {kEast, kSouth, 0}, {kEast, kNorth, 0}, {kWest, kNorth, 0}};
    for (int i = 0; i < 4; ++i) {
        const QcGePoint& a = foot[i];
        const QcGePoint& b = foot[(i + 1) % 4];
        AddFace(a, b, {b.x, b.y, kEaves}, {a.x, a.y, kEaves}, kPlaster);
    }
    const QcGeFace3dEX east({kEast, kSouth, kEaves}, {kEast, kNorth, kEaves}, {kEast, 0, kRidge}, true);
    const QcGeFace3dEX west({kWest, kNorth, kEaves}, {kWest, kSouth, kEaves}, {kWest, 0, kRidge}, true);
    for (const QcGeFace3dEX& gable : {east, west}) {
        m_faces.push_back(gable);
        m_faces.back().SetMaterialIndex(kPlaster);
    }
}

void HouseScene::AddRoof() {
    AddFace({kWest, kSouth, kEaves}, {kEast, kSouth, kEaves}, {kEast, 0, kRidge}, {kWest, 0, kRidge}, kTiles);
    AddFace({kEast, kNorth, kEaves}, {kWest, kNorth, kEaves}, {kWest, 0, kRidge}, {kEast, 0, kRidge}, kTiles);
}

// A hand's breadth in front of the walls, so that the depth test tells them apart.
void HouseScene::AddWindows() {
    constexpr double kOut = 0.02, kSill = 1.0, kLintel = 2.3;
    for (const double left : {-4.0, -1.9, 2.4}) {
        const double y = kSouth - kOut;
        AddFace({left, y, kSill}, {left + 1.5, y, kSill}, {left + 1.5, y, kLintel}, {left, y, kLintel}, kGlass);
    }
    AddFace({0.4, kSouth - kOut, 0}, {1.4, kSouth - kOut, 0}, {1.4, kSouth - kOut, 2.1}, {0.4, kSouth - kOut, 2.1},
            kTiles);
    for (const double south : {-2.2, 0.7}) {
        const double x = kEast + kOut;
        AddFace({x, south, kSill}, {x, south + 1.5, kSill}, {x, south + 1.5, kLintel}, {x, south, kLintel}, kGlass);
    }
}

Seen HouseScene::At(const Camera& camera, double x, double y) const {
    const QcGePoint& eye = camera.Eye();
    const QcGeVector3d ray = camera.RayThrough(x, y);
    if (MeetsHouse(eye, ray))
        return Seen::House;
    if (ray.z >= 0)
        return Seen::Sky;
    const double way = -eye.z / ray.z;
    const QcGePoint spot(eye.x + way * ray.x, eye.y + way * ray.y, 0);
    if (std::max(std::fabs(spot.x), std::fabs(spot.y)) > kGround)
        return Seen::Sky;
    return MeetsHouse(spot, {-m_light.x, -m_light.y, -m_light.z}) ? Seen::ShadedGround : Seen::SunlitGround;
}

std::array<double, 3> HouseScene::ColourOf(const QcGeFace3dEX& face, double cosine) const {
    const FaceMaterial& material = m_materials[static_cast<std::size_t>(face.GetMaterialIndex())];
    float ambient[4];
    float diffuse[4];
    material.GetAmbient(ambient);
    material.GetDiffuse(diffuse);
    std::array<double, 3> colour{};
    for (std::size_t i = 0; i < 3; ++i)
        colour[i] = 255 * std::min(1.0, static_cast<double>(ambient[i] * kSkyColour[i]) +
                                            cosine * static_cast<double>(diffuse[i] * kSunColour[i]));
    return colour;
}

void HouseScene::Draw(const Camera& camera) {
    glClearColor(static_cast<float>(kSky[0]) / 255, static_cast<float>(kSky[1]) / 255,
                 static_cast<float>(kSky[2]) / 255, 1);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glMatrixMode(GL_PROJECTION);
    glLoadMatrixd(camera.Projection().data());
    glMatrixMode(GL_MODELVIEW);
    glLoadMatrixd(camera.View().data());

    const GLfloat towardsSun[] = {static_cast<float>(-m_light.x), static_cast<float>(-m_light.y),
                                  static_cast<float>(-m_light.z), 0};
    const GLfloat none[] = {0, 0, 0, 1};
    glLightfv(GL_LIGHT0, GL_POSITION, towardsSun);
    glLightfv(GL_LIGHT0, GL_DIFFUSE, kSunColour);
    glLightfv(GL_LIGHT0, GL_AMBIENT, none);
    glLightModelfv(GL_LIGHT_MODEL_AMBIENT, kSkyColour);
    glEnable(GL_LIGHT0);

    glDisable(GL_DEPTH_TEST);
    DrawGround();
    DrawShadow();
    glEnable(GL_DEPTH_TEST);
    DrawHouse();
}

void HouseScene::DrawGround() {
    glEnable(GL_LIGHTING);
    m_ground.Draw(m_materials.data());
}

// The same faces once more, flattened onto the ground along the light.
void HouseScene::DrawShadow() {
    GLfloat flatten[4][4];
    m_ground.CreateShadowMatrix(flatten, m_light, true);
    glDisable(GL_LIGHTING);
    glColor3ub(kShadow[0], kShadow[1], kShadow[2]);
    glPushMatrix();
    glMultMatrixf(&flatten[0][0]);
    glBegin(GL_TRIANGLES);
    for (QcGeFace3dEX& face : m_faces)
        face.DrawVertexAsTriangles();
    glEnd();
    glPopMatrix();
}

void HouseScene::DrawHouse() {
    glEnable(GL_LIGHTING);
    for (QcGeFace3dEX& face : m_faces)
        face.Draw(m_materials.data());
}
