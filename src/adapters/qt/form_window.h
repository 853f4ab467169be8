#pragma once

#include "adapters/qt/control_mirror.h"
#include "adapters/qt/view_services.h"
#include "screen/form.h"

#include <QWidget>

#include <functional>

class QScrollArea;

namespace inin::qt {

/// A form on the screen. It mirrors the form's attributes and raises its events; the form's view lays out the controls
/// (see view_registry.h). The form must outlive every event, but not the window itself.
class FormWindow : public QWidget {
public:
    enum class Opening { centred, maximised };
    enum class Sizing { fixed, free };

    FormWindow(Form &form, const ViewServices &services, QWidget *owner);
    FormWindow(const FormWindow &) = delete;
    FormWindow &operator=(const FormWindow &) = delete;

    [[nodiscard]] Form &form() const { return m_form; }
    /// The parent of the widgets, for a view to lay them out.
    [[nodiscard]] QWidget &content() { return *m_content; }
    /// The widget of the named control. A view that names a control missing from the form is a programming error.
    [[nodiscard]] QWidget &widget(const char *controlName) const;
    template <class T> [[nodiscard]] T &widgetAs(const char *controlName) const
    {
        return dynamic_cast<T &>(widget(controlName));
    }
    [[nodiscard]] const ControlMirror &mirror() const { return m_mirror; }
    /// Sets how the window opens; its size is that of its content.
    void setOpening(Opening opening, Sizing sizing);
    /// The content's size on a screen that has room for it. Default: the smallest size that shows everything.
    void setPreferredSize(QSize size) { m_preferredSize = size; }

    /// Keeps a control below the scrolled content, so that it is visible on every screen.
    void setFoot(QWidget &foot);

    void open();
    [[nodiscard]] Control *activeControl() const;
    void moveFocus(const Control &control);
    void sendTab();
    /// Called when the window becomes the active one.
    std::function<void()> onActivated;

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void orderTabs();
    void scrollTo(QWidget &widget);
    [[nodiscard]] static bool scrollsFor(Qt::FocusReason reason);
    void fitToScreen();
    [[nodiscard]] bool dealKey(QWidget *widget, const QKeyEvent &event);

    Form &m_form;
    const ViewServices &m_services;
    QWidget *m_content;        ///< owned by the window, as the next two
    QScrollArea *m_scroll;     ///< of the content
    QWidget *m_foot = nullptr; ///< below it; nullptr for none
    ControlMirror m_mirror;
    QSize m_preferredSize;
    Opening m_opening = Opening::centred;
    Sizing m_sizing = Sizing::free;
};

} // namespace inin::qt
