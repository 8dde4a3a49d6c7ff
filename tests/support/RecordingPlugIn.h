// The plug-in of tests/host/plugin that writes down what the host tells it, loaded for a while.
#pragma once

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <string>

#include "platform/host/ModuleLoader.h"
#include "support/Folders.h"

class RecordingPlugIn {
public:
    RecordingPlugIn() {
        CString error;
        EXPECT_TRUE(m_loader.Load(FromUtf8(BuildFolder() + "/lib/test-plugins/plugin-good.so"), error))
            << ToUtf8(error.View());
        m_take = reinterpret_cast<const wchar_t* (*)()>(dlsym(m_loader.ApplicationHandle(), "TakeMessages"));
        EXPECT_NE(m_take, nullptr);
        Take();
    }
    RecordingPlugIn(const RecordingPlugIn&) = delete;
    RecordingPlugIn& operator=(const RecordingPlugIn&) = delete;

    // The messages since the last call, each with the number of entities of the drawing that the host had then.
    std::string Take() const { return m_take != nullptr ? ToUtf8(m_take()) : std::string(); }

private:
    ModuleLoader m_loader;
    const wchar_t* (*m_take)() = nullptr;
};
