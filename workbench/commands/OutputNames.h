// The files that one command writes: no two of them may be one, or the later would replace the earlier.
#pragma once

#include <vector>

#include "platform/base/CString.h"

// By whatever name or link, and also where nothing bears the name yet.
bool AreSameName(const CString& one, const CString& other);

// What an option makes.
struct OutputName {
    const wchar_t* option;
    CString file;  // or folder; empty: nothing
};

// The drawing of --write, the animation of --film, and the folder of --report with the page that goes into it.
std::vector<OutputName> OutputNames(const CString& write, const CString& film, const CString& reportFolder);

// Before anything is computed: an ExitCode, and has complained unless it is success.
int CheckOutputNames(const std::vector<OutputName>& outputs);
