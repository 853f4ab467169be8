#pragma once

#include <string_view>

namespace inin {

/// An address comes from a file of the site: nothing but a web page may be opened by it.
[[nodiscard]] bool isWebAddress(std::string_view address);

} // namespace inin
