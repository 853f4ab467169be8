#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace inin {

/// The length of the bytes without the CR and LF at their end.
[[nodiscard]] std::size_t lengthWithoutLineEnd(std::string_view bytes);

/// Bytes of an output file that are not yet written. Trailing line ends are held back until more bytes follow, so a
/// file that was not closed is recognized by its last byte.
class OutputBuffer {
public:
    void add(std::string_view bytes) { m_bytes += bytes; }
    /// The bytes to write now: none while there are few, otherwise all but trailing line ends.
    [[nodiscard]] std::string takeDue();
    /// All bytes, for a file that is closed.
    [[nodiscard]] std::string takeAll();
    /// All bytes but trailing line ends, for a file that is abandoned.
    [[nodiscard]] std::string takeCutOff();

private:
    std::string m_bytes;
};

} // namespace inin
