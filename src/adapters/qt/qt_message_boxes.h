#pragma once

#include "adapters/qt/view_services.h"
#include "platform/message_boxes.h"

namespace inin {

/// Boxes over the window that a person works in. Line ends are CR, LF or both.
class QtMessageBoxes : public MessageBoxes {
public:
    explicit QtMessageBoxes(EventEdge &edge) : m_edge(edge) {}
    void show(const std::string &text, Icon icon, const std::string &title) override;

private:
    EventEdge &m_edge;
};

} // namespace inin
