#include "common/text_file.h"

#include "runtime/text.h"

namespace inin {

TextOutput::TextOutput(const Platform &platform, const std::string &path)
    : m_locale(platform.locale), m_file(platform.files.openForOutput(path))
{
}

void TextOutput::printLine(std::string_view utf8)
{
    const std::string line = m_locale.toCodePage(utf8).append(kCrLf);
    m_file->write(line);
    m_size += line.size();
}

void TextOutput::close()
{
    m_file->close();
}

TextInput::TextInput(const Platform &platform, const std::string &path)
    : m_locale(platform.locale), m_file(platform.files, path)
{
}

bool TextInput::readLine(std::string &line)
{
    // Line ends are searched in the bytes: no second half of a double byte is a CR or LF.
    std::string bytes;
    std::size_t end = std::string::npos;
    while (end == std::string::npos) {
        if (m_position == m_buffer.size() && !fill()) break;
        end = m_buffer.find_first_of("\r\n", m_position);
        const std::size_t stop = end == std::string::npos ? m_buffer.size() : end;
        bytes.append(m_buffer, m_position, stop - m_position);
        m_position = stop;
    }
    if (end == std::string::npos && bytes.empty()) return false;
    if (end != std::string::npos) skipLineEnd();
    line = m_locale.fromCodePage(bytes);
    return true;
}

void TextInput::skipLineEnd()
{
    const bool carriageReturn = m_buffer[m_position++] == '\r';
    // The LF of a CR LF may be the first byte of the next block.
    if (carriageReturn && (m_position < m_buffer.size() || fill()) && m_buffer[m_position] == '\n') ++m_position;
}

bool TextInput::fill()
{
    if (m_atEnd) return false;
    m_buffer = m_file.read();
    m_position = 0;
    m_atEnd = m_buffer.empty();
    return !m_atEnd;
}

} // namespace inin
