#pragma once

#include <nlohmann/json.hpp>

#include <cstdint>
#include <iosfwd>
#include <string>

namespace inin {

/// Keeps its keys in the order in which they were put.
using Json = nlohmann::ordered_json;

/// What happens in a play, one JSON object a line, written out at once so that a reader can follow.
class Transcript {
public:
    explicit Transcript(std::ostream &out) : m_out(out) {}

    /// Text that is not valid UTF-8 is replaced. Once closed, nothing is written any more.
    void write(const Json &event);
    /// The run-time error that ends the program; the last event.
    void fatal(std::int32_t number, const std::string &text);
    /// The program is over: what its objects still do while they are torn down is not told.
    void close() { m_closed = true; }
    /// True when the stream no longer takes what is written.
    [[nodiscard]] bool isBroken() const;

private:
    std::ostream &m_out;
    bool m_closed = false;
};

} // namespace inin
