#pragma once

#include "viewer/form/form_document.h"

#include <string>
#include <vector>

namespace inin::viewer {

/// A plain form in the place of one that cannot be read: `heading` and two columns, name and value.
[[nodiscard]] FormDocument listingForm(const std::vector<std::string> &columns, const std::string &heading);

} // namespace inin::viewer
