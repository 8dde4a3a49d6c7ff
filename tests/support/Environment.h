// An environment variable that has another value, or none, during one test.
#pragma once

#include <stdlib.h>

#include <optional>
#include <string>

class EnvironmentVariable {
public:
    // Null removes the variable.
    EnvironmentVariable(const char* name, const char* value) : m_name(name) {
        if (const char* before = getenv(name))
            m_before = before;
        Set(value);
    }
    EnvironmentVariable(const char* name, const std::string& value) : EnvironmentVariable(name, value.c_str()) {}
    ~EnvironmentVariable() { Set(m_before ? m_before->c_str() : nullptr); }
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;

    void Set(const char* value) const {
        if (value)
            setenv(m_name.c_str(), value, 1);
        else
            unsetenv(m_name.c_str());
    }

private:
    std::string m_name;
    std::optional<std::string> m_before;
};
