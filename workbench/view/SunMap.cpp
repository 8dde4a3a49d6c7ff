// A framebuffer object that has a texture of depths and no colours.
#include "workbench/view/SunMap.h"

#define GL_GLEXT_PROTOTYPES
#include <GL/gl.h>
#include <GL/glext.h>

#include <algorithm>

SunMap::~SunMap() {
    Drop();
}

bool SunMap::Begin(int size) {
    if (m_frame == 0 || size != m_asked) {
        Drop();
        if (!Make(size)) {
            Drop();
            return false;
        }
    }
    glGetIntegerv(GL_FRAMEBUFFER_BINDING, &m_frameBefore);
    glGetIntegerv(GL_VIEWPORT, m_viewportBefore);
    glBindFramebuffer(GL_FRAMEBUFFER, m_frame);
    glViewport(0, 0, m_size, m_size);
    glClear(GL_DEPTH_BUFFER_BIT);
    return true;
}

void SunMap::End() {
    glBindFramebuffer(GL_FRAMEBUFFER, static_cast<GLuint>(m_frameBefore));
    glViewport(m_viewportBefore[0], m_viewportBefore[1], m_viewportBefore[2], m_viewportBefore[3]);
}

bool SunMap::Make(int size) {
    m_asked = size;
    GLint most = 0;
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &most);
    m_size = std::min(size, most);
    while (glGetError() != GL_NO_ERROR) {
    }
    glGenTextures(1, &m_texture);
    glBindTexture(GL_TEXTURE_2D, m_texture);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_DEPTH_COMPONENT24, m_size, m_size, 0, GL_DEPTH_COMPONENT, GL_UNSIGNED_INT,
                 nullptr);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    glBindTexture(GL_TEXTURE_2D, 0);
    if (glGetError() != GL_NO_ERROR)
        return false;
    GLint before = 0;
    glGetIntegerv(GL_FRAMEBUFFER_BINDING, &before);
    glGenFramebuffers(1, &m_frame);
    glBindFramebuffer(GL_FRAMEBUFFER, m_frame);
    glFramebufferTexture2D(GL_FRAMEBUFFER, GL_DEPTH_ATTACHMENT, GL_TEXTURE_2D, m_texture, 0);
    glDrawBuffer(GL_NONE);
    glReadBuffer(GL_NONE);
    const bool complete = glCheckFramebufferStatus(GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE;
    glBindFramebuffer(GL_FRAMEBUFFER, static_cast<GLuint>(before));
    return complete;
}

void SunMap::Drop() {
    if (m_frame != 0)
        glDeleteFramebuffers(1, &m_frame);
    if (m_texture != 0)
        glDeleteTextures(1, &m_texture);
    m_frame = m_texture = 0;
}
