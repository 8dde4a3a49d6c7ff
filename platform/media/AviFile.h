// Writing AVI files: one video stream, sample by sample.
//
// A stream's position is a moment of its own time, counted in frames of dwScale / dwRate seconds. Samples are written
// in rising positions; positions that are skipped get empty chunks, so that a player shows the picture before for as
// long. Files past 1 GiB go on in the OpenDML form (a super index, further RIFF parts "AVIX").
//
// What has been written to a sample's end is in the file, and its header fits, before the call returns: when the
// program dies, all samples up to the last one are there, without the final index.
//
// Files and streams are counted: a stream keeps its file, a compressed stream its source. Releasing a handle once too
// often does nothing. All may be called from any thread, one at a time for each file.
//
// Infos, formats, samples and options are taken as the framework takes them, by pointers to what could be changed, but
// nothing is ever written to them.
// Why: docs/decisions/media.md
#pragma once

#include "platform/base/Api.h"
#include "platform/base/FrameworkTypes.h"
#include "platform/media/AviStreamInfo.h"

// Names a file, and a stream of one; null for none.
using PAVIFILE = struct OrvoAviFileHandle*;
using PAVISTREAM = struct OrvoAviStreamHandle*;
struct CLSID;

// How a file is opened: to be written, and made anew.
inline constexpr UINT OF_WRITE = 0x0001;
inline constexpr UINT OF_CREATE = 0x1000;

// What these functions give: success is 0, every failure below it.
inline constexpr HRESULT AVIERR_OK = 0;                                            // done
inline constexpr HRESULT AVIERR_UNSUPPORTED = static_cast<HRESULT>(0x80044065U);   // what is not done here
inline constexpr HRESULT AVIERR_BADFORMAT = static_cast<HRESULT>(0x80044066U);     // no format, or one that cannot be
inline constexpr HRESULT AVIERR_MEMORY = static_cast<HRESULT>(0x80044067U);        // there is no memory
inline constexpr HRESULT AVIERR_BADHANDLE = static_cast<HRESULT>(0x8004406AU);     // the handle names nothing
inline constexpr HRESULT AVIERR_BADPARAM = static_cast<HRESULT>(0x8004406BU);      // an argument makes no sense
inline constexpr HRESULT AVIERR_FILEWRITE = static_cast<HRESULT>(0x8004406EU);     // the disk did not take it
inline constexpr HRESULT AVIERR_FILEOPEN = static_cast<HRESULT>(0x8004406FU);      // the file cannot be made
inline constexpr HRESULT AVIERR_NOCOMPRESSOR = static_cast<HRESULT>(0x80044071U);  // there is no such codec

// How a stream is to be compressed. Only the handler is looked at here.
struct AVICOMPRESSOPTIONS {
    DWORD fccType;            // of the stream
    DWORD fccHandler;         // the codec: 0 or "DIB " for none
    DWORD dwKeyFrameEvery;    // frames from one key frame to the next
    DWORD dwQuality;          // 0 to 10000
    DWORD dwBytesPerSecond;   // that are aimed at
    DWORD dwFlags;            // which of the others count
    void* lpFormat;           // the format of what is coded; the caller's
    DWORD cbFormat;           // its bytes
    void* lpParms;            // the codec's own parameters; the caller's
    DWORD cbParms;            // their bytes
    DWORD dwInterleaveEvery;  // frames from one piece of sound to the next
};

// The version of this interface: major in the upper, minor in the lower 16 bits.
ORVO_API DWORD VideoForWindowsVersion();
// For tests: another version from now on; 0 restores the true one.
ORVO_API void SetVideoForWindowsVersionForTest(DWORD version);

// Files can be opened between the first AVIFileInit and the AVIFileExit that matches it; files that are open after it
// stay open.
ORVO_API void AVIFileInit();
ORVO_API void AVIFileExit();
// How many AVIFileInit have not been matched: for tests.
ORVO_API int AviFileInitCount();

// Makes a new file, in place of one of the same name. mode must be OF_WRITE | OF_CREATE and the handler null.
// AVIERR_FILEOPEN when the file cannot be made: what was there then stays.
ORVO_API HRESULT AVIFileOpenW(PAVIFILE* file, const wchar_t* path, UINT mode, CLSID* handler);
// Adds the file's one stream, of type "vids". AVIERR_BADPARAM for a scale or rate that is 0 or beyond 31 bits,
// AVIERR_UNSUPPORTED for a second stream or another type.
ORVO_API HRESULT AVIFileCreateStreamW(PAVIFILE file, PAVISTREAM* stream, AVISTREAMINFOW* info);
// Sets the format of all samples: an info header with its colour table, at most 64 KiB. Only at position 0 and before
// the first sample.
ORVO_API HRESULT AVIStreamSetFormat(PAVISTREAM stream, LONG position, void* format, LONG bytes);
// Appends one sample (samples must be 1). The position is the stream's end or later (-1 for the end). A gap that no
// file can hold, or the disk has no room for, is refused before anything is written. AVIERR_FILEWRITE when the disk
// does not take the sample: the file then ends with the one before. The counts written may be null.
ORVO_API HRESULT AVIStreamWrite(PAVISTREAM stream, LONG position, LONG samples, void* buffer, LONG bytes, DWORD flags,
                                LONG* samplesWritten, LONG* bytesWritten);
// A stream that codes what is written to it and passes it on to the source. There are no codecs here: only options
// whose handler is 0 or "DIB ", for samples as they are, are served; others give AVIERR_NOCOMPRESSOR.
ORVO_API HRESULT AVIMakeCompressedStream(PAVISTREAM* compressed, PAVISTREAM source, AVICOMPRESSOPTIONS* options,
                                         CLSID* handler);

// Give up a stream or a file. These give what is left of the object's count, 0 for a handle that names none. The last
// one finishes the file.
ORVO_API DWORD AVIStreamRelease(PAVISTREAM stream);
ORVO_API DWORD AVIFileRelease(PAVIFILE file);
