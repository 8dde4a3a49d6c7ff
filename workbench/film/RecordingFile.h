// The file that a recording becomes: it grows under a name of its own, and takes its name when it is complete.
// Why: docs/decisions/workbench.md
#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

#include "platform/base/CString.h"

// How a command speaks of its recording.
struct RecordingName {
    CString file;
    const wchar_t* option = L"";  // that names it
    bool mayReplace = false;      // a file that is there, without asking
};

std::filesystem::path PathOfRecording(const CString& file);

// Whether the recording may take its name, as far as what is there now goes; gives an ExitCode, and has complained
// unless it is success. What is no ordinary file is never replaced, nor is a file that the recording is made of (of
// `sources`). Any other file is replaced after a question at the terminal; where nobody can be asked, the option --yes
// is asked for.
int CheckRecording(const RecordingName& name, const std::vector<CString>& sources);

// How large so many pictures become, with `bits` for each pixel.
std::uint64_t RecordingBytes(int width, int height, int bits, std::size_t pictures);

// Whether a file can be made there, and so many bytes have room; else what is wrong, in words, with the advice where
// there is too little room.
CString WhyNoRoom(const CString& file, std::uint64_t bytes, const CString& advice);

class GrowingRecording {
public:
    explicit GrowingRecording(const CString& file);
    // Removes the file unless it was given its place.
    ~GrowingRecording();
    GrowingRecording(const GrowingRecording&) = delete;
    GrowingRecording& operator=(const GrowingRecording&) = delete;

    // For the recorder.
    CString GetName() const;
    // Once the recorder is gone: whether it came to the end, so that the file is one that players take.
    bool IsComplete() const;
    // Gives the file its place. An empty text, or what went wrong.
    CString TakePlace();

private:
    std::filesystem::path m_output;
    std::filesystem::path m_path;
};

// In millions, with one decimal.
CString BytesText(std::uint64_t bytes);
CString NotWrittenText(const CString& file);
CString IncompleteText(const CString& file);
