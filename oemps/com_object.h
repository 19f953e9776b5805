// What the module's COM objects have in common: one interface, and a life that ends with the last reference.
#pragma once

#include <windows.h>

#include <unknwn.h>

#include <atomic>
#include <new>

// An object is made with one reference.
template <class Interface, const IID& kInterfaceId>
class ComObject : public Interface {
  public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) final {
        if (!out)
            return E_POINTER;
        *out = nullptr;
        if (!IsEqualIID(iid, IID_IUnknown) && !IsEqualIID(iid, kInterfaceId))
            return E_NOINTERFACE;
        *out = static_cast<Interface*>(this);
        AddRef();
        return S_OK;
    }

    ULONG STDMETHODCALLTYPE AddRef() final { return ++m_references; }

    ULONG STDMETHODCALLTYPE Release() final {
        const ULONG left = --m_references;
        if (left == 0)
            delete this;
        return left;
    }

  protected:
    ComObject() = default;
    virtual ~ComObject() = default;
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

  private:
    std::atomic<ULONG> m_references{1};
};

// Makes an object and gives out the interface that is asked for; of an object without it nothing is left.
template <class Object>
HRESULT GiveNewObject(REFIID iid, void** out) {
    auto* object = new (std::nothrow) Object;
    if (!object)
        return E_OUTOFMEMORY;
    const HRESULT result = object->QueryInterface(iid, out);
    object->Release();
    return result;
}
