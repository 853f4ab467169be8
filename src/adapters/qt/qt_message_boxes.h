#pragma once

#include "adapters/qt/view_services.h"
#include "platform/message_boxes.h"

namespace inin {

/// Boxes over the window that a person works in. Line ends are CR, LF or both.
class QtMessageBoxes : public MessageBoxes {
public:
    /// `beforeText` is called before each box, as ViewServices says.
    explicit QtMessageBoxes(EventEdge &edge, std::function<void()> beforeText = {})
        : m_edge(edge), m_beforeText(std::move(beforeText))
    {
    }
    void show(const std::string &text, Icon icon, const std::string &title) override;

private:
    EventEdge &m_edge;
    std::function<void()> m_beforeText;
};

} // namespace inin
