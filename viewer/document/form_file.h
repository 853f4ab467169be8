#pragma once

#include "viewer/form/form_document.h"
#include "viewer/io/file_stamp.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

inline constexpr std::size_t kLargestForm = std::size_t{1} << 23; ///< bytes

/// Reads a form document from the bytes of its file and the pictures beside the file. `path` is in the suite's form. The
/// pictures, as they were just before they were read, are appended to `pictures`. Throws a RuntimeError with a sentence that
/// names the path.
[[nodiscard]] FormDocument readFormFile(const std::string &path, std::string_view bytes,
                                        std::vector<StampedFile> &pictures);

} // namespace inin::viewer
