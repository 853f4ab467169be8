#pragma once

#include <string>

namespace inin {

/// The regional settings that the default text of a date follows.
/// `shortDate` is a Windows picture: d, dd, M, MM, yy, yyyy and separators.
struct Regional {
    std::string shortDate = "yyyy/MM/dd";
};

} // namespace inin
