#pragma once

#include "adapters/odbc/connection_text.h"
#include "adapters/odbc/server_address.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace inin::odbc {

/// What a key of a connection string is about, whichever of its names it bears.
enum class Part : std::uint8_t {
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

/// Seconds that a log-in may take where the string names no other number; 0 would wait for ever.
inline constexpr std::int32_t kDefaultLoginTimeout = 15;

/// A connection to SQL Server as a string means it, free of the spelling of any provider or driver.
struct ConnectionParts {
    std::map<Part, std::string> texts;
    /// Keys of ODBC's form that no Part stands for, with their values as written.
    std::vector<std::pair<std::string, std::string>> others;
    ServerAddress server;
    bool integrated = false;
    std::optional<Encryption> encrypt;
    std::optional<bool> trustCertificate;
    std::int32_t loginTimeout = kDefaultLoginTimeout;
    std::string problem; ///< why the string makes no connection; never holds a value of it, but the provider's name

    /// Empty when the string does not name it.
    [[nodiscard]] std::string text(Part part) const;
    [[nodiscard]] bool has(Part part) const { return texts.contains(part); }
};

/// What a key is about; nothing for a key without a meaning here. `key` is in lower case.
[[nodiscard]] std::optional<Part> partOfKey(std::string_view key);
[[nodiscard]] ConnectionParts readConnectionParts(const ConnectionText &text);

} // namespace inin::odbc
