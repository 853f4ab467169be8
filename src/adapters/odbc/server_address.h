#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace inin::odbc {

/// The server address in a Data Source: `tcp:HOST\INSTANCE,PORT`; every part but the host is optional.
struct ServerAddress {
    std::string protocol; ///< tcp, np, lpc, admin, or empty
    std::string host;
    std::string instance;
    std::optional<std::uint16_t> port;
    std::string problem; ///< why the text is not an address
};

[[nodiscard]] ServerAddress readServerAddress(std::string_view dataSource);
/// In the spelling of Microsoft's drivers.
[[nodiscard]] std::string microsoftServer(const ServerAddress &address);

} // namespace inin::odbc
