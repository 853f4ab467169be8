#include "adapters/odbc/driver_choice.h"

#include "runtime/text.h"

#include <algorithm>
#include <charconv>

namespace inin::odbc {

namespace {

constexpr std::string_view kNumberedStart = "odbc driver ";
constexpr std::string_view kNumberedEnd = " for sql server";

/// Microsoft's drivers from before the numbered ones, newest first.
constexpr std::string_view kOlderDrivers[] = {"sql server native client 11.0", "sql server native client 10.0",
                                              "sql native client", "sql server"};

int rankOf(const OdbcDriver &driver)
{
    constexpr int kNumbered = 1000;
    if (driver.family == DriverFamily::freeTds) return 1;
    if (driver.family != DriverFamily::microsoft) return 0;
    if (driver.version > 0) return kNumbered + driver.version;
    const auto *const found = std::ranges::find(kOlderDrivers, asciiLower(driver.name));
    return 2 + static_cast<int>(std::end(kOlderDrivers) - found);
}

} // namespace

bool isPath(std::string_view name)
{
    return name.find_first_of("/\\") != std::string_view::npos;
}

OdbcDriver driverNamed(std::string_view name)
{
    OdbcDriver driver{std::string(name), DriverFamily::other, 0};
    const std::string lower = asciiLower(name);
    if (lower.find("freetds") != std::string::npos || lower.find("tdsodbc") != std::string::npos)
        driver.family = DriverFamily::freeTds;
    if (lower.starts_with(kNumberedStart) && lower.ends_with(kNumberedEnd)) {
        driver.family = DriverFamily::microsoft;
        const std::string_view number = std::string_view(lower).substr(kNumberedStart.size());
        (void)std::from_chars(number.data(), number.data() + number.size(), driver.version); // stays 0 without a number
    }
    const std::size_t library = lower.find("msodbcsql");
    if (library != std::string::npos) {
        // libmsodbcsql-18.3.so.2.1 and msodbcsql18.dll
        driver.family = DriverFamily::microsoft;
        const std::size_t digit = lower.find_first_of("0123456789", library);
        if (digit != std::string::npos)
            (void)std::from_chars(lower.data() + digit, lower.data() + lower.size(), driver.version);
    }
    if (std::ranges::find(kOlderDrivers, lower) != std::end(kOlderDrivers)) driver.family = DriverFamily::microsoft;
    return driver;
}

std::optional<OdbcDriver> installedDriver(std::string_view name, const std::vector<std::string> &installed)
{
    const auto found = std::ranges::find_if(installed, [name](const std::string &own) {
        return isPath(name) ? own == name : equalsIgnoringAsciiCase(own, name);
    });
    return found == installed.end() ? std::nullopt : std::optional(driverNamed(*found));
}

std::optional<OdbcDriver> bestDriver(const std::vector<std::string> &installed)
{
    std::optional<OdbcDriver> best;
    for (const std::string &name : installed) {
        const OdbcDriver driver = driverNamed(name);
        if (rankOf(driver) > (best ? rankOf(*best) : 0)) best = driver;
    }
    return best;
}

} // namespace inin::odbc
