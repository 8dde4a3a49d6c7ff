// The one way to OpenGL: a context of our own that draws off-screen, with or without a display. Its pictures are read
// back and painted, stored or compared by whoever needs them.
// Why: docs/decisions/media.md
#pragma once

#include <memory>
#include <vector>

#include "platform/base/Api.h"
#include "platform/base/CString.h"

// A picture as OpenGL gave it: 4 bytes a pixel (red, green, blue, opacity), rows from top to bottom without gaps.
struct GlPicture {
    int width = 0;                    // pixels
    int height = 0;                   // pixels
    std::vector<unsigned char> rgba;  // width * height * 4 of them
};

// A compatibility context (glBegin and display lists work) with 8 bits for each colour and opacity, at least 24 bits of
// depth and 8 of stencil. Through EGL's surfaceless platform; where no graphics hardware is to be had, the software
// renderer draws. A context belongs to the thread that made it current, and only one is current in a thread.
class ORVO_API OffscreenGl {
public:
    // Opens a context, makes it current, and sets its viewport to the whole picture. Sizes are in pixels, from 1 to
    // GetMaxSize(). Null, with the reason in words, when the machine has no EGL or refuses; what was current stays
    // then.
    static std::unique_ptr<OffscreenGl> Open(int width, int height, CString& reason);
    // Makes no context current, if this one was.
    ~OffscreenGl();
    OffscreenGl(const OffscreenGl&) = delete;
    OffscreenGl& operator=(const OffscreenGl&) = delete;

    // Directs this thread's OpenGL calls here; false when the machine refuses. Needed only where there are several
    // contexts or threads.
    bool MakeCurrent();
    // Changes the size of the picture; display lists and all other state stay, the picture's content does not. False,
    // with nothing changed, when the size is refused.
    bool Resize(int width, int height);
    // Of the picture, in pixels.
    int GetWidth() const;
    int GetHeight() const;
    // The longest side that a picture may have, in pixels.
    int GetMaxSize() const;

    // Finishes drawing and reads the picture. False, with the picture empty, when that fails.
    bool Read(GlPicture& picture);

private:
    struct Parts;
    explicit OffscreenGl(std::unique_ptr<Parts> parts);

    std::unique_ptr<Parts> m_parts;
};
