// The drawing that the window has open: the file, the drawing in the host, and the faces that are shown.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

#include "platform/base/CString.h"
#include "platform/host/AcDbDatabase.h"
#include "platform/host/HostDrawing.h"
#include "scene/Scene.h"

// It is open in the host (acdbCurDwg, and known to the plug-ins) from a successful Open until another one takes its
// place or this object goes.
class OpenDrawing {
public:
    OpenDrawing() = default;
    ~OpenDrawing();
    OpenDrawing(const OpenDrawing&) = delete;
    OpenDrawing& operator=(const OpenDrawing&) = delete;

    // Takes the place of the drawing that was open. False, with the reason, and that one stays. A drawing with faults
    // that can be read has a message, too.
    bool Open(const CString& path, CString& message);
    // Reads the file anew, with the heights that were set. False, with the reason, and the drawing stays as it is.
    bool Reload(CString& message);
    // Saves under the given path, which is the drawing's from then on. False, with the reason.
    bool Save(const CString& path, CString& message);
    // Reads the faces anew when the drawing was changed after they were read. False, with the reason, and the faces
    // stay.
    bool RefreshScene(CString& message);
    // Heights for layers, which count from the next RefreshScene on; another drawing begins without any.
    void SetHeights(std::vector<LayerHeight> heights);
    const std::vector<LayerHeight>& GetHeights() const { return m_heights; }

    bool IsOpen() const { return m_drawing != nullptr; }
    // Of the open drawing: there must be one.
    const AcDbDatabase& GetDatabase() const { return *m_drawing; }
    bool IsModified() const { return IsOpen() && m_drawing->IsModified(); }
    // Whether somebody else has written the file since it was opened or saved; also when it is gone.
    bool HasFileChanged() const;
    // Absolute; empty when none is open.
    const CString& GetPath() const { return m_path; }
    CString GetFileName() const;
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
    bool Read(const CString& path, const std::vector<LayerHeight>& heights, CString& message);

    std::unique_ptr<AcDbDatabase> m_drawing;
    std::optional<HostDrawing> m_inHost;  // goes before the drawing itself
    std::shared_ptr<const Scene> m_scene;
    std::uint64_t m_sceneChanges = 0;  // the drawing's changes that the faces know of
    std::vector<LayerHeight> m_heights;
    bool m_isOtherHeights = false;  // than those that the scene was made with
    CString m_path;
    std::optional<FileState> m_state;
};

// What to say where a scene without faces would be.
CString TextForNoFaces(const Scene& scene);
