// What is still asked about, as tangents, while more and more of it is hidden.
#pragma once

#include <vector>

#include "analysis/TangentSpan.h"

class OpenSpans {
public:
    // In order, without a common part.
    explicit OpenSpans(std::vector<TangentSpan> spans) : m_spans(std::move(spans)) {}

    bool IsEmpty() const { return m_spans.empty(); }
    const std::vector<TangentSpan>& All() const { return m_spans; }
    // From the first to the last; there must be one.
    TangentSpan Around() const { return {m_spans.front().least, m_spans.back().most}; }
    // Whether any of it may lie between tangents in single precision, their rounding included.
    bool MayMeet(float least, float most) const {
        for (const TangentSpan& span : m_spans)
            if (span.least <= most && least <= span.most)
                return true;
        return false;
    }
    // Takes away what is hidden. False when that was nothing.
    bool Take(TangentSpan hidden);

private:
    std::vector<TangentSpan> m_spans;
};
