#pragma once

#include "common/field_input.h"
#include "platform/platform.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace inin {

/// A text file of the suite open for output: code page 932, each line ended by CR LF.
class TextOutput {
public:
    /// Creates the file or truncates an existing one; errors of the file go to the caller.
    TextOutput(const Platform &platform, const std::string &path);
    void printLine(std::string_view utf8);
    void close();
    /// The size in bytes of all lines so far.
    [[nodiscard]] std::uint64_t size() const { return m_size; }

private:
    Locale &m_locale;
    std::unique_ptr<OutputFile> m_file;
    std::uint64_t m_size = 0;
};

/// A settings file of the suite open for input, read line by line. A line ends at CR LF, CR or LF.
class TextInput {
public:
    /// The file's errors go to the caller.
    TextInput(const Platform &platform, const std::string &path);
    /// False at the end of the file; else the next line without its end, decoded.
    [[nodiscard]] bool readLine(std::string &line);

private:
    void skipLineEnd();
    bool fill();

    Locale &m_locale;
    SettingsInput m_file;
    std::string m_buffer;
    std::size_t m_position = 0;
    bool m_atEnd = false;
};

} // namespace inin
