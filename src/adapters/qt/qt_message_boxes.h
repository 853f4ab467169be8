#pragma once

#include "adapters/qt/view_services.h"
#include "platform/message_boxes.h"

#include <QMessageBox>

namespace inin::qt {

/// Message boxes over the active window. Line ends are CR, LF or both.
class QtMessageBoxes : public MessageBoxes {
public:
    /// `beforeText` is called before each box; see ViewServices.
    explicit QtMessageBoxes(EventEdge &edge, std::function<void()> beforeText = {})
        : m_edge(edge), m_beforeText(std::move(beforeText))
    {
    }
    void show(const std::string &text, Icon icon, const std::string &title) override;
    [[nodiscard]] bool askRetry(const std::string &text, Icon icon, const std::string &title) override;

private:
    /// Shows a box with these buttons and returns the one pressed.
    int pressed(QMessageBox::StandardButtons buttons, const std::string &text, Icon icon, const std::string &title);

    EventEdge &m_edge;
    std::function<void()> m_beforeText;
};

} // namespace inin::qt
