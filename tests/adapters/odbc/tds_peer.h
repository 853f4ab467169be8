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

/// What a client told at its log-in.
struct TdsLogIn {
    std::string user;
    std::string password;
    std::string application;
    std::string database;
};

/// How the peer behaves.
enum class TdsManner : std::uint8_t {
    mute,     ///< takes connections and never says a word
    refusing, ///< refuses every log-in as a wrong password
    willing   ///< lets everybody in; answers SELECT by a row with the number 1 and everything else by nothing
};

/// A listener on loopback that speaks as much of a SQL Server's protocol as a log-in and a statement need. It stands in
/// where no real server can be had: what it shows is how the driver reads our connection string, and how it reports.
class TdsPeer {
public:
    explicit TdsPeer(TdsManner manner);
    TdsPeer(const TdsPeer &) = delete;
    TdsPeer &operator=(const TdsPeer &) = delete;
    ~TdsPeer();

    [[nodiscard]] std::uint16_t port() const { return m_port; }
    [[nodiscard]] std::vector<TdsLogIn> logIns() const;
    [[nodiscard]] std::vector<std::string> statements() const;
    /// Ends all connections without a word, as a network does that breaks.
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
