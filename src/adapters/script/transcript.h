#pragma once

#include "platform/message_boxes.h"
#include "platform/processes.h"
#include "screen/form.h"

#include <nlohmann/json.hpp>

#include <cstdint>
#include <iosfwd>
#include <string>

namespace inin::script {

/// Keeps its keys in the order in which they were put.
using Json = nlohmann::ordered_json;

/// What happens in a play, one JSON object a line, written out at once so that a reader can follow.
class Transcript {
public:
    explicit Transcript(std::ostream &out) : m_out(out) {}

    /// Text that is not valid UTF-8 is replaced. Once closed, nothing is written any more.
    void write(const Json &event);
    void box(const std::string &text, Icon icon, const std::string &title);
    void start(const std::string &commandLine, WindowStyle style);
    void address(const std::string &address);
    /// Tells a loaded form as shown, and as gone at the moment of its unload.
    void followWindow(Form &form);
    void pointer(std::int16_t kind);
    void beep();
    /// The end of a database session. It allocates no memory, so that a destructor may write it when there is none left.
    void disconnect(int session) noexcept;
    /// The end statement; the last event.
    void end(int code);
    /// The run-time error that ends the program; the last event.
    void fatal(std::int32_t number, const std::string &text);
    /// The program is over: what its objects still do while they are torn down is not told.
    void close() { m_closed = true; }
    /// True when the stream no longer takes what is written.
    [[nodiscard]] bool isBroken() const;

private:
    void window(const std::string &name, bool shown);

    std::ostream &m_out;
    bool m_closed = false;
};

} // namespace inin::script
