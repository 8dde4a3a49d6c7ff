// Waits for jobs, and draws the last one.
#include "workbench/view/PaintThread.h"

#include <utility>

namespace {

QImage ImageOf(const GlPicture& picture) {
    const QImage view(picture.rgba.data(), picture.width, picture.height, picture.width * 4, QImage::Format_RGBX8888);
    return view.convertToFormat(QImage::Format_RGB32);
}

}  // namespace

PaintThread::PaintThread(Opener opener, std::function<void()> onAnswer)
    : m_opener(std::move(opener)), m_onAnswer(std::move(onAnswer)), m_thread([this] { Run(); }) {}

PaintThread::~PaintThread() {
    {
        const std::lock_guard lock(m_mutex);
        m_isEnding = true;
        m_isStopped = true;
    }
    m_changed.notify_all();
    m_thread.join();
}

void PaintThread::Ask(PaintJob job) {
    {
        const std::lock_guard lock(m_mutex);
        m_job = std::move(job);
        m_answer.reset();
        m_isStopped = true;
    }
    m_changed.notify_all();
}

std::optional<PaintAnswer> PaintThread::Wait(std::chrono::milliseconds patience) {
    std::unique_lock lock(m_mutex);
    m_changed.wait_for(lock, patience, [this] { return m_answer.has_value(); });
    return std::exchange(m_answer, std::nullopt);
}

void PaintThread::Run() {
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_changed.wait(lock, [this] { return m_isEnding || m_job.has_value(); });
        if (m_isEnding)
            break;
        PaintJob job = *std::exchange(m_job, std::nullopt);
        m_isStopped = false;
        lock.unlock();
        const auto begin = std::chrono::steady_clock::now();
        PaintAnswer answer = Answer(job);
        answer.isSlow = std::chrono::steady_clock::now() - begin > kPaintPatience;
        lock.lock();
        if (m_isEnding || m_job)
            continue;
        m_answer = std::move(answer);
        m_changed.notify_all();
        lock.unlock();
        m_onAnswer();
        lock.lock();
    }
    lock.unlock();
    m_painter.reset();  // its context is this thread's
}

PaintAnswer PaintThread::Answer(PaintJob& job) {
    PaintAnswer answer;
    if (!job.scene) {
        m_uploaded.reset();
        if (m_painter)
            m_painter->SetScene(Scene());
        return answer;
    }
    if (!m_painter)
        m_painter = m_opener(answer.reason);
    if (!m_painter) {
        answer.problem = PaintAnswer::Problem::NoGraphics;
        return answer;
    }
    answer.maxSize = m_painter->GetMaxSize();
    if (std::max(job.camera.GetWidth(), job.camera.GetHeight()) > answer.maxSize)
        return answer;
    if (m_uploaded != job.scene) {
        m_uploaded.reset();
        if (!m_painter->SetScene(*job.scene)) {
            answer.problem = PaintAnswer::Problem::NoMemory;
            return answer;
        }
        m_uploaded = job.scene;
    }
    m_painter->SetHiddenLayers(job.hidden);
    m_painter->SetMarked(ShapesOf(*job.scene, job.hidden, job.picked));
    m_painter->SetResults(job.results, job.chosen);
    job.effort.isStopped = &m_isStopped;
    GlPicture picture;
    const bool isDrawn = job.sun ? m_painter->PaintInSun(job.camera, *job.sun, job.effort, picture)
                                 : m_painter->Paint(job.camera, job.effort, picture);
    if (isDrawn)
        answer.picture = ImageOf(picture);
    else
        answer.problem = PaintAnswer::Problem::NoPicture;
    return answer;
}
