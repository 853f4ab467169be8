#pragma once

#include "runtime/regional.h"

#include <string>
#include <string_view>

namespace inin {

/// The regional settings and the ANSI code page of the system, code page 932 on a site of the suite.
class Locale {
public:
    Locale() = default;
    Locale(const Locale &) = delete;
    Locale &operator=(const Locale &) = delete;
    virtual ~Locale() = default;

    [[nodiscard]] virtual Regional regional() = 0;
    /// UTF-8 to the code page; a character that is not in it becomes "?".
    [[nodiscard]] virtual std::string toCodePage(std::string_view utf8) = 0;
    /// The code page to UTF-8; an invalid byte becomes U+FFFD.
    [[nodiscard]] virtual std::string fromCodePage(std::string_view bytes) = 0;
};

} // namespace inin
