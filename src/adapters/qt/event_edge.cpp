#include "adapters/qt/event_edge.h"

#include "runtime/runtime_error.h"

#include <QEventLoop>

#include <utility>

namespace inin {

void EventEdge::run(const std::function<void()> &procedure)
{
    if (m_kept || !procedure) return;
    try {
        atEventEdge(procedure);
    } catch (...) {
        m_kept = std::current_exception();
        if (!m_loops.empty()) m_loops.back()->quit();
    }
}

void EventEdge::exec(QEventLoop &loop)
{
    m_loops.push_back(&loop);
    // An event may have failed before the loop began, which a quit does not survive.
    if (!m_kept) loop.exec();
    m_loops.pop_back();
    throwKept();
}

void EventEdge::throwKept()
{
    if (m_kept) std::rethrow_exception(std::exchange(m_kept, nullptr));
}

} // namespace inin
