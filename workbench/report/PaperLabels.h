// Where texts stand on paper, so that none covers another.
#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/base/CString.h"
#include "workbench/report/PaperOutline.h"

// How much room a text takes, in hundredths of a millimetre, at a size in the same; rather too much, since the reader's
// fonts are not known.
int TextWidthOnPaper(const CString& text, int size);
// A text with its middle at the box's, where the box was made for this size.
std::string TextInBox(const CString& text, const PaperBox& box, int size);
PaperBox BoxForText(const CString& text, int size, PaperPoint middle);

class PaperLabels {
public:
    // Nothing stands outside of the frame.
    explicit PaperLabels(const PaperBox& frame) : m_frame(frame) {}

    bool IsFree(const PaperBox& box) const;
    void Take(const PaperBox& box);
    // Takes a box if it is free.
    bool TryTake(const PaperBox& box);

private:
    template <class Visit>
    static bool WalkCells(const PaperBox& box, const Visit& visit);

    PaperBox m_frame;
    std::vector<PaperBox> m_boxes;
    std::unordered_map<std::uint64_t, std::vector<std::uint32_t>> m_cells;  // what meets each
};
