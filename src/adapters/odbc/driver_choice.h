#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace inin::odbc {

/// The families of drivers that spell a connection to SQL Server differently.
enum class DriverFamily : std::uint8_t { microsoft, freeTds, other };

struct OdbcDriver {
    std::string name;
    DriverFamily family = DriverFamily::other;
    /// 18 of "ODBC Driver 18 for SQL Server"; 0 for Microsoft's older ones.
    int version = 0;

    /// From this one on Microsoft's drivers encrypt and validate unless they are told otherwise.
    [[nodiscard]] bool encryptsByDefault() const { return family == DriverFamily::microsoft && version >= 18; }
};

/// A driver by its name, or by the path of its library.
[[nodiscard]] OdbcDriver driverNamed(std::string_view name);
/// True for the path of a driver's library, which may be any file.
[[nodiscard]] bool isPath(std::string_view name);
/// The installed one of that name, whatever its case, or with a library of exactly that path.
[[nodiscard]] std::optional<OdbcDriver> installedDriver(std::string_view name,
                                                        const std::vector<std::string> &installed);
/// The best one for SQL Server: Microsoft's newest, else FreeTDS; nothing when none of them is installed.
[[nodiscard]] std::optional<OdbcDriver> bestDriver(const std::vector<std::string> &installed);

} // namespace inin::odbc
