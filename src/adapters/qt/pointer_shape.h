#pragma once

#include <cstdint>

namespace inin::qt {

/// The mouse pointer over all windows of the program: kPointerHourglass, or anything else for the usual one.
void setPointerShape(std::int16_t kind);

/// Gives the usual pointer back for as long as it lives, for a box that waits for an answer in the middle of work.
class UsualPointer {
public:
    UsualPointer();
    UsualPointer(const UsualPointer &) = delete;
    UsualPointer &operator=(const UsualPointer &) = delete;
    ~UsualPointer();

private:
    bool m_wasBusy;
};

} // namespace inin::qt
