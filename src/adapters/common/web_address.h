#pragma once

#include <string_view>

namespace inin {

/// True for an http or https address. An address is read from a file of the site, so it must not open anything else.
[[nodiscard]] bool isWebAddress(std::string_view address);

} // namespace inin
