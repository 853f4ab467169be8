#pragma once

#include "adapters/script/transcript.h"

#include <cstddef>
#include <cstdint>
#include <exception>
#include <iosfwd>
#include <optional>
#include <string>
#include <utility>

namespace inin::script {

/// A command that cannot be played. It ends the play, so it is not a RuntimeError, which the program could trap.
class BadScriptCommand : public std::exception {
public:
    BadScriptCommand(std::size_t line, const std::string &why) : m_text("line " + std::to_string(line) + ": " + why) {}
    [[nodiscard]] const char *what() const noexcept override { return m_text.c_str(); }

private:
    std::string m_text;
};

enum class CommandKind { click, set, choose, key, row, close, state };

/// One line of a script.
struct ScriptCommand {
    CommandKind kind = CommandKind::state;
    std::size_t line = 0;     ///< 1 is the first
    std::string control;      ///< click, set, choose, key; empty for the window
    Json to;                  ///< set: the new value, not yet converted
    std::int16_t number = 0;  ///< choose: the index; key: the code
    std::int32_t row = 0;     ///< 1 is the first
    bool doubleClick = false; ///< row
    bool force = false;       ///< acts on the record directly, as the program's own code would
};

/// Converts a JSON value to a whole number of that type; nothing for any other value and for one out of range.
template <class T> [[nodiscard]] std::optional<T> wholeNumber(const Json &value)
{
    if (!value.is_number_integer()) return std::nullopt;
    // The library compares an unsigned value beyond 63 bits as a negative one.
    const bool fits = value.is_number_unsigned() ? std::in_range<T>(value.get<std::uint64_t>())
                                                 : std::in_range<T>(value.get<std::int64_t>());
    return fits ? std::optional<T>(value.get<T>()) : std::nullopt;
}

/// Reads the commands one by one. Blank lines and lines that begin with "#" are skipped.
class CommandReader {
public:
    explicit CommandReader(std::istream &in) : m_in(in) {}
    /// Returns nothing at the end of the input; throws BadScriptCommand for a line that is not a command.
    [[nodiscard]] std::optional<ScriptCommand> next();

private:
    std::istream &m_in;
    std::size_t m_line = 0;
};

} // namespace inin::script
