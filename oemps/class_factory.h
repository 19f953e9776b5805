// The class factory of the plug-in object.
#pragma once

#include "oemps/com_object.h"

class IOemCF final : public ComObject<IClassFactory, IID_IClassFactory> {
  public:
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** out) override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;
};
