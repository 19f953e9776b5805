// A variable of the test's own environment.
#pragma once

#include <windows.h>

#include <array>
#include <optional>
#include <string>

// Has another value while it lives; null for none.
class EnvironmentVariable {
  public:
    EnvironmentVariable(const char* name, const char* value) : m_name(name) {
        std::array<char, 4096> before{};
        if (GetEnvironmentVariableA(name, before.data(), static_cast<DWORD>(before.size())) > 0)
            m_before = before.data();
        SetEnvironmentVariableA(name, value);
    }
    ~EnvironmentVariable() {
        SetEnvironmentVariableA(m_name.c_str(), m_before ? m_before->c_str() : nullptr);
    }
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;

  private:
    std::string m_name;
    std::optional<std::string> m_before;
};
