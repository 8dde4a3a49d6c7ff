// Opens and saves the window's drawing, and makes its scene.
#include "workbench/window/OpenDrawing.h"

#include <new>

#include "workbench/Texts.h"

namespace fs = std::filesystem;

namespace {

fs::path PathOf(const CString& path) {
    return fs::path(ToUtf8(path.View()));
}

std::shared_ptr<const Scene> SceneOf(const AcDbDatabase& drawing, CString& message) {
    try {
        return std::make_shared<const Scene>(BuildScene(drawing));
    } catch (const std::bad_alloc&) {
        message = Say(L"内存不够，显示不了这个图形");
        return nullptr;
    }
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
    const std::optional<FileState> state = StateOf(target);
    auto drawing = std::make_unique<AcDbDatabase>();
    if (drawing->dxfIn(target.GetString(), &message) != Acad::eOk)
        return false;
    std::shared_ptr<const Scene> scene = SceneOf(*drawing, message);
    if (!scene)
        return false;
    m_inHost.reset();
    m_drawing = std::move(drawing);
    m_scene = std::move(scene);
    m_sceneChanges = 0;
    m_path = target;
    m_state = state;
    m_inHost.emplace(*m_drawing);
    return true;
}

bool OpenDrawing::Save(const CString& path, CString& message) {
    if (m_drawing->dxfOut(path.GetString(), &message) != Acad::eOk)
        return false;
    m_path = path;
    m_state = StateOf(path);
    return true;
}

bool OpenDrawing::RefreshScene(CString& message) {
    if (!IsOpen() || m_drawing->GetChangeCount() == m_sceneChanges)
        return true;
    std::shared_ptr<const Scene> scene = SceneOf(*m_drawing, message);
    if (!scene)
        return false;
    m_scene = std::move(scene);
    m_sceneChanges = m_drawing->GetChangeCount();
    return true;
}

bool OpenDrawing::HasFileChanged() const {
    return IsOpen() && StateOf(m_path) != m_state;
}

CString OpenDrawing::GetFileName() const {
    return FromUtf8(PathOf(m_path).filename().string());
}
