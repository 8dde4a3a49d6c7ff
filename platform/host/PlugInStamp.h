// What a plug-in carries to say what it was built against, so that the host can refuse it before any of its code runs:
// a note in the library's file, which every source that includes this leaves there.
// Why: docs/decisions/host.md
#pragma once

#include <cstddef>

#include "platform/host/BuildStamp.h"

// What changes the C++ library's own classes, which the headers show, is a part of the stamp.
#ifdef _GLIBCXX_DEBUG
#define ORVO_STAMP_DEBUG "-debug"
#else
#define ORVO_STAMP_DEBUG ""  // not the debug mode, which has other containers
#endif
#if defined(_GLIBCXX_USE_CXX11_ABI) && !_GLIBCXX_USE_CXX11_ABI
#define ORVO_STAMP_TEXTS "-oldtexts"
#else
#define ORVO_STAMP_TEXTS ""  // not the texts of before C++11
#endif
#ifdef _LIBCPP_VERSION
#define ORVO_STAMP_LIBRARY "-libc++"
#else
#define ORVO_STAMP_LIBRARY ""  // not another library altogether
#endif

// All of it: "0.1.0-1234abcd", and "-debug" and the like behind it.
#define ORVO_PLUGIN_STAMP ORVO_BUILD_STAMP ORVO_STAMP_DEBUG ORVO_STAMP_TEXTS ORVO_STAMP_LIBRARY

// As files of libraries keep notes: a head of three numbers, and two texts with their ends on a multiple of four bytes.
struct PlugInNote {
    unsigned nameSize;   // of the name, in bytes
    unsigned stampSize;  // of the stamp, in bytes
    unsigned type;       // kPlugInNoteType
    char name[8];        // kPlugInNoteName
    char stamp[64];      // filled with zeros
};

// By what such a note is found among others.
inline constexpr char kPlugInNoteName[8] = "OrvoABI";
inline constexpr unsigned kPlugInNoteType = 1;

// The note itself, in whatever includes this.
[[gnu::section(".note.orvo"), gnu::used, gnu::aligned(4)]] static const PlugInNote kPlugInNote = {
    sizeof(PlugInNote::name), sizeof(PlugInNote::stamp), kPlugInNoteType, "OrvoABI", ORVO_PLUGIN_STAMP};
