// Turns events of mouse and keyboard into changes of the camera, and draws the picture when it is out of date.
#include "workbench/view/SceneView.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <numbers>
#include <unordered_set>
#include <utility>

#include "geometry/DotProduct.h"
#include "settings/AnalysisParameters.h"
#include "workbench/view/CompassRose.h"
#include "workbench/view/ScenePick.h"
#include "workbench/view/SunPath.h"
#include "workbench/view/WidgetText.h"

namespace {

constexpr double kDegreesPerPixel = 0.35;
constexpr double kDegreesPerKey = 5.0;
constexpr double kSteepDegreesPerKey = 15.0;
constexpr double kZoomPerKey = 1.25;
constexpr double kZoomPerNotch = 1.2;
constexpr double kWheelPerNotch = 120.0;
constexpr double kMovePerKey = 0.05;  // of the picture's shorter side
constexpr int kRestMilliseconds = 180;
constexpr double kMostOfAClick = 3.0;  // pixels that a hand moves unawares

// The module's view angles, read as those of the line of sight: in the ground plane from +X towards +Y, and from the
// zenith down. The eye is opposite. 120 and 120 look from the south-south-east, 30 degrees down.
void LookByParameters(ViewCamera& camera) {
    camera.Look(-90.0 - g_nViewXYAngle, g_nViewZAAngle - 90.0);
}

// Faces are what a drawing is about; without any it is the lines.
ViewBox BoxOfShapes(const Scene& scene) {
    return scene.faces.empty() ? ViewBox{scene.lines.least, scene.lines.most} : ViewBox{scene.least, scene.most};
}

constexpr std::chrono::milliseconds kForever = std::chrono::hours(24);

}  // namespace

SceneView::SceneView(QWidget* parent, Opener opener) : QWidget(parent), m_opener(std::move(opener)) {
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(64, 48);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setObjectName("SceneView");
    Retranslate();
    m_rest.setSingleShot(true);
    m_rest.setInterval(kRestMilliseconds);
    connect(&m_rest, &QTimer::timeout, this, [this] {
        m_isMoving = false;
        Redraw();
    });
    LookByParameters(m_camera);
}

SceneView::~SceneView() = default;

void SceneView::Retranslate() {
    setAccessibleName(ShownSay(L"三维视图"));
    setAccessibleDescription(
        ShownSay(L"方向键旋转，Shift+方向键平移，加号和减号缩放，Home 显示全部，数字 1 到 7 "
                 L"选择标准视图，空格选取视图中央的实体"));
    update();
}

void SceneView::SetScene(std::shared_ptr<const Scene> scene) {
    m_hidden.clear();
    m_picture = QImage();
    m_results.reset();
    m_chosen.reset();
    Pick(AcDbObjectId());
    TakeScene(std::move(scene));
    Fit();
}

void SceneView::UpdateScene(std::shared_ptr<const Scene> scene) {
    TakeScene(std::move(scene));
    if (m_isFitted)
        Fit();
}

void SceneView::TakeScene(std::shared_ptr<const Scene> scene) {
    m_scene = std::move(scene);
    m_isKept = false;
    m_problem.clear();
    if (HasShapes())
        SetBoxes();
    else if (m_thread)
        m_thread->Ask({});  // it gives its memory back
    Redraw();
}

void SceneView::SetBoxes() {
    m_camera.SetBox(BoxOfShapes(*m_scene));
    if (!m_scene->lines.segments.empty())
        m_camera.SetSurroundings({m_scene->lines.least, m_scene->lines.most});
}

void SceneView::SetHiddenLayers(const HiddenLayers& hidden) {
    m_hidden = hidden;
    Redraw();
}

void SceneView::Pick(AcDbObjectId id) {
    if (id == m_picked)
        return;
    m_picked = id;
    Redraw();
    if (m_onPick)
        m_onPick();
}

void SceneView::SetResults(std::shared_ptr<const ViewResults> results) {
    m_results = std::move(results);
    Redraw();
}

void SceneView::Choose(std::optional<std::size_t> window, bool isShown) {
    m_chosen = window;
    const ResultQuad* const quad = window && m_results ? QuadOf(*m_results, *window) : nullptr;
    if (isShown && quad && HasShapes() && !IsInSight(*quad, *m_scene, m_hidden, m_camera))
        TurnTo(*quad);
    Redraw();
}

// From before it and somewhat above, from where its house is seen as well, or as close as it takes for nothing to stand
// in between.
void SceneView::TurnTo(const ResultQuad& quad) {
    constexpr double kAltitude = 15.0;
    constexpr double kDistances[] = {16.0, 8.0};  // in sizes of the window
    const QcGePoint& left = quad.corners[0];
    const QcGePoint& right = quad.corners[1];
    const double size = (quad.corners[2] - left).Length();
    const double azimuth = std::atan2(right.y - left.y, left.x - right.x) * 180.0 / std::numbers::pi;
    m_camera.Look(azimuth, kAltitude);
    m_camera.Aim(MiddleOf(quad));
    m_isFitted = false;
    for (const double distance : kDistances) {
        if (!(size > 0.0))
            return;
        m_camera.Zoom(m_camera.GetDistance() / (distance * size), m_camera.GetWidth() / 2.0,
                      m_camera.GetHeight() / 2.0);
        if (IsInSight(quad, *m_scene, m_hidden, m_camera))
            return;
    }
}

void SceneView::SetParallel(bool isParallel) {
    m_isParallel = isParallel;
    m_camera.SetParallel(isParallel);
    Redraw();
}

void SceneView::SetSun(const std::optional<ViewSun>& sun) {
    m_sun = sun;
    BeginToMove();
    Redraw();
    if (m_onSun)
        m_onSun();
}

void SceneView::SetNorth(double north) {
    m_north = north;
    update();
}

void SceneView::SetHint(const QString& hint) {
    m_hint = hint;
    update();
}

void SceneView::Look(StandardView view) {
    m_camera.Look(view);
    Fit();
}

void SceneView::Fit() {
    m_isFitted = true;
    TakeSize();
    m_camera.Fit();
    Redraw();
}

QImage SceneView::GetPicture() {
    TakeSize();
    // A second time where the first one told how large a picture may be.
    for (int i = 0; i < 2; ++i) {
        if (m_isDirty)
            AskForPicture();
        TakePicture(kForever);
    }
    return m_picture;
}

bool SceneView::IsLarge() const {
    return HasShapes() && m_scene->faces.size() + m_scene->lines.segments.size() >
                              static_cast<std::size_t>(std::max(g_RenderMaxFaceNum, 0));
}

// The picture has the screen's own pixels, unless that is more than the graphics can draw.
void SceneView::TakeSize() {
    const double longest = std::max(1, std::max(width(), height()));
    const double most = m_maxSize > 0 ? m_maxSize : longest * devicePixelRatioF();
    m_scale = std::min(devicePixelRatioF(), most / longest);
    const int pixelWidth = std::max(1, static_cast<int>(width() * m_scale));
    const int pixelHeight = std::max(1, static_cast<int>(height() * m_scale));
    if (pixelWidth == m_camera.GetWidth() && pixelHeight == m_camera.GetHeight())
        return;
    m_camera.SetViewport(pixelWidth, pixelHeight);
    if (m_isFitted)
        m_camera.Fit();
    m_isDirty = true;
}

QPointF SceneView::InPicture(const QPointF& position) const {
    return position * m_scale;
}

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

void SceneView::Redraw() {
    m_isDirty = true;
    update();
}

void SceneView::RedrawMoving() {
    m_isFitted = false;
    BeginToMove();
    Redraw();
}

void SceneView::BeginToMove() {
    m_isMoving = IsCostly();
    if (m_isMoving)
        m_rest.start();
}

void SceneView::Refuse(const PaintAnswer& answer) {
    const QString reason = answer.problem == PaintAnswer::Problem::NoGraphics ? Shown(answer.reason)
                           : answer.problem == PaintAnswer::Problem::NoMemory
                               ? ShownSay(L"内存不足，容不下这张图的所有面。")
                               : ShownSay(L"图形驱动程序没有给出图像。");
    m_problem = ShownSay(L"无法显示三维视图。") + "\n" + reason;
    m_picture = QImage();
}

void SceneView::AskForPicture() {
    m_isDirty = false;
    m_isDrawing = false;
    if (!HasShapes() || !m_problem.isEmpty()) {
        m_picture = QImage();
        return;
    }
    if (!m_thread)
        m_thread = std::make_unique<PaintThread>(m_opener, [this] {
            QMetaObject::invokeMethod(
                this, [this] { update(); }, Qt::QueuedConnection);
        });
    m_isDrawing = true;
    m_isKept = m_isMoving && m_sun;
    PaintJob job{m_scene, m_hidden, m_picked, m_camera, {!m_isMoving || !IsLarge(), !m_isMoving}};
    job.results = m_results;
    job.chosen = m_chosen;
    if (m_sun)
        job.sun = SunInDrawing(m_sun->day, m_sun->north, m_sun->trueSolarTime);
    m_thread->Ask(std::move(job));
}

void SceneView::TakePicture(std::chrono::milliseconds patience) {
    if (!m_isDrawing)
        return;
    const std::optional<PaintAnswer> answer = m_thread->Wait(patience);
    if (!answer)
        return;
    m_isDrawing = false;
    m_isSlow = answer->isSlow;
    if (answer->maxSize > 0)
        m_maxSize = answer->maxSize;
    if (answer->problem != PaintAnswer::Problem::None)
        Refuse(*answer);
    else if (answer->picture.isNull()) {
        TakeSize();  // it was too large, which makes it out of date
        update();
    } else
        m_picture = answer->picture;
}

void SceneView::DrawOverlays(QPainter& painter) const {
    constexpr double kRose = 36.0;
    if (m_sun && HasShapes())
        SunPath(m_camera, BoxOfShapes(*m_scene)).Draw(painter, *m_sun, m_scale);
    const QSizeF reach = ReachOfCompassRose(painter.font(), kRose);
    if (width() > 3 * reach.width() && height() > 3 * reach.height())
        DrawCompassRose(painter, m_camera, m_north, QPointF(reach.width(), height() - reach.height()), kRose);
}

// Before a sky without a picture, in which letters can be read on dark desktops, too.
void SceneView::DrawText(QPainter& painter, const QString& text) const {
    const bool isDark = palette().color(QPalette::Window).lightness() < 128;
    QLinearGradient sky(0, 0, 0, height());
    sky.setColorAt(0.0, isDark ? QColor(38, 46, 56) : QColor(214, 227, 240));
    sky.setColorAt(1.0, isDark ? QColor(48, 49, 50) : QColor(240, 242, 241));
    painter.fillRect(rect(), sky);
    painter.setPen(isDark ? QColor(222, 226, 232) : QColor(70, 78, 88));
    QFont large = font();
    large.setPointSizeF(std::max(large.pointSizeF(), 8.0) * 1.3);
    painter.setFont(large);
    painter.drawText(rect().adjusted(24, 24, -24, -24), Qt::AlignCenter | Qt::TextWordWrap, text);
}

void SceneView::paintEvent(QPaintEvent* /*event*/) {
    TakeSize();
    TakePicture(std::chrono::milliseconds(0));
    if (m_isDirty && !(m_isDrawing && m_isKept))
        AskForPicture();
    TakePicture(m_isSlow ? std::chrono::milliseconds(0) : kPaintPatience);
    QPainter painter(this);
    if (!m_picture.isNull()) {
        painter.drawImage(QRectF(rect()), m_picture);
        DrawOverlays(painter);
    } else {
        DrawText(painter, !m_problem.isEmpty() ? m_problem : m_isDrawing ? ShownSay(L"正在绘制……") : m_hint);
    }
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void SceneView::resizeEvent(QResizeEvent* /*event*/) {
    TakeSize();
    BeginToMove();
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
