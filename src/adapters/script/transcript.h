#pragma once

#include "platform/message_boxes.h"
#include "platform/processes.h"
#include "screen/form.h"

#include <nlohmann/json.hpp>

#include <cstdint>
#include <iosfwd>
#include <string>

namespace inin::script {

/// JSON objects with their keys in insertion order.
using Json = nlohmann::ordered_json;

/// Writes the events of a play, one JSON object per line, each at once so that a reader can follow.
class Transcript {
public:
    explicit Transcript(std::ostream &out) : m_out(out) {}

    /// Text that is not valid UTF-8 is replaced. Writes nothing after close().
    void write(const Json &event);
    void box(const std::string &text, Icon icon, const std::string &title);
    void start(const std::string &commandLine, WindowStyle style);
    void address(const std::string &address);
    /// Records a loaded form as shown, and as hidden when it is unloaded.
    void followWindow(Form &form);
    void pointer(std::int16_t kind);
    void beep();
    /// The end of a database session. Allocates no memory, so that a destructor can record it when memory has run out.
    void disconnect(int session) noexcept;
    /// The end statement; the last event.
    void end(int code);
    /// The run-time error that ends the program; the last event.
    void fatal(std::int32_t number, const std::string &text);
    /// Called when the program is over: what its objects do during their destruction is not recorded.
    void close() { m_closed = true; }
    /// True when writing to the stream has failed.
    [[nodiscard]] bool isBroken() const;

private:
    void window(const std::string &name, bool shown);

    std::ostream &m_out;
    bool m_closed = false;
};

} // namespace inin::script
