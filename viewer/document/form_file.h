#pragma once

#include "viewer/form/form_document.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace inin::viewer {

inline constexpr std::size_t kLargestForm = std::size_t{1} << 23; ///< bytes

/// Reads a form document from the bytes of its file and the pictures beside the file. `path` is in the suite's form. Throws
/// a RuntimeError with a sentence that names the path.
[[nodiscard]] FormDocument readFormFile(const std::string &path, std::string_view bytes);

} // namespace inin::viewer
