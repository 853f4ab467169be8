#pragma once

#include "platform/files.h"
#include "platform/platform.h"

#include <cstddef>
#include <memory>
#include <string>

namespace inin {

/// The bytes of a settings file, piece by piece.
class SettingsInput {
public:
    /// The file's errors go to the caller.
    SettingsInput(Files &files, const std::string &path);
    /// The next piece, empty at the end of the file. Error 7 with a sentence of its own for a file that is too large.
    [[nodiscard]] std::string read();

private:
    std::string m_path;
    std::unique_ptr<InputFile> m_file;
    std::size_t m_size = 0;
};

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
