// The drawing that the window has open: the file, the drawing in the host, and the faces that are shown.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "platform/base/CString.h"
#include "platform/host/AcDbDatabase.h"
#include "platform/host/HostDrawing.h"
#include "scene/Scene.h"

// A layer that was given a height and has nothing to raise.
struct IdleHeight {
    CString layer;
    std::size_t openCount = 0;  // lines there that are not closed
};

// Faces with heights for layers, and what became of the heights.
struct RaisedScene {
    std::shared_ptr<const Scene> scene;  // null where it could not be made
    std::vector<LayerHeight> heights;    // those that raise something
    std::vector<IdleHeight> idle;        // the others
};

// What has been read of a file, and belongs to nobody yet.
struct LoadedDrawing {
    std::unique_ptr<AcDbDatabase> drawing;
    RaisedScene raised;
    CString message;  // why there is none; empty where it was cancelled
    std::optional<CString> fingerprint;
};

// It is open in the host (acdbCurDwg, and known to the plug-ins) from a successful Open until another one takes its
// place or this object goes.
class OpenDrawing {
public:
    OpenDrawing() = default;
    ~OpenDrawing();
    OpenDrawing(const OpenDrawing&) = delete;
    OpenDrawing& operator=(const OpenDrawing&) = delete;

    // Runs work that takes its time; it may be in another thread, as long as it has ended when this returns.
    enum class Work { Reading, Saving };
    using Runner = std::function<void(Work kind, const std::function<void(SceneProgress&)>& work)>;
    // Without one the work is done at once. Saving cannot be cancelled.
    void SetRunner(Runner runner) { m_runner = std::move(runner); }

    // Takes the place of the drawing that was open. False, with the reason (none where it was cancelled), and that one
    // stays. A drawing with faults that can be read has a message, too.
    bool Open(const CString& path, CString& message);
    // Reads the file anew, with the heights that were set. False, as above, and the drawing stays as it is.
    bool Reload(CString& message);
    // Saves under the given path, which is the drawing's from then on. False, with the reason.
    bool Save(const CString& path, CString& message);
    // Reads the faces anew when the drawing was changed after they were read, or a height was. False, with the reason,
    // and the faces stay; where it was cancelled, there is no reason, and they are the ones to keep.
    bool RefreshScene(CString& message);
    // Heights for layers, which count from the next RefreshScene on; another drawing begins without any. Those that
    // raise nothing are left out then: TakeIdleHeights tells them once.
    void SetHeights(std::vector<LayerHeight> heights);
    std::vector<IdleHeight> TakeIdleHeights() { return std::exchange(m_idle, {}); }
    const std::vector<LayerHeight>& GetHeights() const { return m_heights; }

    bool IsOpen() const { return m_drawing != nullptr; }
    // Of the open drawing: there must be one.
    const AcDbDatabase& GetDatabase() const { return *m_drawing; }
    bool IsModified() const { return IsOpen() && m_drawing->IsModified(); }
    // Whether somebody else has written the file since it was opened or saved; also when it is gone.
    bool HasFileChanged() const;
    // Of the file as it was read or saved; none where a file has none.
    const std::optional<CString>& GetFingerprint() const { return m_fingerprint; }
    // Absolute; empty when none is open.
    const CString& GetPath() const { return m_path; }
    CString GetFileName() const;
    // Without what is behind the last point; what a picture of it may be called.
    CString GetStem() const;
    CString GetFolder() const;
    std::size_t GetEntityCount() const { return IsOpen() ? m_drawing->GetEntityCount() : 0; }
    // Which INSERTs are left out for their number of faces.
    CString GetTooLargeText() const;
    // Null when none is open.
    const std::shared_ptr<const Scene>& GetScene() const { return m_scene; }

private:
    struct FileState {
        std::uintmax_t size = 0;
        std::filesystem::file_time_type time;
        bool operator==(const FileState&) const = default;
    };
    static std::optional<FileState> StateOf(const CString& path);
    void RunWork(Work kind, const std::function<void(SceneProgress&)>& work) const;
    bool Read(const CString& path, const std::vector<LayerHeight>& heights, CString& message);
    void TakeHeights(RaisedScene& raised);

    Runner m_runner;
    std::unique_ptr<AcDbDatabase> m_drawing;
    std::optional<HostDrawing> m_inHost;  // goes before the drawing itself
    std::shared_ptr<const Scene> m_scene;
    std::uint64_t m_sceneChanges = 0;    // the drawing's changes that the faces know of
    std::uint64_t m_refusedChanges = 0;  // up to which nobody wanted other faces
    std::vector<LayerHeight> m_heights;
    std::vector<LayerHeight> m_sceneHeights;  // that the scene was made with
    std::vector<IdleHeight> m_idle;           // nobody has been told of yet
    bool m_isOtherHeights = false;            // than those that the scene was made with
    CString m_path;
    std::optional<FileState> m_state;
    std::optional<CString> m_fingerprint;
};

// What to say where a scene without faces would be.
CString TextForNoFaces(const Scene& scene);
// Why a layer did not get the height that was asked for.
CString IdleHeightText(const IdleHeight& height);
