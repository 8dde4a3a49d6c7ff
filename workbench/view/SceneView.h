// The widget that shows a scene in three dimensions, and is turned, moved and zoomed by mouse and keyboard.
// Why: docs/decisions/workbench.md
#pragma once

#include <QImage>
#include <QString>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>

#include "scene/Scene.h"
#include "workbench/view/PaintThread.h"
#include "workbench/view/ViewCamera.h"
#include "workbench/view/ViewSun.h"

// Mouse: the left button turns, the middle one (or the left one with Shift) moves, the wheel zooms at the pointer, a
// click picks what is under the pointer and chooses the window of the results there, and a double click shows
// everything. Moving and zooming hold on to the face under the pointer.
//
// Keys: arrows turn, with Shift they move; + and - zoom; Page Up and Page Down turn steeply; Home shows everything; 1
// to 7, or T, S, E, N, W and I, look from the top, south, east, north, west, south-east and (7) south-west. P changes
// between perspective and parallel. Space picks what is in the middle of the picture, a full stop and a comma the next
// and the previous entity, and Escape nothing.
//
// A scene with more faces than g_RenderMaxFaceNum is shown without edges and smoothing while the view changes, and in
// full as soon as it rests; in the sun every scene is shown without smoothing and with coarser shadows while view or
// sun move. Nothing is drawn anew while nothing changes.
//
// Events change the camera or the scene and mark the picture as out of date; the next paint event (or GetPicture) asks
// for it, once for however many events. Pictures are drawn in a thread of their own: a paint event waits for a moment,
// in which those of small scenes are there, and then shows what there is; GetPicture waits however long it takes. What
// each event does to the state below:
//
//   event                                m_isDirty   m_isFitted   m_isMoving   m_problem
//   SetScene                             true       true                    empty
//   UpdateScene                          true       (fits if)               empty
//   Look, Fit, Home, double click        true       true
//   pick, choose, hide layers, P         true
//   show results                         true
//   turn to a window or an entity        true       false
//   SetSun                               true       (fits if)   if costly
//   turn, move, zoom                     true       false       if costly
//   another size                         true       (fits if)   if costly
//   another scale of the screen          true       (fits if)
//   m_rest runs out                      true                   false
//   the picture is asked for             false
//   the picture is there                                                    the reason, if it fails
//
// "Fits if": the flag stays, and where it is set everything is shown again. With the sun that is its path, too. "If
// costly": true for a large scene and in the sun, and the timer m_rest starts anew, so that it runs out when nothing
// has come for a moment; else it stays.
//
// A picture that is wanted no more is left, but not a quick one in the sun: while somebody plays the day, moments come
// faster than pictures, and none would ever be seen.
//
// A problem stays, and keeps anything from being drawn, until the next scene comes. The opener is called in that
// thread, with the first scene to be drawn, and with each further scene for as long as it has given no painter.
class SceneView : public QWidget {
public:
    using Opener = PaintThread::Opener;

    // Where the opener gives no painter, the view says why.
    explicit SceneView(QWidget* parent = nullptr, Opener opener = ScenePainter::Open);
    ~SceneView() override;

    // Shows another drawing: everything of it, from the direction in which the view looks already. Null is no scene.
    void SetScene(std::shared_ptr<const Scene> scene);
    // Shows a later state of the same drawing, from where the eye is.
    void UpdateScene(std::shared_ptr<const Scene> scene);
    void Clear() { SetScene(nullptr); }
    // What stands in the view as long as there is nothing to see.
    void SetHint(const QString& hint);

    // Which of the scene's layers are not shown; whatever is hidden cannot be picked. A new drawing shows all again, a
    // later state of the same one does not.
    void SetHiddenLayers(const HiddenLayers& hidden);
    // Picks an entity; the null id picks nothing. What is picked is marked, and stays so when the scene is updated.
    void Pick(AcDbObjectId id);
    AcDbObjectId GetPicked() const { return m_picked; }
    // Turns and moves to an entity when nothing of it is in the picture, so that it is seen with the chosen window
    // where that can be.
    void Show(AcDbObjectId id);
    // Called whenever another entity, or none, has been picked.
    std::function<void()> m_onPick;
    // Results that are shown over the drawing, null for none; another drawing begins without any. A click on a window
    // of theirs chooses it, and one beside them none. Choosing turns to the window when it is out of sight, if
    // `isShown`.
    void SetResults(std::shared_ptr<const ViewResults> results);
    void Choose(std::optional<std::size_t> window, bool isShown);
    std::optional<std::size_t> GetChosen() const { return m_chosen; }
    // Called whenever a click has chosen another window, or none.
    std::function<void()> m_onChoose;
    // Called after a click on a face, with where it was and the face's normal on the side that is seen.
    std::function<void(const QcGePoint& place, const QcGeVector3d& outward)> m_onSpot;
    void SetParallel(bool isParallel);
    bool IsParallel() const { return m_isParallel; }
    // Called when a key has changed that.
    std::function<void()> m_onParallel;

    // The sun that shines on the scene, with its path over it; none for plain light. It stays for further drawings.
    void SetSun(const std::optional<ViewSun>& sun);
    const std::optional<ViewSun>& GetSun() const { return m_sun; }
    // Called whenever that has changed.
    std::function<void()> m_onSun;
    // Where true north lies for the compass, in degrees counter-clockwise of the drawing's y axis.
    void SetNorth(double north);

    // Puts its texts (but the hint, which is the caller's) into the language in force.
    void Retranslate();

    // Each shows everything.
    void Look(StandardView view);
    void Fit();

    const ViewCamera& GetCamera() const { return m_camera; }
    // The picture of the scene as it is shown now, without compass and path of the sun; null when there is none.
    QImage GetPicture();
    // The picture in full, and with these; null as well.
    QImage GetShownPicture();
    // Why there is no picture; empty when there is one or nothing to see.
    QString GetProblem() const { return m_problem; }
    QSize sizeHint() const override { return {800, 600}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    enum class Drag { None, Turn, Move };

    bool HasShapes() const { return m_scene && (!m_scene->faces.empty() || !m_scene->lines.segments.empty()); }
    bool IsLarge() const;
    bool IsCostly() const { return IsLarge() || (m_sun && HasShapes()); }
    void BeginToMove();
    void DrawOverlays(QPainter& painter) const;
    void DrawText(QPainter& painter, const QString& text) const;
    void TakeScene(std::shared_ptr<const Scene> scene);
    void TakeSize();
    void FitCamera();
    QPointF InPicture(const QPointF& position) const;
    void HoldOnTo(const QPointF& pixel);
    void Turn(double azimuth, double altitude);
    void Move(double dx, double dy);
    void ZoomAt(double factor, const QPointF& pixel);
    void Redraw();
    void RedrawMoving();
    bool TurnByKey(int key);
    bool MoveByKey(int key);
    bool LookByKey(int key);
    bool PickByKey(int key);
    void PickAt(const QPointF& pixel);
    void TellSpot(const QPointF& pixel) const;
    void PickNext(int step);
    void SetBoxes();
    void AskForPicture();
    void TakePicture(std::chrono::milliseconds patience);
    void Refuse(const PaintAnswer& answer);

    Opener m_opener;
    std::unique_ptr<PaintThread> m_thread;  // none before the first scene
    std::shared_ptr<const Scene> m_scene;
    ViewCamera m_camera;  // its pixels are those of the picture
    HiddenLayers m_hidden;
    AcDbObjectId m_picked;
    std::optional<ViewSun> m_sun;
    double m_north = 0.0;
    std::shared_ptr<const ViewResults> m_results;
    std::optional<std::size_t> m_chosen;  // of the windows of the results
    QImage m_picture;
    QString m_hint;
    QString m_problem;
    QTimer m_rest;  // from the last change of a large scene's view to the picture in full
    Drag m_drag = Drag::None;
    QPointF m_last;
    QPointF m_pressed;       // where the button went down
    bool m_isClick = false;  // it has not been moved since
    double m_scale = 1.0;    // pixels of the picture in one of the widget's
    bool m_isParallel = false;
    int m_maxSize = 0;         // of a picture; 0 while that is not known
    bool m_isDirty = true;     // what would be drawn now has not been asked for
    bool m_isSlow = false;     // the last one took so long that no paint event should wait for the next
    bool m_isDrawing = false;  // it has been, and the picture is not there yet
    bool m_isKept = false;     // and it is to be drawn to its end, whatever changes
    bool m_isMoving = false;   // drawn with little effort
    bool m_isFitted = true;    // everything is shown, and shall be after a change of size, too
};
