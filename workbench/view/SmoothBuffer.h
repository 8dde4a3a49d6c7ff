// A second picture buffer with four samples a pixel, for edges without stairs.
#pragma once

// Belongs to the context that is current when Begin is first called, which has to be current in all calls, the
// destructor included.
class SmoothBuffer {
public:
    SmoothBuffer() = default;
    ~SmoothBuffer();
    SmoothBuffer(const SmoothBuffer&) = delete;
    SmoothBuffer& operator=(const SmoothBuffer&) = delete;

    // From here on OpenGL draws into this buffer. False, with nothing changed, where the graphics cannot do that: then
    // the picture has its stairs.
    bool Begin(int width, int height);
    // Averages the samples into the context's own buffer and makes that the current one again.
    void End() const;

private:
    bool Make(int width, int height);
    void Drop();

    unsigned m_frame = 0;
    unsigned m_color = 0;
    unsigned m_depth = 0;
    int m_width = 0;
    int m_height = 0;
    bool m_isRefused = false;
};
