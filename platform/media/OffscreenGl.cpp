// EGL without a display: one configuration, one context, one buffer for the picture.
#include "platform/media/OffscreenGl.h"

#include <EGL/egl.h>
#include <EGL/eglext.h>
#include <GL/gl.h>

#include <algorithm>
#include <cstddef>
#include <new>

#include "platform/base/Language.h"

struct OffscreenGl::Parts {
    EGLDisplay display = EGL_NO_DISPLAY;
    EGLConfig config = nullptr;
    EGLContext context = EGL_NO_CONTEXT;
    EGLSurface surface = EGL_NO_SURFACE;
    int width = 0;
    int height = 0;
    int maxSize = 0;

    ~Parts() {
        if (context != EGL_NO_CONTEXT && eglGetCurrentContext() == context)
            eglMakeCurrent(display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
        if (surface != EGL_NO_SURFACE)
            eglDestroySurface(display, surface);
        if (context != EGL_NO_CONTEXT)
            eglDestroyContext(display, context);
        // The display is the driver's and shared by all contexts of the process: it stays open.
    }
    Parts() = default;
    Parts(const Parts&) = delete;
    Parts& operator=(const Parts&) = delete;

    bool IsSize(int aWidth, int aHeight) const {
        return aWidth >= 1 && aHeight >= 1 && aWidth <= maxSize && aHeight <= maxSize;
    }
    EGLSurface NewSurface(int aWidth, int aHeight) const {
        const EGLint attributes[] = {EGL_WIDTH, aWidth, EGL_HEIGHT, aHeight, EGL_NONE};
        return eglCreatePbufferSurface(display, config, attributes);
    }
    bool MakeCurrent() const { return eglMakeCurrent(display, surface, surface, context) == EGL_TRUE; }
};

namespace {

EGLDisplay OpenDisplay() {
    const EGLDisplay display =
        eglGetPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, reinterpret_cast<void*>(EGL_DEFAULT_DISPLAY), nullptr);
    if (display == EGL_NO_DISPLAY || eglInitialize(display, nullptr, nullptr) != EGL_TRUE)
        return EGL_NO_DISPLAY;
    return display;
}

EGLConfig ChooseConfig(EGLDisplay display) {
    constexpr EGLint kWanted[] = {EGL_SURFACE_TYPE,
                                  EGL_PBUFFER_BIT,
                                  EGL_RENDERABLE_TYPE,
                                  EGL_OPENGL_BIT,
                                  EGL_RED_SIZE,
                                  8,
                                  EGL_GREEN_SIZE,
                                  8,
                                  EGL_BLUE_SIZE,
                                  8,
                                  EGL_ALPHA_SIZE,
                                  8,
                                  EGL_DEPTH_SIZE,
                                  24,
                                  EGL_STENCIL_SIZE,
                                  8,
                                  EGL_NONE};
    EGLConfig config = nullptr;
    EGLint count = 0;
    return eglChooseConfig(display, kWanted, &config, 1, &count) == EGL_TRUE && count > 0 ? config : nullptr;
}

// The call of EGL that failed, for those who look after the machine.
CString Failed(const wchar_t* call) {
    CString text;
    text.Format(PlatformText(L"这台计算机上无法离屏绘图：%s 失败（错误 0x%x）"), call, static_cast<int>(eglGetError()));
    return text;
}

}  // namespace

OffscreenGl::OffscreenGl(std::unique_ptr<Parts> parts) : m_parts(std::move(parts)) {}

OffscreenGl::~OffscreenGl() = default;

std::unique_ptr<OffscreenGl> OffscreenGl::Open(int width, int height, CString& reason) {
    auto parts = std::make_unique<Parts>();
    parts->display = OpenDisplay();
    if (parts->display == EGL_NO_DISPLAY) {
        reason = Failed(L"eglInitialize");
        return nullptr;
    }
    parts->config = ChooseConfig(parts->display);
    if (parts->config == nullptr) {
        reason = Failed(L"eglChooseConfig");
        return nullptr;
    }
    eglGetConfigAttrib(parts->display, parts->config, EGL_MAX_PBUFFER_WIDTH, &parts->maxSize);
    if (!parts->IsSize(width, height)) {
        reason.Format(PlatformText(L"图像大小 %d x %d 不对：每边可从 1 到 %d 个像素"), width, height, parts->maxSize);
        return nullptr;
    }
    eglBindAPI(EGL_OPENGL_API);
    parts->context = eglCreateContext(parts->display, parts->config, EGL_NO_CONTEXT, nullptr);
    parts->surface = parts->NewSurface(width, height);
    if (parts->context == EGL_NO_CONTEXT || parts->surface == EGL_NO_SURFACE || !parts->MakeCurrent()) {
        reason = Failed(parts->context == EGL_NO_CONTEXT   ? L"eglCreateContext"
                        : parts->surface == EGL_NO_SURFACE ? L"eglCreatePbufferSurface"
                                                           : L"eglMakeCurrent");
        return nullptr;
    }
    parts->width = width;
    parts->height = height;
    glViewport(0, 0, width, height);
    return std::unique_ptr<OffscreenGl>(new OffscreenGl(std::move(parts)));
}

bool OffscreenGl::MakeCurrent() {
    return m_parts->MakeCurrent();
}

bool OffscreenGl::Resize(int width, int height) {
    if (!m_parts->IsSize(width, height))
        return false;
    const EGLSurface surface = m_parts->NewSurface(width, height);
    if (surface == EGL_NO_SURFACE)
        return false;
    const EGLSurface old = m_parts->surface;
    m_parts->surface = surface;
    if (!m_parts->MakeCurrent()) {
        m_parts->surface = old;
        eglDestroySurface(m_parts->display, surface);
        return false;
    }
    eglDestroySurface(m_parts->display, old);
    m_parts->width = width;
    m_parts->height = height;
    glViewport(0, 0, width, height);
    return true;
}

int OffscreenGl::GetWidth() const {
    return m_parts->width;
}

int OffscreenGl::GetHeight() const {
    return m_parts->height;
}

int OffscreenGl::GetMaxSize() const {
    return m_parts->maxSize;
}

bool OffscreenGl::Read(GlPicture& picture) {
    picture = GlPicture();
    if (!m_parts->MakeCurrent())
        return false;
    const std::size_t rowBytes = static_cast<std::size_t>(m_parts->width) * 4;
    const auto rows = static_cast<std::size_t>(m_parts->height);
    try {
        picture.rgba.resize(rowBytes * rows);
    } catch (const std::bad_alloc&) {
        return false;
    }
    glPixelStorei(GL_PACK_ALIGNMENT, 4);
    glReadPixels(0, 0, m_parts->width, m_parts->height, GL_RGBA, GL_UNSIGNED_BYTE, picture.rgba.data());
    // OpenGL begins with the lowest row.
    unsigned char* const pixels = picture.rgba.data();
    for (std::size_t row = 0; row < rows / 2; ++row)
        std::swap_ranges(pixels + row * rowBytes, pixels + (row + 1) * rowBytes, pixels + (rows - 1 - row) * rowBytes);
    picture.width = m_parts->width;
    picture.height = m_parts->height;
    return true;
}
