#pragma once

#include "adapters/qt/view_services.h"
#include "screen/controls.h"

#include <QWidget>

#include <functional>
#include <map>

namespace inin::qt {

/// Creates a widget for each control record and keeps the two in step: an assignment to the record is shown in the
/// widget, and user input is assigned to the record or raises its event. It contains no business rules. Menu entries
/// have no widget; see FormMenu.
class ControlMirror : private ControlVisitor {
public:
    ControlMirror(QWidget &content, const ViewServices &services) : m_content(content), m_services(services) {}

    /// The widget of a control, created on the first call and owned by its container's widget. Its objectName is the
    /// control's name. nullptr for a menu entry.
    QWidget *make(Control &control);
    [[nodiscard]] QWidget *widgetOf(const Control &control) const;
    /// The control of a widget or of its nearest ancestor that has one, or nullptr.
    [[nodiscard]] Control *controlOf(const QWidget *widget) const;
    /// Shows all records again, for example after a change of the desktop's colours.
    void refreshAll() const;

private:
    void visit(OptionButton &control) override;
    void visit(CheckBox &control) override;
    void visit(Button &control) override;
    void visit(NumberBox &control) override;
    void visit(DateBox &control) override;
    void visit(TextBox &control) override;
    void visit(ListBox &control) override;
    void visit(Label &control) override;
    void visit(Frame &control) override;
    void visit(MenuEntry &control) override;
    void visit(ImageBox &control) override;
    void visit(Grid &control) override;
    void keepOpenList(ListBox &control);

    [[nodiscard]] QWidget *parentFor(const Control &control) const;
    /// Stores the widget and shows the record in it, now and after each change.
    void keep(Control &control, QWidget *widget, std::function<void()> refresh);

    QWidget &m_content;
    const ViewServices &m_services;
    std::map<const Control *, QWidget *> m_widgets;
    std::map<const QWidget *, Control *> m_controls;
    std::vector<std::function<void()>> m_refreshers;
};

} // namespace inin::qt
