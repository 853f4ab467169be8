#pragma once

#include "common/settings_input.h"
#include "platform/platform.h"

#include <string>

namespace inin {

/// A text file of the suite open for input, read by the rules of the runtime's field input: a field ends at a comma or
/// a line end, blanks and tabs before it are skipped, and a field that begins with a double quote ends at the next
/// quote, across commas and line ends, and loses both quotes.
class FieldInput {
public:
    /// Errors of the file go to the caller.
    FieldInput(const Platform &platform, const std::string &path);
    /// True if no byte is left, so that there is no further field.
    [[nodiscard]] bool isAtEnd() { return peek() == kNoByte; }
    /// The next field, decoded; error 62 at the end of the file.
    [[nodiscard]] std::string next();

private:
    static constexpr int kNoByte = -1;

    [[nodiscard]] int peek();
    char take();
    void skipBlanks();
    void skipSeparator();
    [[nodiscard]] std::string plainBytes();
    [[nodiscard]] std::string quotedBytes();

    Locale &m_locale;
    SettingsInput m_file;
    std::string m_buffer;
    std::size_t m_position = 0;
};

} // namespace inin
