#pragma once

#include "adapters/database/connection_string.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace inin {

/// The server address in a Data Source: `tcp:HOST\INSTANCE,PORT`; every part but the host is optional.
struct ServerAddress {
    std::string protocol; ///< tcp, np, lpc, admin, or empty
    std::string host;
    std::string instance;
    std::optional<std::uint16_t> port;
    std::string problem; ///< why the text is not an address
};

[[nodiscard]] ServerAddress readServerAddress(std::string_view dataSource);

/// The meaning of a connection string key, independent of its spelling.
enum class ConnectionPart : std::uint8_t {
    server,
    port,
    network,
    database,
    user,
    password,
    integrated,
    encrypt,
    trustCertificate,
    loginTimeout,
    application,
    workstation,
    language,
    packetSize,
    intent,
    multiSubnet,
    failover,
    hostInCertificate,
    authentication,
    tdsVersion,
    clientCharset,
    driver,
    dataSourceName,
    fileSourceName,
    provider,
    extended
};

enum class Encryption : std::uint8_t { no, request, yes, strict };

/// Log-in timeout in seconds for a string that specifies none; 0 would wait forever.
inline constexpr std::int32_t kDefaultLoginTimeout = 15;

/// A connection to SQL Server, independent of the spelling of any provider or driver.
struct ConnectionParts {
    std::map<ConnectionPart, std::string> texts;
    /// Keys of ODBC's form that have no ConnectionPart, with their values as written.
    std::vector<std::pair<std::string, std::string>> others;
    ServerAddress server;
    bool integrated = false;
    std::optional<Encryption> encrypt;
    std::optional<bool> trustCertificate;
    std::int32_t loginTimeout = kDefaultLoginTimeout;
    std::string problem; ///< why the string cannot be used; contains no value of it except the provider's name

    /// Empty when the string has no such part.
    [[nodiscard]] std::string text(ConnectionPart part) const;
    [[nodiscard]] bool has(ConnectionPart part) const { return texts.contains(part); }
};

/// The meaning of a key, if it has one here. `key` is in lower case.
[[nodiscard]] std::optional<ConnectionPart> partOfKey(std::string_view key);
[[nodiscard]] ConnectionParts readConnectionParts(const ConnectionString &text);

} // namespace inin
