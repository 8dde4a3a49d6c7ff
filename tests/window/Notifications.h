// What the controls of a dialog tell it: (number, code) of each WM_COMMAND and WM_NOTIFY, in their order.
#pragma once

#include <utility>
#include <vector>

#include "window/DialogForTests.h"

using Notification = std::pair<UINT, UINT>;

class Notifications {
public:
    explicit Notifications(DialogForTests& dialog) {
        dialog.m_onMessage = [this](UINT message, WPARAM wParam, LPARAM lParam) {
            if (message == WM_COMMAND)
                m_heard.emplace_back(LOWORD(wParam), HIWORD(wParam));
            else if (message == WM_NOTIFY)
                m_heard.emplace_back(static_cast<UINT>(wParam), reinterpret_cast<const NMHDR*>(lParam)->code);
        };
    }

    // Those since the last call.
    std::vector<Notification> Take() { return std::exchange(m_heard, {}); }
    // Those of one control since the last call.
    std::vector<UINT> TakeCodes(UINT id) {
        std::vector<UINT> codes;
        for (const auto& [sender, code] : Take())
            if (sender == id)
                codes.push_back(code);
        return codes;
    }

private:
    std::vector<Notification> m_heard;
};
