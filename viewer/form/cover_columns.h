#pragma once

#include "viewer/form/form_document.h"

#include <cstddef>
#include <string>
#include <vector>

namespace inin::viewer {

/// The file of a site's own cover form, in the folder of the letters' form.
inline constexpr const char *kCoverFormName = "束の表紙.wfd";

/// How many names a page of a cover form lists: the largest number in a column such as 氏名12.
[[nodiscard]] std::size_t coverNames(const FormDocument &form);
/// The columns that a cover form has, in the order of its rows.
[[nodiscard]] std::vector<std::string> coverColumns(const FormDocument &form);

} // namespace inin::viewer
