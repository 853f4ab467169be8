#pragma once

#include <QPointer>

#include <exception>
#include <functional>
#include <vector>

class QEventLoop;

namespace inin::qt {

class TypedBox;

/// Where the toolkit's events enter the logic. Nothing may be thrown through the toolkit's loops: an exception that leaves
/// an event is kept here, the innermost loop ends, and the code that runs that loop rethrows it.
class EventEdge {
public:
    /// Runs an event procedure after every registered box has read its text, so that the procedure sees what the person
    /// sees, whether it was started by mouse, menu, button or key. A RuntimeError that leaves the procedure goes on as an
    /// UnhandledError. Once an exception is kept, the program is about to end and later events do nothing.
    void run(const std::function<void()> &procedure);
    /// Registers a box until it is destroyed.
    void readBeforeEvents(TypedBox &box);
    /// Runs a loop to its end, or until an event fails.
    void exec(QEventLoop &loop);
    /// Keeps an exception that left an event and ends the innermost loop. The first one counts.
    void keep(std::exception_ptr fault);
    /// Rethrows the exception that was kept, if there is one.
    void throwKept();

private:
    void readBoxes() const;

    std::exception_ptr m_kept;
    std::vector<QEventLoop *> m_loops;
    std::vector<QPointer<TypedBox>> m_boxes;
};

} // namespace inin::qt
