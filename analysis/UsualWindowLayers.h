// The layers that windows are looked for on where nobody says otherwise.
#pragma once

inline constexpr const wchar_t* kUsualWindowLayers[] = {L"WINDOW", L"窗"};
