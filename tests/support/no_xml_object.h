// A machine without the platform's XML document object, as far as this thread sees it.
#pragma once

#include <gtest/gtest.h>

#include <windows.h>

#include <initguid.h>
#include <objbase.h>

#include <limits>

DEFINE_GUID(kXmlDocumentClass, 0xf6d90f11, 0x9c73, 0x11d3, 0xb3, 0x2e, 0x00, 0xc0, 0x4f, 0x99, 0x0b, 0xb4);

// Stands in for the object's class while it lives and makes nothing, or nothing the first `failures` times.
class NoXmlObject {
  public:
    explicit NoXmlObject(int failures = std::numeric_limits<int>::max()) {
        m_factory.failures = failures;
        EXPECT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
        EXPECT_EQ(CoGetClassObject(kXmlDocumentClass, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory,
                                   reinterpret_cast<void**>(&m_factory.platforms)),
                  S_OK);
        EXPECT_EQ(CoRegisterClassObject(kXmlDocumentClass, &m_factory, CLSCTX_INPROC_SERVER,
                                        REGCLS_MULTIPLEUSE, &m_registration),
                  S_OK);
    }
    ~NoXmlObject() {
        CoRevokeClassObject(m_registration);
        m_factory.platforms->Release();
        CoUninitialize();
    }
    NoXmlObject(const NoXmlObject&) = delete;
    NoXmlObject& operator=(const NoXmlObject&) = delete;

    // How often the object was asked for.
    int Asked() const { return m_factory.asked; }

  private:
    struct Factory final : IClassFactory {
        HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** to) override {
            const bool isKnown = IsEqualGUID(id, IID_IUnknown) || IsEqualGUID(id, IID_IClassFactory);
            *to = isKnown ? this : nullptr;
            return isKnown ? S_OK : E_NOINTERFACE;
        }
        ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
        ULONG STDMETHODCALLTYPE Release() override { return 1; }
        HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** to) override {
            if (asked++ >= failures)
                return platforms->CreateInstance(outer, id, to);
            *to = nullptr;
            return REGDB_E_CLASSNOTREG;
        }
        HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

        int asked = 0;
        int failures = 0;
        IClassFactory* platforms = nullptr;
    };

    Factory m_factory;
    DWORD m_registration = 0;
};
