#pragma once

#include <string>
#include <string_view>

namespace inin {

/// The regional settings that determine the default text of a date. `shortDate` is a Windows date picture: d, dd, M,
/// MM, y, yy, yyyy, gg and separators, literal text in single quotes. With an era (g) in it, years are those of the
/// Japanese eras.
struct Regional {
    std::string shortDate = "yyyy/MM/dd";
};

/// True for a picture with an era outside quotes.
[[nodiscard]] inline bool hasEra(std::string_view picture)
{
    bool isQuoted = false;
    for (const char c : picture) {
        if (c == '\'') isQuoted = !isQuoted;
        if (c == 'g' && !isQuoted) return true;
    }
    return false;
}

} // namespace inin
