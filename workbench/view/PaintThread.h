// Draws pictures in a thread of its own, because a large scene takes seconds and a window is to answer meanwhile.
// Why: docs/decisions/workbench.md
#pragma once

#include <QImage>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

#include "workbench/view/ScenePainter.h"

// So long a widget may wait for a picture: nobody notices.
inline constexpr std::chrono::milliseconds kPaintPatience(40);

// What is to be seen in a picture.
struct PaintJob {
    std::shared_ptr<const Scene> scene;  // null: nothing, and the painter gives back what it has of the one before
    HiddenLayers hidden;
    AcDbObjectId picked;
    ViewCamera camera;
    PaintEffort effort;
    std::optional<SceneSun> sun = {};  // without one it is day, and nothing casts a shadow
    std::shared_ptr<const ViewResults> results = nullptr;
    std::optional<std::size_t> chosen = {};
};

struct PaintAnswer {
    QImage picture;  // null where there is a problem, where the camera's picture is too large, and without a scene
    enum class Problem { None, NoGraphics, NoMemory, NoPicture } problem = Problem::None;
    CString reason;       // of NoGraphics
    bool isSlow = false;  // it took longer than anybody should wait for
    int maxSize = 0;      // the longest side that a picture may have; 0 while that is not known
};

// All members are for one thread, that of the widgets. The painter is opened with the first scene, and again with each
// further job for as long as there is none.
class PaintThread {
public:
    using Opener = std::function<std::unique_ptr<ScenePainter>(CString& reason)>;

    // `onAnswer` is called in the thread whenever there is an answer.
    PaintThread(Opener opener, std::function<void()> onAnswer);
    // Ends as soon as what is being drawn can be left.
    ~PaintThread();
    PaintThread(const PaintThread&) = delete;
    PaintThread& operator=(const PaintThread&) = delete;

    // Only the last job is answered: one before it that is not done yet is left.
    void Ask(PaintJob job);
    // The answer to the last job: waits for it at most so long, and gives each only once.
    std::optional<PaintAnswer> Wait(std::chrono::milliseconds patience);

private:
    void Run();
    PaintAnswer Answer(PaintJob& job);

    Opener m_opener;
    std::function<void()> m_onAnswer;
    std::unique_ptr<ScenePainter> m_painter;  // the thread's
    std::shared_ptr<const Scene> m_uploaded;  // the scene that the painter has
    std::mutex m_mutex;                       // for what follows
    std::condition_variable m_changed;
    std::optional<PaintJob> m_job;
    std::optional<PaintAnswer> m_answer;
    bool m_isEnding = false;
    std::atomic<bool> m_isStopped = false;  // what is being drawn is wanted no more
    std::thread m_thread;
};
