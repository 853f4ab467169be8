#include "adapters/odbc/server_address.h"

#include "runtime/text.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace inin::odbc {

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

std::string microsoftServer(const ServerAddress &address)
{
    std::string text = address.protocol.empty() ? std::string() : address.protocol + ":";
    text += address.host;
    if (!address.instance.empty()) text += "\\" + address.instance;
    if (address.port) text += "," + std::to_string(*address.port);
    return text;
}

} // namespace inin::odbc
