#include "common/field_input.h"

#include "platform/settings_limit.h"
#include "runtime/runtime_error.h"

namespace inin {

namespace {

constexpr std::size_t kPieceSize = 65536;

} // namespace

FieldInput::FieldInput(const Platform &platform, const std::string &path)
    : m_locale(platform.locale), m_file(platform.files, path)
{
}

std::string FieldInput::next()
{
    if (isAtEnd()) throw RuntimeError(error_number::endOfFile);
    skipBlanks();
    // The separators are searched in the bytes: no second half of a double byte is a comma, a quote or a line end.
    const bool isQuoted = peek() == '"';
    const std::string bytes = isQuoted ? quotedBytes() : plainBytes();
    if (isQuoted) skipBlanks();
    skipSeparator();
    return m_locale.fromCodePage(bytes);
}

int FieldInput::peek()
{
    if (m_position == m_buffer.size()) {
        m_buffer = m_file.read();
        m_position = 0;
    }
    return m_buffer.empty() ? kNoByte : static_cast<unsigned char>(m_buffer[m_position]);
}

char FieldInput::take()
{
    return m_buffer[m_position++];
}

void FieldInput::skipBlanks()
{
    while (peek() == ' ' || peek() == '\t') take();
}

/// Text after a closing quote that is neither a comma nor a line end starts the next field.
void FieldInput::skipSeparator()
{
    const int separator = peek();
    if (separator != ',' && separator != '\r' && separator != '\n') return;
    take();
    if (separator == '\r' && peek() == '\n') take();
}

std::string FieldInput::plainBytes()
{
    std::string bytes;
    for (int byte = peek(); byte != kNoByte && byte != ',' && byte != '\r' && byte != '\n'; byte = peek())
        bytes += take();
    return bytes;
}

/// A quote that is never closed extends to the end of the file.
std::string FieldInput::quotedBytes()
{
    take();
    std::string bytes;
    while (peek() != kNoByte && peek() != '"') bytes += take();
    if (peek() == '"') take();
    return bytes;
}

SettingsInput::SettingsInput(Files &files, const std::string &path) : m_path(path), m_file(files.openForInput(path)) {}

std::string SettingsInput::read()
{
    std::string piece = m_file->read(kPieceSize);
    m_size += piece.size();
    if (m_size > kMaxSettingsBytes)
        throw RuntimeError(error_number::outOfMemory, "設定ファイル（" + m_path + "）が 16 MB を超えています。");
    return piece;
}

} // namespace inin
