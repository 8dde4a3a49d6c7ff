// What mouse and keyboard do to the view: the camera, and what is picked.
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <unordered_set>
#include <utility>

#include "geometry/DotProduct.h"
#include "workbench/view/ScenePick.h"
#include "workbench/view/SceneView.h"
#include "workbench/view/ViewResults.h"

namespace {

constexpr double kDegreesPerPixel = 0.35;
constexpr double kDegreesPerKey = 5.0;
constexpr double kSteepDegreesPerKey = 15.0;
constexpr double kZoomPerKey = 1.25;
constexpr double kZoomPerNotch = 1.2;
constexpr double kWheelPerNotch = 120.0;
constexpr double kMovePerKey = 0.05;   // of the picture's shorter side
constexpr double kMostOfAClick = 3.0;  // pixels that a hand moves unawares

}  // namespace

void SceneView::HoldOnTo(const QPointF& pixel) {
    if (!HasShapes())
        return;
    if (const auto point = PickScene(*m_scene, m_camera.GetRayAt(pixel.x(), pixel.y())))
        m_camera.TakeDepthOf(*point);
}

void SceneView::Turn(double azimuth, double altitude) {
    m_camera.Orbit(azimuth, altitude);
    RedrawMoving();
}

void SceneView::Move(double dx, double dy) {
    m_camera.Pan(dx, dy);
    RedrawMoving();
}

void SceneView::ZoomAt(double factor, const QPointF& pixel) {
    HoldOnTo(pixel);
    m_camera.Zoom(factor, pixel.x(), pixel.y());
    RedrawMoving();
}

void SceneView::mousePressEvent(QMouseEvent* event) {
    m_drag = Drag::None;
    if (event->button() == Qt::MiddleButton ||
        (event->button() == Qt::LeftButton && event->modifiers().testFlag(Qt::ShiftModifier)))
        m_drag = Drag::Move;
    else if (event->button() == Qt::LeftButton)
        m_drag = Drag::Turn;
    if (m_drag == Drag::None)
        return QWidget::mousePressEvent(event);
    m_last = m_pressed = event->position();
    m_isClick = m_drag == Drag::Turn;
    setCursor(m_drag == Drag::Move ? Qt::ClosedHandCursor : Qt::SizeAllCursor);
    if (m_drag == Drag::Move)
        HoldOnTo(InPicture(m_last));
}

void SceneView::mouseMoveEvent(QMouseEvent* event) {
    const QPointF way = event->position() - m_last;
    if (m_drag == Drag::None || way.isNull())
        return;
    const QPointF sincePress = event->position() - m_pressed;
    if (m_isClick && std::hypot(sincePress.x(), sincePress.y()) <= kMostOfAClick)
        return;
    m_isClick = false;
    m_last = event->position();
    if (m_drag == Drag::Turn)
        return Turn(way.x() * kDegreesPerPixel, way.y() * kDegreesPerPixel);
    const QPointF inPicture = InPicture(way);
    Move(inPicture.x(), inPicture.y());
}

void SceneView::mouseReleaseEvent(QMouseEvent* event) {
    if (m_drag == Drag::None)
        return QWidget::mouseReleaseEvent(event);
    m_drag = Drag::None;
    unsetCursor();
    if (std::exchange(m_isClick, false))
        PickAt(InPicture(m_pressed));
}

void SceneView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return QWidget::mouseDoubleClickEvent(event);
    Fit();
}

void SceneView::wheelEvent(QWheelEvent* event) {
    const int turned = event->angleDelta().y();
    if (turned == 0)
        return QWidget::wheelEvent(event);
    ZoomAt(std::pow(kZoomPerNotch, turned / kWheelPerNotch), InPicture(event->position()));
    event->accept();
}

void SceneView::keyPressEvent(QKeyEvent* event) {
    const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
    const bool plain = modifiers == Qt::NoModifier;
    const bool shifted = modifiers == Qt::ShiftModifier;
    const int key = event->key();
    if (plain && (TurnByKey(key) || LookByKey(key) || PickByKey(key)))
        return;
    if (shifted && MoveByKey(key))
        return;
    const QPointF middle(m_camera.GetWidth() / 2.0, m_camera.GetHeight() / 2.0);
    if ((plain || shifted) && (key == Qt::Key_Plus || key == Qt::Key_Equal))
        return ZoomAt(kZoomPerKey, middle);
    if ((plain || shifted) && (key == Qt::Key_Minus || key == Qt::Key_Underscore))
        return ZoomAt(1.0 / kZoomPerKey, middle);
    QWidget::keyPressEvent(event);
}

void SceneView::PickAt(const QPointF& pixel) {
    const auto chosen = m_results && HasShapes()
                            ? PickWindow(*m_results, *m_scene, m_hidden, m_camera.GetRayAt(pixel.x(), pixel.y()))
                            : std::nullopt;
    const bool isOther = chosen != m_chosen;
    m_chosen = chosen;
    Pick(HasShapes() ? PickEntity(*m_scene, m_hidden, m_camera, pixel.x(), pixel.y()) : AcDbObjectId());
    if (isOther) {
        Redraw();
        if (m_onChoose)
            m_onChoose();
    }
    TellSpot(pixel);
}

void SceneView::TellSpot(const QPointF& pixel) const {
    if (!m_onSpot || !HasShapes())
        return;
    const ViewRay ray = m_camera.GetRayAt(pixel.x(), pixel.y());
    const MetFace met = MeetScene(*m_scene, m_hidden, ray);
    if (met.entity.isNull())
        return;
    const QcGeVector3dEX normal = m_scene->faces[met.face].Normal();
    const double side = Dot(normal, ray.direction) > 0.0 ? -1.0 : 1.0;
    m_onSpot({ray.start.x + ray.direction.x * met.distance, ray.start.y + ray.direction.y * met.distance,
              ray.start.z + ray.direction.z * met.distance},
             {side * normal.x, side * normal.y, side * normal.z});
}

// Through all that is shown, faces first; from what is picked, or from the first or last one.
void SceneView::PickNext(int step) {
    std::vector<AcDbObjectId> shown;
    std::unordered_set<std::uint64_t> known;  // an INSERT may have both faces and lines
    const auto take = [&](AcDbObjectId id, std::uint32_t layer) {
        if (!IsHidden(m_hidden, layer) && known.insert(id.asOldId()).second)
            shown.push_back(id);
    };
    for (const SceneEntity& entity : m_scene->entities)
        take(entity.id, entity.layer);
    for (const SceneLineRun& run : m_scene->lines.runs)
        take(run.id, run.layer);
    if (shown.empty())
        return;
    const auto count = static_cast<std::ptrdiff_t>(shown.size());
    const auto found = std::find(shown.begin(), shown.end(), m_picked);
    const std::ptrdiff_t at = found == shown.end() ? (step > 0 ? 0 : count - 1) : found - shown.begin() + step;
    // The window that was chosen has nothing to do with it; whoever is told of the pick may choose one that has.
    const std::optional<std::size_t> chosen = std::exchange(m_chosen, std::nullopt);
    Pick(shown[static_cast<std::size_t>((at + count) % count)]);
    if (m_chosen != chosen && m_onChoose)
        m_onChoose();
}

bool SceneView::PickByKey(int key) {
    if (key == Qt::Key_Escape && m_picked.isNull())
        return false;
    if (key == Qt::Key_Escape)
        Pick(AcDbObjectId());
    else if (key == Qt::Key_Space)
        PickAt(QPointF(m_camera.GetWidth() / 2.0, m_camera.GetHeight() / 2.0));
    else if (key == Qt::Key_Period || key == Qt::Key_Comma) {
        if (HasShapes())
            PickNext(key == Qt::Key_Period ? 1 : -1);
    } else if (key == Qt::Key_P) {
        SetParallel(!m_isParallel);
        if (m_onParallel)
            m_onParallel();
    } else {
        return false;
    }
    return true;
}

// As if the picture were dragged that way.
bool SceneView::TurnByKey(int key) {
    switch (key) {
        case Qt::Key_Left:
            Turn(-kDegreesPerKey, 0.0);
            return true;
        case Qt::Key_Right:
            Turn(kDegreesPerKey, 0.0);
            return true;
        case Qt::Key_Up:
            Turn(0.0, -kDegreesPerKey);
            return true;
        case Qt::Key_Down:
            Turn(0.0, kDegreesPerKey);
            return true;
        case Qt::Key_PageUp:
            Turn(0.0, kSteepDegreesPerKey);
            return true;
        case Qt::Key_PageDown:
            Turn(0.0, -kSteepDegreesPerKey);
            return true;
        default:
            return false;
    }
}

bool SceneView::MoveByKey(int key) {
    const double step = std::max(1.0, std::min(m_camera.GetWidth(), m_camera.GetHeight()) * kMovePerKey);
    const double dx = key == Qt::Key_Left ? -step : key == Qt::Key_Right ? step : 0.0;
    const double dy = key == Qt::Key_Up ? -step : key == Qt::Key_Down ? step : 0.0;
    if (dx == 0.0 && dy == 0.0)
        return false;
    Move(dx, dy);
    return true;
}

bool SceneView::LookByKey(int key) {
    struct Choice {
        int number, letter;
        StandardView view;
    };
    static constexpr Choice kChoices[] = {
        {Qt::Key_1, Qt::Key_T, StandardView::Top},       {Qt::Key_2, Qt::Key_S, StandardView::South},
        {Qt::Key_3, Qt::Key_E, StandardView::East},      {Qt::Key_4, Qt::Key_N, StandardView::North},
        {Qt::Key_5, Qt::Key_W, StandardView::West},      {Qt::Key_6, Qt::Key_I, StandardView::SouthEast},
        {Qt::Key_7, Qt::Key_7, StandardView::SouthWest},
    };
    if (key == Qt::Key_Home) {
        Fit();
        return true;
    }
    for (const Choice& choice : kChoices) {
        if (key == choice.number || key == choice.letter) {
            Look(choice.view);
            return true;
        }
    }
    return false;
}
