#pragma once

#include "viewer/form/form_document.h"

#include <string>
#include <vector>

namespace inin::viewer {

/// The fallback for a form that cannot be read: `heading` and a table of column names and values.
[[nodiscard]] FormDocument listingForm(const std::vector<std::string> &columns, const std::string &heading);

} // namespace inin::viewer
