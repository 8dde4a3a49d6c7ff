// Keeps scene, camera and sun, and draws the picture when it is out of date. What mouse and keyboard do: ViewInput.cpp.
#include "workbench/view/SceneView.h"

#include <QPainter>
#include <algorithm>
#include <utility>

#include "settings/AnalysisParameters.h"
#include "workbench/view/CompassRose.h"
#include "workbench/view/Lookout.h"
#include "workbench/view/SunPath.h"
#include "workbench/view/WidgetText.h"

namespace {

constexpr int kRestMilliseconds = 180;

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
    if (isShown && quad && HasShapes() && !IsInSight(*quad, *m_scene, m_hidden, m_camera)) {
        LookAtWindow(m_camera, *quad, *m_scene, m_hidden);
        m_isFitted = false;
    }
    Redraw();
}

void SceneView::Show(AcDbObjectId id) {
    const auto box = HasShapes() ? BoxOfEntity(*m_scene, m_hidden, id) : std::nullopt;
    if (!box || IsInPicture(*m_scene, m_hidden, id, m_camera))
        return;
    const ResultQuad* const quad = m_chosen && m_results ? QuadOf(*m_results, *m_chosen) : nullptr;
    if (!quad || !LookAtBoth(m_camera, *box, *quad, *m_scene, m_hidden))
        LookAtBox(m_camera, *box);
    m_isFitted = false;
    Redraw();
}

void SceneView::SetParallel(bool isParallel) {
    m_isParallel = isParallel;
    m_camera.SetParallel(isParallel);
    Redraw();
}

void SceneView::SetSun(const std::optional<ViewSun>& sun) {
    m_sun = sun;
    if (m_isFitted)
        FitCamera();
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
    FitCamera();
    Redraw();
}

void SceneView::FitCamera() {
    if (m_sun && HasShapes())
        m_camera.Fit(SunPath::ArcAround(BoxOfShapes(*m_scene), *m_sun));
    else
        m_camera.Fit();
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

QImage SceneView::GetShownPicture() {
    if (std::exchange(m_isMoving, false))
        Redraw();
    QImage picture = GetPicture();
    if (picture.isNull())
        return picture;
    QPainter painter(&picture);
    painter.setFont(font());
    painter.scale(m_scale, m_scale);
    DrawOverlays(painter);
    return picture;
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
        FitCamera();
    m_isDirty = true;
}

QPointF SceneView::InPicture(const QPointF& position) const {
    return position * m_scale;
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
    const QSizeF reach = ReachOfCompassRose(painter.font(), kRose);
    std::vector<QRectF> taken;
    if (width() > 3 * reach.width() && height() > 3 * reach.height())
        taken.emplace_back(QPointF(0, height() - 2 * reach.height()), 2 * reach);
    if (m_sun && HasShapes())
        SunPath(m_camera, BoxOfShapes(*m_scene)).Draw(painter, *m_sun, m_scale, taken);
    for (const QRectF& rose : taken)
        DrawCompassRose(painter, m_camera, m_north, rose.center(), kRose);
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
