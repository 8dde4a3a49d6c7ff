// Shapes that cover each other on paper, in as few layers as can be.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "workbench/report/PaperOutline.h"

// Shapes come in the order in which they cover each other. Those of one style share a layer, unless what comes between
// them has to be between them: a layer is one path, however many houses it is of.
class PaperLayers {
public:
    explicit PaperLayers(const PaperBox& frame);

    // The content of the layer to which a shape of this style, within this box, is to be added.
    std::string& LayerFor(int style, const PaperBox& box);

    struct Layer {
        int style = 0;
        std::string content;
    };
    // From below.
    const std::vector<Layer>& All() const { return m_layers; }

private:
    PaperBox m_frame;
    int m_columns = 0;
    int m_rows = 0;
    std::vector<std::size_t> m_free;  // by cell of the frame: the first layer that covers nothing there
    std::vector<Layer> m_layers;
};
