// A house with a gable roof on flat ground in the sun: its faces for drawing, and beside them, independently, the same
// shapes as solids, which tell what a camera must see at any place of the picture.
//
// Lengths are in metres, x to the east, y to the north, z up; the ground is z = 0.
#pragma once

#include <array>
#include <vector>

#include "geometry/QcGeFace3dEX.h"
#include "platform/media/OffscreenGl.h"

// Not the module's, which the pictures are to prove.
inline double Dot(const QcGePoint& left, const QcGePoint& right) {
    return left.x * right.x + left.y * right.y + left.z * right.z;
}

// A pinhole camera. Pictures are given by their size in pixels; their rows run from top to bottom.
class Camera {
public:
    Camera(const QcGePoint& eye, const QcGePoint& target, double degreesUp, double width, double height);

    // The direction in which the camera sees the place (x, y) of the picture, in pixels from the upper left corner.
    QcGeVector3d RayThrough(double x, double y) const;
    // The place in the picture where it sees a point before it.
    std::array<double, 2> PlaceOf(const QcGePoint& point) const;
    const QcGePoint& Eye() const { return m_eye; }
    // What OpenGL needs to see the same, column by column.
    std::array<double, 16> Projection() const;
    std::array<double, 16> View() const;

private:
    QcGePoint m_eye;
    QcGeVector3d m_right, m_up, m_back;
    double m_halfHeight;  // of the picture at distance 1
    double m_width, m_height;
};

enum class Seen { Sky, SunlitGround, ShadedGround, House };

class HouseScene {
public:
    HouseScene();

    // What lies at a place of the picture, by cutting rays with solids: no face, normal or matrix of the module is
    // used.
    Seen At(const Camera& camera, double x, double y) const;

    // Draws everything into the current context. `faces` are drawn with the sun as OpenGL's light, their shadow through
    // the ground's shadow matrix.
    void Draw(const Camera& camera);

    // The colour of a face's front in the sun that comes in at this cosine (0 for none), in red, green, blue.
    std::array<double, 3> ColourOf(const QcGeFace3dEX& face, double cosine) const;

    // The colours of what has only one, as OpenGL is told them.
    static constexpr std::array<unsigned char, 3> kSky = {214, 229, 243};
    static constexpr std::array<unsigned char, 3> kShadow = {104, 118, 92};

    QcGeVector3dEX m_light;  // the way the sunlight travels
    std::vector<QcGeFace3dEX> m_faces;
    QcGeFace3dEX m_ground;

private:
    void AddWalls();
    void AddRoof();
    void AddWindows();
    void AddFace(const QcGePoint& p0, const QcGePoint& p1, const QcGePoint& p2, const QcGePoint& p3, int material);
    void DrawGround();
    void DrawShadow();
    void DrawHouse();

    std::array<FaceMaterial, 4> m_materials;
};
