// Owners of COM objects.
#pragma once

#include <windows.h>

#include <unknwn.h>

#include <memory>

struct ComReleaser {
    void operator()(IUnknown* object) const { object->Release(); }
};
template <class Interface>
using UniqueCom = std::unique_ptr<Interface, ComReleaser>;
