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
    if (m_bRefused)
        return false;
    if (m_nFrame == 0 || width != m_nWidth || height != m_nHeight) {
        Drop();
        if (!Make(width, height)) {
            Drop();
            m_bRefused = true;
            return false;
        }
    }
    glBindFramebuffer(GL_FRAMEBUFFER, m_nFrame);
    glEnable(GL_MULTISAMPLE);
    return true;
}

void SmoothBuffer::End() const {
    glBindFramebuffer(GL_READ_FRAMEBUFFER, m_nFrame);
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, 0);
    glBlitFramebuffer(0, 0, m_nWidth, m_nHeight, 0, 0, m_nWidth, m_nHeight, GL_COLOR_BUFFER_BIT, GL_NEAREST);
    glBindFramebuffer(GL_FRAMEBUFFER, 0);
}

bool SmoothBuffer::Make(int width, int height) {
    m_nWidth = width;
    m_nHeight = height;
    glGenFramebuffers(1, &m_nFrame);
    glGenRenderbuffers(1, &m_nColor);
    glGenRenderbuffers(1, &m_nDepth);
    if (m_nFrame == 0 || m_nColor == 0 || m_nDepth == 0)
        return false;
    glBindRenderbuffer(GL_RENDERBUFFER, m_nColor);
    glRenderbufferStorageMultisample(GL_RENDERBUFFER, kSamples, GL_RGBA8, width, height);
    glBindRenderbuffer(GL_RENDERBUFFER, m_nDepth);
    glRenderbufferStorageMultisample(GL_RENDERBUFFER, kSamples, GL_DEPTH_COMPONENT24, width, height);
    glBindFramebuffer(GL_FRAMEBUFFER, m_nFrame);
    glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_RENDERBUFFER, m_nColor);
    glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_DEPTH_ATTACHMENT, GL_RENDERBUFFER, m_nDepth);
    const bool complete = glCheckFramebufferStatus(GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE;
    glBindFramebuffer(GL_FRAMEBUFFER, 0);
    return complete;
}

void SmoothBuffer::Drop() {
    if (m_nFrame != 0)
        glDeleteFramebuffers(1, &m_nFrame);
    if (m_nColor != 0)
        glDeleteRenderbuffers(1, &m_nColor);
    if (m_nDepth != 0)
        glDeleteRenderbuffers(1, &m_nDepth);
    m_nFrame = m_nColor = m_nDepth = 0;
}
