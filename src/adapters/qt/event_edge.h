#pragma once

#include <exception>
#include <functional>
#include <vector>

class QEventLoop;

namespace inin {

/// Where the toolkit's events enter the logic. Nothing may be thrown through the toolkit's loops: what leaves an event is
/// kept here, the innermost loop ends, and whoever ran that loop throws it on.
class EventEdge {
public:
    /// Runs an event procedure; a RuntimeError that leaves it goes on as an UnhandledError. Once something is kept, the
    /// program is on its way out and later events do nothing.
    void run(const std::function<void()> &procedure);
    /// Runs a loop to its end, or until an event fails.
    void exec(QEventLoop &loop);
    /// Throws on what was kept, if anything was.
    void throwKept();

private:
    std::exception_ptr m_kept;
    std::vector<QEventLoop *> m_loops;
};

} // namespace inin
