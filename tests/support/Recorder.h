// Collects what a sink of texts receives (messages of the platform, the host's command line).
#pragma once

#include <string>
#include <vector>

#include "platform/base/CString.h"

// The texts in UTF-8, in the order in which they came.
struct Recorder {
    static void Take(const wchar_t* text, void* self) { static_cast<Recorder*>(self)->texts.push_back(ToUtf8(text)); }

    std::string All() const {
        std::string all;
        for (const std::string& text : texts)
            all += text;
        return all;
    }

    std::vector<std::string> texts;
};
