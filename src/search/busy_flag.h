#pragma once

#include <utility>

namespace inin {

/// One flag for all events of a window. A search lets the platform process events, so a second event can arrive during
/// the first one; it finds the flag set and does nothing.
class BusyFlag {
public:
    [[nodiscard]] bool isTaken() const { return m_taken; }

    /// Sets the flag, if it is clear, for its own lifetime.
    class Hold {
    public:
        explicit Hold(BusyFlag &flag) : m_flag(flag), m_holds(!std::exchange(flag.m_taken, true)) {}
        Hold(const Hold &) = delete;
        Hold &operator=(const Hold &) = delete;
        ~Hold()
        {
            if (m_holds) m_flag.m_taken = false;
        }
        /// False if the flag was already set.
        explicit operator bool() const { return m_holds; }

    private:
        BusyFlag &m_flag;
        bool m_holds;
    };

private:
    bool m_taken = false;
};

} // namespace inin
