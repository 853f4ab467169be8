#include "adapters/qt/event_edge.h"

#include "adapters/qt/typed_box.h"
#include "runtime/runtime_error.h"

#include <QEventLoop>

#include <utility>

namespace inin::qt {

void EventEdge::run(const std::function<void()> &procedure)
{
    if (m_kept || !procedure) return;
    try {
        readBoxes();
        if (!m_kept) atEventEdge(procedure);
    } catch (...) {
        keep(std::current_exception());
    }
}

void EventEdge::keep(std::exception_ptr fault)
{
    if (m_kept) return;
    m_kept = std::move(fault);
    if (!m_loops.empty()) m_loops.back()->quit();
}

void EventEdge::readBeforeEvents(TypedBox &box)
{
    std::erase_if(m_boxes, [](const QPointer<TypedBox> &each) { return each.isNull(); });
    m_boxes.emplace_back(&box);
}

/// A box that reads a new value raises an event itself, which may open a window with more boxes.
void EventEdge::readBoxes() const
{
    for (std::size_t i = 0; i < m_boxes.size(); ++i)
        if (m_boxes[i]) m_boxes[i]->commit();
}

void EventEdge::exec(QEventLoop &loop)
{
    m_loops.push_back(&loop);
    // If an event failed before the loop began, its quit would be lost: do not start the loop.
    if (!m_kept) loop.exec();
    m_loops.pop_back();
    throwKept();
}

void EventEdge::throwKept()
{
    if (m_kept) std::rethrow_exception(std::exchange(m_kept, nullptr));
}

} // namespace inin::qt
