// The resources of a module that stands beside the test.
#pragma once

#include <windows.h>

#include <set>
#include <string>

class ResourceModule {
  public:
    explicit ResourceModule(const char* name);
    ~ResourceModule();
    ResourceModule(const ResourceModule&) = delete;
    ResourceModule& operator=(const ResourceModule&) = delete;

    // Null if it is not there.
    HMODULE Get() const { return m_module; }

    // The types of its resources, and the numbers of a type's.
    std::set<int> Types() const;
    std::set<int> Numbers(LPCSTR type) const;
    std::set<WORD> Languages(LPCSTR type, int number) const;

    std::string Bytes(LPCSTR type, int number) const;
    std::wstring String(unsigned number) const;

  private:
    HMODULE m_module;
};
