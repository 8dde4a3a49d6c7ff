// What an AVI file says of its stream, in the words of the framework's interface.
#pragma once

#include "platform/base/FrameworkTypes.h"

// Four letters as one number, the first one in the lowest byte, as they stand in the file.
constexpr DWORD mmioFOURCC(char a, char b, char c, char d) {
    const auto byte = [](char letter) { return static_cast<DWORD>(static_cast<BYTE>(letter)); };
    return byte(a) | byte(b) << 8 | byte(c) << 16 | byte(d) << 24;
}
// A stream of pictures.
inline constexpr DWORD streamtypeVIDEO = mmioFOURCC('v', 'i', 'd', 's');

// A sample that needs none before it.
inline constexpr DWORD AVIIF_KEYFRAME = 0x10;

// A stream. What is not told to be set here stands in the file as the caller has it.
struct AVISTREAMINFOW {
    DWORD fccType;                // streamtypeVIDEO
    DWORD fccHandler;             // codec, 0 for none
    DWORD dwFlags;                // as the file has them
    DWORD dwCaps;                 // not in the file
    WORD wPriority;               // among streams of one type
    WORD wLanguage;               // as the file has it
    DWORD dwScale;                // dwScale / dwRate seconds a frame; both 1 to 2^31 - 1
    DWORD dwRate;                 // dwRate / dwScale frames a second
    DWORD dwStart;                // of the stream, in frames
    DWORD dwLength;               // in frames; counted while the file is written
    DWORD dwInitialFrames;        // of sound before the first picture
    DWORD dwSuggestedBufferSize;  // of the largest sample, in bytes; measured while the file is written
    DWORD dwQuality;              // 0 to 10000
    DWORD dwSampleSize;           // bytes of every sample; 0 where they differ
    RECT rcFrame;                 // of the picture, in pixels; 16 bits of each are kept
    DWORD dwEditCount;            // not in the file
    DWORD dwFormatChangeCount;    // not in the file
    wchar_t szName[64];           // not in the file
};
