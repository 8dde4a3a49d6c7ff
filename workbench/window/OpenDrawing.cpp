// Opens and saves the window's drawing, and makes its scene.
#include "workbench/window/OpenDrawing.h"

#include <algorithm>
#include <new>

#include "platform/base/PlainText.h"
#include "workbench/Texts.h"
#include "workbench/commands/AnalysisWords.h"
#include "workbench/report/Sha256.h"

namespace fs = std::filesystem;

namespace {

fs::path PathOf(const CString& path) {
    return fs::path(ToUtf8(path.View()));
}

// Keeps the heights that raise something, in the scene's list, too.
RaisedScene PartHeights(Scene scene, const std::vector<LayerHeight>& heights) {
    RaisedScene raised;
    std::vector<LayerHeightUse> uses;
    for (std::size_t i = 0; i < heights.size(); ++i) {
        const LayerHeightUse& use = scene.heights[i];
        if (use.bodyCount == 0) {
            raised.idle.push_back({heights[i].layer, use.openCount});
        } else {
            raised.heights.push_back(heights[i]);
            uses.push_back(use);
        }
    }
    scene.heights = std::move(uses);
    raised.scene = std::make_shared<const Scene>(std::move(scene));
    return raised;
}

RaisedScene SceneOf(const AcDbDatabase& drawing, const std::vector<LayerHeight>& heights, SceneProgress& progress,
                    CString& message) {
    try {
        SceneOptions options;
        options.heights = heights;
        options.hasLines = true;
        options.progress = &progress;
        Scene scene = BuildScene(drawing, options);
        return progress.isCancelled ? RaisedScene() : PartHeights(std::move(scene), heights);
    } catch (const std::bad_alloc&) {
        message = Say(L"内存不够，显示不了这个图形");
        return {};
    }
}

LoadedDrawing Load(const CString& path, const std::vector<LayerHeight>& heights, SceneProgress& progress) {
    LoadedDrawing loaded;
    loaded.fingerprint = Sha256OfFile(path);
    auto drawing = std::make_unique<AcDbDatabase>();
    if (drawing->dxfIn(path.GetString(), &loaded.message) != Acad::eOk)
        return loaded;
    loaded.raised = SceneOf(*drawing, heights, progress, loaded.message);
    loaded.drawing = std::move(drawing);
    return loaded;
}

bool AreSame(const std::vector<LayerHeight>& a, const std::vector<LayerHeight>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const LayerHeight& one, const LayerHeight& other) {
        return one.layer == other.layer && one.metres == other.metres;
    });
}

}  // namespace

OpenDrawing::~OpenDrawing() = default;

std::optional<OpenDrawing::FileState> OpenDrawing::StateOf(const CString& path) {
    std::error_code error;
    FileState state;
    state.size = fs::file_size(PathOf(path), error);
    if (!error)
        state.time = fs::last_write_time(PathOf(path), error);
    return error ? std::nullopt : std::optional(state);
}

bool OpenDrawing::Open(const CString& path, CString& message) {
    std::error_code error;
    const fs::path absolute = fs::absolute(PathOf(path), error);
    const CString target = error ? path : FromUtf8(absolute.string());
    return Read(target, {}, message);
}

bool OpenDrawing::Reload(CString& message) {
    return IsOpen() && Read(CString(m_path), std::vector<LayerHeight>(m_heights), message);
}

void OpenDrawing::RunWork(Work kind, const std::function<void(SceneProgress&)>& work) const {
    if (m_runner)
        return m_runner(kind, work);
    SceneProgress progress;
    work(progress);
}

bool OpenDrawing::Read(const CString& path, const std::vector<LayerHeight>& heights, CString& message) {
    const std::optional<FileState> state = StateOf(path);
    LoadedDrawing loaded;
    RunWork(Work::Reading, [&](SceneProgress& progress) { loaded = Load(path, heights, progress); });
    message = loaded.message;
    if (!loaded.raised.scene)
        return false;
    m_inHost.reset();
    m_drawing = std::move(loaded.drawing);
    TakeHeights(loaded.raised);
    m_scene = std::move(loaded.raised.scene);
    m_sceneChanges = m_refusedChanges = 0;
    m_path = path;
    m_state = state;
    m_fingerprint = loaded.fingerprint;
    m_inHost.emplace(*m_drawing);
    message = m_drawing->GetReadWarning();
    return true;
}

bool OpenDrawing::Save(const CString& path, CString& message) {
    bool isSaved = false;
    std::optional<FileState> state;
    std::optional<CString> fingerprint;
    RunWork(Work::Saving, [&](SceneProgress& /*progress*/) {
        isSaved = m_drawing->dxfOut(path.GetString(), &message) == Acad::eOk;
        state = StateOf(path);
        fingerprint = Sha256OfFile(path);
    });
    if (!isSaved)
        return false;
    m_path = path;
    m_state = state;
    m_fingerprint = fingerprint;
    return true;
}

bool OpenDrawing::RefreshScene(CString& message) {
    if (!IsOpen() || (m_drawing->GetChangeCount() == std::max(m_sceneChanges, m_refusedChanges) && !m_isOtherHeights))
        return true;
    RaisedScene raised;
    bool isCancelled = false;
    RunWork(Work::Reading, [&](SceneProgress& progress) {
        raised = SceneOf(*m_drawing, m_heights, progress, message);
        isCancelled = progress.isCancelled;
    });
    // Whoever cancels wants what is there, and is not to be asked again with the next command.
    if (isCancelled && !raised.scene) {
        m_refusedChanges = m_drawing->GetChangeCount();
        m_heights = m_sceneHeights;
        m_isOtherHeights = false;
    }
    if (!raised.scene)
        return false;
    // A height that raised nothing makes no other scene, and what was found out of that one still holds.
    const bool isSame = m_drawing->GetChangeCount() == m_sceneChanges && AreSame(raised.heights, m_sceneHeights);
    TakeHeights(raised);
    if (!isSame)
        m_scene = std::move(raised.scene);
    m_sceneChanges = m_drawing->GetChangeCount();
    return true;
}

void OpenDrawing::TakeHeights(RaisedScene& raised) {
    m_heights = std::move(raised.heights);
    m_sceneHeights = m_heights;
    m_idle = std::move(raised.idle);
    m_isOtherHeights = false;
}

void OpenDrawing::SetHeights(std::vector<LayerHeight> heights) {
    m_heights = std::move(heights);
    m_isOtherHeights = true;
}

bool OpenDrawing::HasFileChanged() const {
    return IsOpen() && StateOf(m_path) != m_state;
}

CString OpenDrawing::GetFileName() const {
    return FromUtf8(PathOf(m_path).filename().string());
}

CString OpenDrawing::GetStem() const {
    return FromUtf8(PathOf(m_path).stem().string());
}

CString OpenDrawing::GetFolder() const {
    return FromUtf8(PathOf(m_path).parent_path().string());
}

CString OpenDrawing::GetTooLargeText() const {
    constexpr std::size_t kMostNamed = 20;
    const std::vector<AcDbObjectId>& ids = m_scene->tooLarge;
    CString handles;
    for (std::size_t i = 0; i < std::min(ids.size(), kMostNamed); ++i)
        handles += (i == 0 ? L"" : L" ") + HandleOrNone(m_drawing->GetHandle(ids[i]));
    if (ids.size() > kMostNamed)
        handles += L" ...";
    return SayFormat(L"%d 个块参照的面太多（图形一共超过 %d 个面），没有显示：%s", static_cast<int>(ids.size()),
                     static_cast<int>(kMostSceneFaces), handles);
}

CString TextForNoFaces(const Scene& scene) {
    if (scene.passedOver.empty())
        return Say(L"这个图形中没有可以显示的面");
    return SayFormat(L"这个图形中没有可以显示的面。图形中有 %s：都没有高度", Printable(KindsText(scene.passedOver)));
}

CString IdleHeightText(const IdleHeight& height) {
    const CString layer = Printable(height.layer);
    if (height.openCount == 0)
        return SayFormat(L"图层“%s”没有得到高度：上面没有可见、闭合而没有厚度的轮廓", layer);
    return SayFormat(L"图层“%s”没有得到高度：上面没有可见、闭合而没有厚度的轮廓，有 %d 条开口的线：请在制图程序里闭合",
                     layer, static_cast<int>(height.openCount));
}
