// What an AVI file says of its stream, in the words of the framework's interface.
#pragma once

#include "platform/base/FrameworkTypes.h"

// Four letters as one number, the first one in the lowest byte, as they stand in the file.
constexpr DWORD mmioFOURCC(char a, char b, char c, char d) {
    const auto byte = [](char letter) { return static_cast<DWORD>(static_cast<BYTE>(letter)); };
    return byte(a) | byte(b) << 8 | byte(c) << 16 | byte(d) << 24;
}
inline constexpr DWORD streamtypeVIDEO = mmioFOURCC('v', 'i', 'd', 's');

// A sample that needs none before it.
inline constexpr DWORD AVIIF_KEYFRAME = 0x10;

struct AVISTREAMINFOW {
    DWORD fccType;     // streamtypeVIDEO
    DWORD fccHandler;  // codec, 0 for none
    DWORD dwFlags;
    DWORD dwCaps;
    WORD wPriority;
    WORD wLanguage;
    DWORD dwScale;
    DWORD dwRate;  // dwRate / dwScale frames a second
    DWORD dwStart;
    DWORD dwLength;
    DWORD dwInitialFrames;
    DWORD dwSuggestedBufferSize;  // of the largest sample, in bytes
    DWORD dwQuality;
    DWORD dwSampleSize;
    RECT rcFrame;
    DWORD dwEditCount;
    DWORD dwFormatChangeCount;
    wchar_t szName[64];
};
