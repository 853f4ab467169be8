#pragma once

#include <memory>

#include <objbase.h>

namespace inin {

struct ReleaseCom {
    void operator()(IUnknown *object) const { object->Release(); }
};
/// One reference to an object of the system, given back with its owner.
template <class Interface> using ComPointer = std::unique_ptr<Interface, ReleaseCom>;

} // namespace inin
