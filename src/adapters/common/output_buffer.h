#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace inin {

/// The length of the bytes without the CR and LF at their end.
[[nodiscard]] std::size_t lengthWithoutLineEnd(std::string_view bytes);

/// Bytes of an output file that are not in the file yet. Line ends at the end are held back until bytes follow them, so
/// that a file that was not closed can be told from a whole one by its last byte.
class OutputBuffer {
public:
    void add(std::string_view bytes) { m_bytes += bytes; }
    /// The bytes that are due: none while little is collected, else all but a line end at their end.
    [[nodiscard]] std::string takeDue();
    /// For a file that is closed: all.
    [[nodiscard]] std::string takeAll();
    /// For a file that is given up: all but a line end at their end.
    [[nodiscard]] std::string takeCutOff();

private:
    std::string m_bytes;
};

} // namespace inin
