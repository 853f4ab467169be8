#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace inin::test {

/// What a client sent in its log-in.
struct TdsLogIn {
    std::string user;
    std::string password;
    std::string application;
    std::string database;
};

/// How the peer behaves.
enum class TdsManner : std::uint8_t {
    mute,     ///< accepts connections and never answers
    refusing, ///< refuses every log-in as a wrong password
    willing   ///< accepts every log-in; answers SELECT with a row with the number 1 and other statements with no rows
};

/// A listener on loopback that speaks as much of SQL Server's protocol as a log-in and a statement need. It shows
/// without a real server how the driver reads our connection strings and how it reports errors.
class TdsPeer {
public:
    explicit TdsPeer(TdsManner manner);
    TdsPeer(const TdsPeer &) = delete;
    TdsPeer &operator=(const TdsPeer &) = delete;
    ~TdsPeer();

    [[nodiscard]] std::uint16_t port() const { return m_port; }
    [[nodiscard]] std::vector<TdsLogIn> logIns() const;
    [[nodiscard]] std::vector<std::string> statements() const;
    /// Closes all connections abruptly, like a broken network.
    void hangUp();

private:
    void listen();
    void serve(int socket);
    bool answer(int socket, std::uint8_t type, const std::string &payload);

    TdsManner m_manner;
    int m_listener = -1;
    std::uint16_t m_port = 0;
    std::atomic<bool> m_stop{false};
    mutable std::mutex m_mutex;
    std::vector<int> m_sockets;
    std::vector<TdsLogIn> m_logIns;
    std::vector<std::string> m_statements;
    std::vector<std::thread> m_servers;
    std::thread m_thread;
};

} // namespace inin::test
