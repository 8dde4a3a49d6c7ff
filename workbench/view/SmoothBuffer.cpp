// The buffer with four samples a pixel: a framebuffer object with multisampling.
#include "workbench/view/SmoothBuffer.h"

#define GL_GLEXT_PROTOTYPES
#include <GL/gl.h>
#include <GL/glext.h>

namespace {

constexpr int kSamples = 4;

}  // namespace

SmoothBuffer::~SmoothBuffer() {
    Drop();
}

bool SmoothBuffer::Begin(int width, int height) {
    if (m_isRefused)
        return false;
    if (m_frame == 0 || width != m_width || height != m_height) {
        Drop();
        if (!Make(width, height)) {
            Drop();
            m_isRefused = true;
            return false;
        }
    }
    glBindFramebuffer(GL_FRAMEBUFFER, m_frame);
    glEnable(GL_MULTISAMPLE);
    return true;
}

void SmoothBuffer::End() const {
    glBindFramebuffer(GL_READ_FRAMEBUFFER, m_frame);
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, 0);
    glBlitFramebuffer(0, 0, m_width, m_height, 0, 0, m_width, m_height, GL_COLOR_BUFFER_BIT, GL_NEAREST);
    glBindFramebuffer(GL_FRAMEBUFFER, 0);
}

bool SmoothBuffer::Make(int width, int height) {
    m_width = width;
    m_height = height;
    glGenFramebuffers(1, &m_frame);
    glGenRenderbuffers(1, &m_color);
    glGenRenderbuffers(1, &m_depth);
    if (m_frame == 0 || m_color == 0 || m_depth == 0)
        return false;
    glBindRenderbuffer(GL_RENDERBUFFER, m_color);
    glRenderbufferStorageMultisample(GL_RENDERBUFFER, kSamples, GL_RGBA8, width, height);
    glBindRenderbuffer(GL_RENDERBUFFER, m_depth);
    glRenderbufferStorageMultisample(GL_RENDERBUFFER, kSamples, GL_DEPTH_COMPONENT24, width, height);
    glBindFramebuffer(GL_FRAMEBUFFER, m_frame);
    glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_RENDERBUFFER, m_color);
    glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_DEPTH_ATTACHMENT, GL_RENDERBUFFER, m_depth);
    const bool complete = glCheckFramebufferStatus(GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE;
    glBindFramebuffer(GL_FRAMEBUFFER, 0);
    return complete;
}

void SmoothBuffer::Drop() {
    if (m_frame != 0)
        glDeleteFramebuffers(1, &m_frame);
    if (m_color != 0)
        glDeleteRenderbuffers(1, &m_color);
    if (m_depth != 0)
        glDeleteRenderbuffers(1, &m_depth);
    m_frame = m_color = m_depth = 0;
}
