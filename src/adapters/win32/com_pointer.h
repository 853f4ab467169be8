#pragma once

#include <memory>

#include <objbase.h>

namespace inin::win32 {

struct ReleaseCom {
    void operator()(IUnknown *object) const { object->Release(); }
};
/// Owns one reference to a COM object.
template <class Interface> using ComPointer = std::unique_ptr<Interface, ReleaseCom>;

} // namespace inin::win32
