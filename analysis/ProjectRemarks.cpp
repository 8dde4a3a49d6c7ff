// Looks each layer of the project up among those of the drawing, of the windows, and of what casts shadows.
#include "analysis/ProjectRemarks.h"

#include <algorithm>
#include <optional>
#include <string>

#include "analysis/WindowLayers.h"
#include "platform/host/AcDbDatabase.h"
#include "scene/EntityGroups.h"
#include "scene/LayerLook.h"
#include "scene/Scene.h"

namespace {

using Kind = AnalysisRemark::Kind;

class ProjectLayers {
public:
    explicit ProjectLayers(const ProjectQuestion& question)
        : m_question(question),
          m_looks(question.drawing),
          m_windows(question.drawing, question.windowLayers),
          m_proposed(question.drawing, question.layers),
          m_casts(question.layers.size(), false) {
        for (const SceneEntity& entity : question.scene.entities)
            if (const auto layer = m_proposed.Find(question.scene.layers[entity.layer]))
                m_casts[*layer] = true;
        // A layer that no table lists is there where an entity lies on it.
        if (!m_proposed.Missing().empty())
            for (std::size_t i = 0; i < question.drawing.GetEntityCount(); ++i)
                m_proposed.Find(GroupsOf(question.drawing, question.drawing.GetEntityId(i)).Layer());
        m_missing = m_proposed.Missing();
    }

    std::optional<Kind> RemarkOn(std::size_t number) {
        CString layer = m_question.layers[number];
        if (std::find(m_missing.begin(), m_missing.end(), layer) != m_missing.end())
            return Kind::ProposedMissing;
        std::string name;
        // Of one layer in two spellings the first is told.
        if (!m_question.drawing.Encode(layer.Trim(), name) || m_proposed.Find(name) != number)
            return {};
        if (m_windows.Find(name))
            return Kind::ProposedIsWindows;
        if (!m_looks.Find(name).isVisible)
            return Kind::ProposedInvisible;
        return m_casts[number] ? std::nullopt : std::optional(Kind::ProposedEmpty);
    }

private:
    const ProjectQuestion& m_question;
    LayerTable m_looks;
    WindowLayers m_windows;
    WindowLayers m_proposed;
    std::vector<bool> m_casts;
    std::vector<CString> m_missing;
};

}  // namespace

void AddRemarksOnProject(const ProjectQuestion& question, std::vector<AnalysisRemark>& remarks) {
    if (question.layers.empty())
        return;
    ProjectLayers layers(question);
    for (std::size_t i = 0; i < question.layers.size(); ++i)
        if (const std::optional<Kind> kind = layers.RemarkOn(i))
            remarks.push_back({*kind, question.layers[i], 0, 0, 0.0});
}
