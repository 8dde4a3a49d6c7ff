// Takes spans out of spans.
#include "analysis/OpenSpans.h"

#include <algorithm>
#include <cstddef>

bool OpenSpans::Take(TangentSpan hidden) {
    bool isChanged = false;
    for (std::size_t i = 0; i < m_spans.size(); ++i) {
        const TangentSpan span = m_spans[i];
        if (hidden.most <= span.least || span.most <= hidden.least)
            continue;
        isChanged = true;
        m_spans[i].most = hidden.least;  // without a length where nothing is left before
        if (hidden.most < span.most)
            m_spans.insert(m_spans.begin() + static_cast<std::ptrdiff_t>(++i), {hidden.most, span.most});
    }
    if (isChanged)
        std::erase_if(m_spans, [](const TangentSpan& span) { return !(span.least < span.most); });
    return isChanged;
}
