#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace inin::odbc {

/// Drivers of one family spell a connection to SQL Server alike.
enum class DriverFamily : std::uint8_t { microsoft, freeTds, other };

struct OdbcDriver {
    std::string name;
    DriverFamily family = DriverFamily::other;
    /// 18 for "ODBC Driver 18 for SQL Server"; 0 for Microsoft's older drivers.
    int version = 0;

    /// From this version on Microsoft's drivers encrypt and validate by default.
    [[nodiscard]] bool encryptsByDefault() const { return family == DriverFamily::microsoft && version >= 18; }
};

/// Identifies a driver by its name or by the path of its library.
[[nodiscard]] OdbcDriver driverNamed(std::string_view name);
/// True for the path of a library, which may be any file.
[[nodiscard]] bool isPath(std::string_view name);
/// The installed driver with that name in any case, or with a library of exactly that path.
[[nodiscard]] std::optional<OdbcDriver> installedDriver(std::string_view name,
                                                        const std::vector<std::string> &installed);
/// The best driver for SQL Server: Microsoft's newest, else FreeTDS; nothing if neither is installed.
[[nodiscard]] std::optional<OdbcDriver> bestDriver(const std::vector<std::string> &installed);

} // namespace inin::odbc
