// Recording an animation of the sun: pictures, one for each moment, as an uncompressed video in an AVI file.
// Why: docs/decisions/avi.md
#pragma once

#include "platform/base/Api.h"
#include "platform/base/CString.h"
#include "platform/base/FrameworkTypes.h"
#include "platform/media/AviFile.h"
#include "platform/media/CBitmap.h"
#include "platform/media/CObject.h"

// Default path of a recorded animation; initially "c:\sun.avi". Any caller may change it for the rest of the run.
extern ORVO_API CString g_sRecordFile;

// A recording grows picture by picture and is finished by the destructor. The file is made by the first picture; where
// one of its name exists already, the user is asked first.
//
// Each picture is placed `rate` positions behind the one before, in a stream of `rate` frames a second: whatever the
// rate, it is shown for a second, until the next one comes. Behind the last one nothing comes, and the file ends with
// its single position, after 1/rate of a second. Who wants a whole second of it adds it once more. All pictures are key
// frames of one size.
//
// Operations give 1 for success and 0 otherwise. After a failure of the file nothing is recorded any more until Init.
class ORVO_API OrvoAVIFile : public CObject {
public:
    // Without a name or a size: Init has to follow, or the size is that of the first picture.
    OrvoAVIFile();
    // Width and height of the pictures in pixels; negative, and the first picture decides. Rate in frames per second.
    OrvoAVIFile(const wchar_t* name, int width, int height, int rate);
    // Finishes the file.
    ~OrvoAVIFile() override;

    // Starts anew with another name, size and rate. What was being recorded is finished when the new file is made, or
    // by the destructor.
    void Init(const wchar_t* name, int width, int height, int rate);

    // ---- The virtual operations behind CObject's, in the order of their slots. ----

    // Adds the BMP file at the path, through the other AddFrame. 0 when there is no such file; 1 otherwise, whether it
    // could be read and added or not.
    virtual BOOL AddFrame(QcStringW path);
    // Adds a picture. 0 when it has another size than those before, which does not end the recording; and when the user
    // does not want an existing file replaced, in which case the next picture asks again.
    virtual BOOL AddFrame(CBitmap& bitmap);
    // Whether nothing has failed since Init.
    virtual BOOL IsOK() const;

    // The path that Init or the constructor was given.
    CString GetFName() const { return m_strFileName; }
    // Bits of each pixel as recorded, 8 unless set: up to 8 with a table of fixed colours, 24, or 32.
    UINT GetColorNum() const { return m_nColorBits; }
    void SetColorNum(UINT bits) { m_nColorBits = bits; }
    // Kept for the caller, who may ask for save options before recording; nothing here looks at it. 1 unless set.
    BOOL HasSaveOptionsDialog() const { return m_bHasSaveOptionsDialog; }
    void SetHasSaveOptionsDialog(BOOL has) { m_bHasSaveOptionsDialog = has; }
    // The window over which the user is asked; null unless set.
    HWND GetSaveOptionsParentWnd() const { return m_hSaveOptionsParentWnd; }
    void SetSaveOptionsParentWnd(HWND window) { m_hSaveOptionsParentWnd = window; }

    // Reads a BMP file into `bitmap`, which must own none. 0, with the bitmap as it was, for anything that is no
    // complete BMP file. The file's own size bounds what is read and reserved.
    BOOL LoadBMPImage(const wchar_t* path, CBitmap& bitmap);
    // The bitmap as info header, colour table and rows, in one movable block that the caller frees (GlobalFree). Null
    // when there is no such bitmap, the pixels would have no bits, or it would be too large.
    HANDLE MakeDib(HBITMAP bitmap, UINT bits);
    // Puts a compressed stream before the video stream, with the stored options. One of the references to the file is
    // given up with it.
    BOOL Compress();

private:
    void InitVideo();
    void ReleaseAll();
    bool AskToReplace();
    bool CreateFileFor(struct BITMAPINFOHEADER& header);
    bool WriteFrame(struct BITMAPINFOHEADER& header);

    CString m_strFileName;
    UINT m_nColorBits;
    int m_nRate;
    int m_nWidth;
    int m_nHeight;
    int m_nFrameCount;
    BOOL m_bOK;
    BOOL m_bHasSaveOptionsDialog;
    HWND m_hSaveOptionsParentWnd;
    AVISTREAMINFOW m_streamInfo;
    PAVIFILE m_pAviFile;
    PAVISTREAM m_pStream;
    PAVISTREAM m_pCompressedStream;
    PAVISTREAM m_pThirdStream;
    AVICOMPRESSOPTIONS m_options;
    AVICOMPRESSOPTIONS* m_pOptions;
};
