#include "adapters/database/connection_parts.h"

#include "runtime/text.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace inin {

namespace {

constexpr std::array<std::string_view, 4> kProtocols{"tcp", "np", "lpc", "admin"};

std::optional<std::uint16_t> portFrom(std::string_view text)
{
    std::uint16_t port = 0;
    const char *end = text.data() + text.size();
    const auto [stopped, error] = std::from_chars(text.data(), end, port);
    return error == std::errc() && stopped == end && port != 0 ? std::optional(port) : std::nullopt;
}

/// "host:1433" is not ADO's syntax for a port but is unambiguous; an IPv6 address has several colons.
void readColonPort(ServerAddress &address)
{
    const std::size_t colon = address.host.find(':');
    if (address.port || colon == std::string::npos || colon != address.host.rfind(':')) return;
    address.port = portFrom(std::string_view(address.host).substr(colon + 1));
    if (address.port) address.host.resize(colon);
}

struct KeyRow {
    std::string_view key;
    ConnectionPart part;
};
/// The names in ADO providers, then those in ODBC drivers.
constexpr KeyRow kKeys[] = {
    {"provider", ConnectionPart::provider},
    {"data source", ConnectionPart::server},
    {"initial catalog", ConnectionPart::database},
    {"user id", ConnectionPart::user},
    {"password", ConnectionPart::password},
    {"integrated security", ConnectionPart::integrated},
    {"use encryption for data", ConnectionPart::encrypt},
    {"trust server certificate", ConnectionPart::trustCertificate},
    {"connect timeout", ConnectionPart::loginTimeout},
    {"connection timeout", ConnectionPart::loginTimeout},
    {"login timeout", ConnectionPart::loginTimeout},
    {"logintimeout", ConnectionPart::loginTimeout},
    {"timeout", ConnectionPart::loginTimeout},
    {"application name", ConnectionPart::application},
    {"workstation id", ConnectionPart::workstation},
    {"network library", ConnectionPart::network},
    {"current language", ConnectionPart::language},
    {"packet size", ConnectionPart::packetSize},
    {"application intent", ConnectionPart::intent},
    {"failover partner", ConnectionPart::failover},
    {"host name in certificate", ConnectionPart::hostInCertificate},
    {"extended properties", ConnectionPart::extended},
    {"driver", ConnectionPart::driver},
    {"dsn", ConnectionPart::dataSourceName},
    {"filedsn", ConnectionPart::fileSourceName},
    {"server", ConnectionPart::server},
    {"servername", ConnectionPart::server},
    {"address", ConnectionPart::server},
    {"addr", ConnectionPart::server},
    {"network address", ConnectionPart::server},
    {"port", ConnectionPart::port},
    {"network", ConnectionPart::network},
    {"database", ConnectionPart::database},
    {"uid", ConnectionPart::user},
    {"user", ConnectionPart::user},
    {"username", ConnectionPart::user},
    {"user name", ConnectionPart::user},
    {"pwd", ConnectionPart::password},
    {"trusted_connection", ConnectionPart::integrated},
    {"encrypt", ConnectionPart::encrypt},
    {"encryption", ConnectionPart::encrypt},
    {"trustservercertificate", ConnectionPart::trustCertificate},
    {"app", ConnectionPart::application},
    {"wsid", ConnectionPart::workstation},
    {"language", ConnectionPart::language},
    {"packetsize", ConnectionPart::packetSize},
    {"applicationintent", ConnectionPart::intent},
    {"multisubnetfailover", ConnectionPart::multiSubnet},
    {"failover_partner", ConnectionPart::failover},
    {"hostnameincertificate", ConnectionPart::hostInCertificate},
    {"authentication", ConnectionPart::authentication},
    {"tds_version", ConnectionPart::tdsVersion},
    {"clientcharset", ConnectionPart::clientCharset},
};

struct EncryptionRow {
    std::string_view word;
    Encryption encryption;
};
constexpr EncryptionRow kEncryptions[] = {
    {"yes", Encryption::yes},       {"true", Encryption::yes},      {"1", Encryption::yes},
    {"-1", Encryption::yes},        {"mandatory", Encryption::yes}, {"require", Encryption::yes},
    {"no", Encryption::no},         {"false", Encryption::no},      {"0", Encryption::no},
    {"optional", Encryption::no},   {"off", Encryption::no},        {"request", Encryption::request},
    {"strict", Encryption::strict},
};

struct LibraryRow {
    std::string_view library;
    std::string_view protocol;
};
constexpr LibraryRow kLibraries[] = {{"dbmssocn", "tcp"}, {"dbnmpntw", "np"}, {"dbmslpcn", "lpc"}};

constexpr std::string_view kServerProviders[] = {"sqloledb", "msoledbsql", "sqlncli"};

bool isYes(std::string_view word)
{
    const std::string lower = asciiLower(word);
    return lower == "yes" || lower == "true" || lower == "sspi" || lower == "1" || lower == "-1";
}

void readEncryption(ConnectionParts &parts)
{
    if (const std::string word = asciiLower(parts.text(ConnectionPart::encrypt)); !word.empty()) {
        const auto found = std::ranges::find(kEncryptions, word, &EncryptionRow::word);
        if (found == std::end(kEncryptions))
            parts.problem = "the connection string asks neither for encryption nor for none";
        else
            parts.encrypt = found->encryption;
    }
    if (parts.has(ConnectionPart::trustCertificate))
        parts.trustCertificate = isYes(parts.text(ConnectionPart::trustCertificate));
}

void readLoginTimeout(ConnectionParts &parts)
{
    const std::string text = parts.text(ConnectionPart::loginTimeout);
    if (text.empty()) return;
    constexpr std::int32_t kMaxSeconds = 86400;
    std::int32_t seconds = 0;
    const auto [stopped, error] = std::from_chars(text.data(), text.data() + text.size(), seconds);
    if (error != std::errc() || stopped != text.data() + text.size() || seconds < 0 || seconds > kMaxSeconds)
        parts.problem = "the connect timeout is no number of seconds";
    else
        parts.loginTimeout = seconds;
}

void readServer(ConnectionParts &parts)
{
    if (!parts.has(ConnectionPart::server)) return;
    parts.server = readServerAddress(parts.text(ConnectionPart::server));
    if (parts.has(ConnectionPart::port) && !parts.server.port) {
        const ServerAddress own = readServerAddress("host," + parts.text(ConnectionPart::port));
        parts.server.port = own.port;
        if (!own.port) parts.server.problem = "the port is no number from 1 to 65535";
    }
    const std::string library = asciiLower(parts.text(ConnectionPart::network));
    for (const LibraryRow &row : kLibraries)
        if (library == row.library && parts.server.protocol.empty()) parts.server.protocol = row.protocol;
}

void readProvider(ConnectionParts &parts)
{
    const std::string provider = asciiLower(parts.text(ConnectionPart::provider));
    if (provider.empty() || provider.starts_with("msdasql")) return;
    for (const std::string_view known : kServerProviders)
        if (provider.starts_with(known)) return;
    parts.problem = "Provider=" + parts.text(ConnectionPart::provider) + " does not open a SQL Server";
}

} // namespace

ServerAddress readServerAddress(std::string_view dataSource)
{
    ServerAddress address;
    std::string rest = trim(dataSource);
    const std::size_t colon = rest.find(':');
    const std::string prefix = colon == std::string::npos ? std::string() : asciiLower(trim(rest.substr(0, colon)));
    if (std::ranges::find(kProtocols, prefix) != kProtocols.end()) {
        address.protocol = prefix;
        rest = ltrim(rest.substr(colon + 1));
    }
    // A named pipe contains backslashes and commas of its own.
    const bool isPipe = address.protocol == "np" && rest.starts_with("\\\\");
    const std::size_t comma = isPipe ? std::string::npos : rest.rfind(',');
    if (comma != std::string::npos) {
        address.port = portFrom(trim(std::string_view(rest).substr(comma + 1)));
        if (!address.port) address.problem = "the port of the Data Source is no number from 1 to 65535";
        rest = rtrim(rest.substr(0, comma));
    }
    const std::size_t backslash = isPipe ? std::string::npos : rest.find('\\');
    if (backslash != std::string::npos) {
        address.instance = trim(std::string_view(rest).substr(backslash + 1));
        rest = rtrim(rest.substr(0, backslash));
    }
    address.host = rest;
    readColonPort(address);
    if (address.host.empty()) address.problem = "the Data Source names no server";
    return address;
}

std::string ConnectionParts::text(ConnectionPart part) const
{
    const auto found = texts.find(part);
    return found == texts.end() ? std::string() : found->second;
}

std::optional<ConnectionPart> partOfKey(std::string_view key)
{
    const auto found = std::ranges::find(kKeys, key, &KeyRow::key);
    return found == std::end(kKeys) ? std::nullopt : std::optional(found->part);
}

ConnectionParts readConnectionParts(const ConnectionString &text)
{
    ConnectionParts parts;
    const bool isOdbc = text.form == ConnectionString::Form::odbc;
    for (const ConnectionPair &pair : text.pairs) {
        const std::optional<ConnectionPart> part = partOfKey(pair.key);
        if (part && isOdbc)
            parts.texts.try_emplace(*part, pair.value); // of a repeated key ODBC uses the first, ADO the last
        else if (part)
            parts.texts.insert_or_assign(*part, pair.value);
        else if (isOdbc)
            parts.others.emplace_back(pair.shownKey, pair.raw);
    }
    parts.problem = text.problem;
    if (!parts.problem.empty()) return parts;
    parts.integrated = isYes(parts.text(ConnectionPart::integrated));
    readServer(parts);
    readEncryption(parts);
    readLoginTimeout(parts);
    readProvider(parts);
    return parts;
}

} // namespace inin
