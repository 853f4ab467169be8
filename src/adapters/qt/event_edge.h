#pragma once

#include <QPointer>

#include <exception>
#include <functional>
#include <vector>

class QEventLoop;

namespace inin::qt {

class TypedBox;

/// The boundary where toolkit events enter the program. No exception may pass through the toolkit's loops: an exception
/// that leaves an event is stored here, the innermost loop ends, and the code that runs that loop rethrows it.
class EventEdge {
public:
    /// Runs an event procedure after every registered box has read its text, so that the procedure works with what the
    /// user sees, however it was started (mouse, menu, button, key). A RuntimeError that leaves the procedure becomes
    /// an UnhandledError. Once an exception is stored, the program is about to end and later events do nothing.
    void run(const std::function<void()> &procedure);
    /// Registers a box until it is destroyed.
    void readBeforeEvents(TypedBox &box);
    /// Runs a loop until it ends or an event fails.
    void exec(QEventLoop &loop);
    /// Stores an exception that left an event and ends the innermost loop. Only the first exception is stored.
    void keep(std::exception_ptr fault);
    /// Rethrows the stored exception, if any.
    void throwKept();

private:
    void readBoxes() const;

    std::exception_ptr m_kept;
    std::vector<QEventLoop *> m_loops;
    std::vector<QPointer<TypedBox>> m_boxes;
};

} // namespace inin::qt
