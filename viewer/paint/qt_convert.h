#pragma once

#include "viewer/form/geometry.h"

#include <QTransform>

namespace inin::viewer {

[[nodiscard]] inline QTransform qtTransform(const Affine &at)
{
    return {at.a, at.b, at.c, at.d, at.e, at.f};
}

} // namespace inin::viewer
