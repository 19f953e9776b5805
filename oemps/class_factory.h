// The class factory of the plug-in object.
#pragma once

#include <windows.h>

#include <unknwn.h>

#include <atomic>

class IOemCF final : public IClassFactory {
  public:
    IOemCF() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** out) override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

  private:
    ~IOemCF() = default;

    std::atomic<ULONG> m_references{1};
};
