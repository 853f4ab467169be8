#pragma once

#include <utility>

namespace inin {

/// One mark for all events of a window. The platform is given time in the middle of a search, so a second event can
/// arrive there; it finds the mark taken and does nothing.
class BusyFlag {
public:
    [[nodiscard]] bool isTaken() const { return m_taken; }

    /// Takes the mark, if it is free, for as long as it lives.
    class Hold {
    public:
        explicit Hold(BusyFlag &flag) : m_flag(flag), m_holds(!std::exchange(flag.m_taken, true)) {}
        Hold(const Hold &) = delete;
        Hold &operator=(const Hold &) = delete;
        ~Hold()
        {
            if (m_holds) m_flag.m_taken = false;
        }
        /// False when somebody else had it.
        explicit operator bool() const { return m_holds; }

    private:
        BusyFlag &m_flag;
        bool m_holds;
    };

private:
    bool m_taken = false;
};

} // namespace inin
