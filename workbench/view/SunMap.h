// How far the sun sees: a picture of depths, from which a shader tells what the sun reaches.
#pragma once

// Belongs to the context that is current when Begin is first called, which has to be current in all calls, the
// destructor included.
class SunMap {
public:
    SunMap() = default;
    ~SunMap();
    SunMap(const SunMap&) = delete;
    SunMap& operator=(const SunMap&) = delete;

    // From here on OpenGL draws depths, and nothing else, into a square of `size` pixels a side, or as many as the
    // graphics can. False, with nothing changed, where they cannot do that at all.
    bool Begin(int size);
    // Draws again where it drew before.
    void End();

    unsigned GetTexture() const { return m_texture; }
    int GetSize() const { return m_size; }

private:
    bool Make(int size);
    void Drop();

    unsigned m_frame = 0;
    unsigned m_texture = 0;
    int m_size = 0;
    int m_asked = 0;
    int m_frameBefore = 0;
    int m_viewportBefore[4] = {};
};
