#include "system/output_buffer.h"

#include <utility>

namespace inin {

namespace {
constexpr std::size_t kDueSize = 65536;
} // namespace

std::size_t lengthWithoutLineEnd(std::string_view bytes)
{
    return bytes.find_last_not_of("\r\n") + 1; // npos + 1 is 0
}

std::string OutputBuffer::takeDue()
{
    if (m_bytes.size() < kDueSize) return {};
    std::string due = takeCutOff();
    m_bytes.reserve(due.size()); // a long file is written in parts of about this size
    return due;
}

std::string OutputBuffer::takeAll()
{
    return std::exchange(m_bytes, {});
}

std::string OutputBuffer::takeCutOff()
{
    const std::size_t length = lengthWithoutLineEnd(m_bytes);
    std::string lineEnd = m_bytes.substr(length);
    m_bytes.resize(length);
    return std::exchange(m_bytes, std::move(lineEnd));
}

} // namespace inin
