#include "adapters/odbc/tds_peer.h"

#include "runtime/utf8.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <stdexcept>

namespace inin::test {

namespace {

constexpr std::uint8_t kBatch = 0x01, kAnswer = 0x04, kAttention = 0x06, kLogIn = 0x10, kPreLogIn = 0x12;
constexpr std::size_t kHeader = 8;

std::string little(std::uint64_t number, int count)
{
    std::string bytes;
    for (; count > 0; --count, number >>= 8U) bytes += static_cast<char>(number & 0xFFU);
    return bytes;
}

std::uint64_t number(const std::string &bytes, std::size_t at, std::size_t count)
{
    std::uint64_t value = 0;
    for (std::size_t index = count; index > 0; --index)
        value = (value << 8U) | static_cast<std::uint8_t>(bytes.at(at + index - 1));
    return value;
}

std::string wide(std::string_view text)
{
    std::string bytes;
    for (const char16_t unit : utf16FromUtf8(text)) bytes += little(unit, 2);
    return bytes;
}

/// A text preceded by its number of characters in `count` bytes.
std::string counted(std::string_view text, int count)
{
    return little(utf16FromUtf8(text).size(), count) + wide(text);
}

std::string narrow(const std::string &bytes)
{
    std::u16string units;
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) units += static_cast<char16_t>(number(bytes, at, 2));
    return utf8FromUtf16(units);
}

std::string done(std::uint16_t status, std::uint64_t rows)
{
    return "\xFD" + little(status, 2) + little(0, 2) + little(rows, 8);
}

std::string token(char kind, const std::string &body)
{
    return kind + little(body.size(), 2) + body;
}

std::string preLogInAnswer()
{
    // Two options: the version, and no encryption.
    return std::string("\x00\x00\x0B\x00\x06\x01\x00\x11\x00\x01\xFF", 11) +
           std::string("\x0F\x00\x07\xD0\x00\x00", 6) + "\x02";
}

std::string welcome(const TdsLogIn &logIn)
{
    const std::string database = logIn.database.empty() ? "master" : logIn.database;
    const std::string change = token('\xE3', "\x01" + counted(database, 1) + counted("master", 1));
    const std::string info =
        token('\xAB', little(5701, 4) + "\x02" + std::string(1, '\0') + counted("Changed database context.", 2) +
                          counted("PEER", 1) + counted("", 1) + little(1, 4));
    const std::string acknowledged =
        token('\xAD', "\x01" + std::string("\x74\x00\x00\x04", 4) + counted("Microsoft SQL Server", 1) +
                          std::string("\x0F\x00\x07\xD0", 4));
    return change + info + acknowledged + done(0, 0);
}

std::string refusal(const TdsLogIn &logIn)
{
    return token('\xAA', little(18456, 4) + "\x01\x0E" + counted("Login failed for user '" + logIn.user + "'.", 2) +
                             counted("PEER", 1) + counted("", 1) + little(1, 4)) +
           done(2, 0);
}

std::string numberColumn()
{
    return "\x81" + little(1, 2) + little(0, 4) + little(0, 2) + "\x26\x04" + counted("a", 1);
}

std::string numberRow(std::uint32_t value)
{
    return "\xD1\x04" + little(value, 4);
}

std::string divisionError()
{
    return token('\xAA', little(8134, 4) + "\x01\x10" + counted("Divide by zero error encountered.", 2) +
                             counted("PEER", 1) + counted("", 1) + little(1, 4)) +
           done(2, 0);
}

TdsLogIn readLogIn(const std::string &payload)
{
    const auto field = [&payload](std::size_t at) {
        return payload.substr(number(payload, at, 2), 2 * number(payload, at + 2, 2));
    };
    std::string password = field(44);
    for (char &byte : password) {
        const unsigned plain = static_cast<std::uint8_t>(byte) ^ 0xA5U;
        byte = static_cast<char>(((plain << 4U) | (plain >> 4U)) & 0xFFU);
    }
    return {narrow(field(40)), narrow(password), narrow(field(48)), narrow(field(68))};
}

bool readAll(int socket, char *place, std::size_t count)
{
    while (count > 0) {
        const ssize_t got = recv(socket, place, count, 0);
        if (got <= 0) return false;
        place += got;
        count -= static_cast<std::size_t>(got);
    }
    return true;
}

/// Reads one message, which may consist of several packets.
bool readMessage(int socket, std::uint8_t &type, std::string &payload)
{
    payload.clear();
    while (true) {
        std::string header(kHeader, '\0');
        if (!readAll(socket, header.data(), kHeader)) return false;
        type = static_cast<std::uint8_t>(header[0]);
        const std::size_t size = (static_cast<std::size_t>(static_cast<std::uint8_t>(header[2])) << 8U) |
                                 static_cast<std::uint8_t>(header[3]);
        std::string part(size - kHeader, '\0');
        if (!readAll(socket, part.data(), part.size())) return false;
        payload += part;
        if ((static_cast<std::uint8_t>(header[1]) & 1U) != 0) return true;
    }
}

bool send(int socket, const std::string &payload)
{
    const std::size_t size = payload.size() + kHeader;
    std::string packet{static_cast<char>(kAnswer),
                       '\x01',
                       static_cast<char>(size >> 8U),
                       static_cast<char>(size & 0xFFU),
                       '\0',
                       '\0',
                       '\x01',
                       '\0'};
    packet += payload;
    return ::send(socket, packet.data(), packet.size(), MSG_NOSIGNAL) == static_cast<ssize_t>(packet.size());
}

} // namespace

TdsPeer::TdsPeer(TdsManner manner) : m_manner(manner), m_listener(socket(AF_INET, SOCK_STREAM, 0))
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    auto *any = static_cast<sockaddr *>(static_cast<void *>(&address));
    socklen_t size = sizeof address;
    if (bind(m_listener, any, size) != 0 || ::listen(m_listener, 8) != 0 || getsockname(m_listener, any, &size) != 0)
        throw std::runtime_error("no port to listen on");
    m_port = ntohs(address.sin_port);
    m_thread = std::thread([this] { listen(); });
}

TdsPeer::~TdsPeer()
{
    m_stop = true;
    shutdown(m_listener, SHUT_RDWR);
    m_thread.join();
    close(m_listener);
    hangUp();
    for (std::thread &server : m_servers) server.join();
    for (const int socket : m_sockets) close(socket);
}

void TdsPeer::listen()
{
    while (!m_stop) {
        const int socket = accept(m_listener, nullptr, nullptr);
        if (socket < 0) return;
        const std::lock_guard lock(m_mutex);
        m_sockets.push_back(socket);
        if (m_manner != TdsManner::mute) m_servers.emplace_back([this, socket] { serve(socket); });
    }
}

void TdsPeer::hangUp()
{
    const std::lock_guard lock(m_mutex);
    for (const int socket : m_sockets) shutdown(socket, SHUT_RDWR);
}

void TdsPeer::serve(int socket)
{
    std::uint8_t type = 0;
    std::string payload;
    while (readMessage(socket, type, payload))
        if (!answer(socket, type, payload)) break;
    shutdown(socket, SHUT_RDWR);
}

/// Returns false when the connection should be closed.
bool TdsPeer::answer(int socket, std::uint8_t type, const std::string &payload)
{
    if (type == kPreLogIn) return send(socket, preLogInAnswer());
    if (type == kAttention) return send(socket, done(0x20, 0));
    const std::lock_guard lock(m_mutex);
    if (type == kLogIn) {
        m_logIns.push_back(readLogIn(payload));
        if (m_manner == TdsManner::willing) return send(socket, welcome(m_logIns.back()));
        (void)send(socket, refusal(m_logIns.back()));
        return false;
    }
    if (type != kBatch) return send(socket, done(0, 0));
    m_statements.push_back(narrow(payload.substr(number(payload, 0, 4))));
    const std::string &statement = m_statements.back();
    if (!statement.starts_with("SELECT")) return send(socket, done(0, 0));
    if (statement.starts_with("SELECT BREAKING")) {
        (void)send(socket, numberColumn() + numberRow(1) + numberRow(2));
        return false;
    }
    if (statement.starts_with("SELECT FAILING"))
        return send(socket, numberColumn() + numberRow(1) + numberRow(2) + divisionError());
    return send(socket, numberColumn() + numberRow(1) + done(0x10, 1));
}

std::vector<TdsLogIn> TdsPeer::logIns() const
{
    const std::lock_guard lock(m_mutex);
    return m_logIns;
}

std::vector<std::string> TdsPeer::statements() const
{
    const std::lock_guard lock(m_mutex);
    return m_statements;
}

} // namespace inin::test
