#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace inin::odbc {

/// Where a server listens, as a Data Source names it: `tcp:HOST\INSTANCE,PORT`, each part but the host left out at will.
struct ServerAddress {
    std::string protocol; ///< tcp, np, lpc, admin, or empty
    std::string host;
    std::string instance;
    std::optional<std::uint16_t> port;
    std::string problem; ///< why the text is no address
};

[[nodiscard]] ServerAddress readServerAddress(std::string_view dataSource);
/// As Microsoft's drivers take it.
[[nodiscard]] std::string microsoftServer(const ServerAddress &address);

} // namespace inin::odbc
