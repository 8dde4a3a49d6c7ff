// The layers that windows are looked for on where nobody says otherwise.
#pragma once

// Their names, compared without case (of ASCII letters).
inline constexpr const wchar_t* kUsualWindowLayers[] = {L"WINDOW", L"窗"};
