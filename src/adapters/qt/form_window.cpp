#include "adapters/qt/form_window.h"

#include "adapters/qt/form_menu.h"
#include "adapters/qt/keys.h"
#include "adapters/qt/qt_text.h"
#include "adapters/qt/units.h"
#include "adapters/qt/view_registry.h"
#include "platform/key_codes.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QKeyEvent>
#include <QMenuBar>
#include <QPointer>
#include <QScreen>
#include <QScrollArea>
#include <QVBoxLayout>

#include <algorithm>
#include <stdexcept>

namespace inin::qt {

namespace {

/// A scroll area with the preferred size of its content. The toolkit's own preferred size is in lines of text, which
/// would load the system's fonts even for a window without text.
class ContentArea : public QScrollArea {
public:
    using QScrollArea::QScrollArea;
    [[nodiscard]] QSize sizeHint() const override { return widget()->sizeHint().expandedTo(QSize(640, 480)); }
};

} // namespace

FormWindow::FormWindow(Form &form, const ViewServices &services, QWidget *owner)
    : QWidget(owner, Qt::Window), m_form(form), m_services(services), m_content(new QWidget),
      m_scroll(new ContentArea(this)), m_mirror(*m_content, services)
{
    setObjectName(toQt(form.name()));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    if (QMenuBar *menu = makeFormMenu(form, services, this)) layout->setMenuBar(menu);
    // On a screen too small for the form, it is scrolled instead of cut off.
    m_scroll->setFrameShape(QFrame::NoFrame);
    m_scroll->setWidgetResizable(true);
    m_scroll->setFocusPolicy(Qt::NoFocus);
    m_scroll->setWidget(m_content);
    layout->addWidget(m_scroll);

    for (Control *control : form.controls())
        if (QWidget *widget = m_mirror.make(*control)) widget->installEventFilter(this);
    layOutForm(*this);
    orderTabs();

    const auto showCaption = [&form, guard = QPointer<FormWindow>(this)] {
        if (guard) guard->setWindowTitle(toQt(form.Caption));
    };
    showCaption();
    form.watch(showCaption);
}

QWidget &FormWindow::widget(const char *controlName) const
{
    const Control *control = m_form.find(controlName);
    QWidget *found = control != nullptr ? m_mirror.widgetOf(*control) : nullptr;
    if (found == nullptr) throw std::logic_error(m_form.name() + " has no widget " + controlName);
    return *found;
}

void FormWindow::setOpening(Opening opening, Sizing sizing)
{
    m_opening = opening;
    m_sizing = sizing;
}

void FormWindow::setFoot(QWidget &foot)
{
    m_foot = &foot;
    layout()->addWidget(m_foot);
}

void FormWindow::open()
{
    if (m_opening == Opening::maximised) {
        showMaximized();
    } else {
        fitToScreen();
        show();
    }
    raise();
    activateWindow();
    for (Control *control : m_form.controls())
        if (control->TabIndex == 0) moveFocus(*control);
}

/// Centres the window at the size of its content, or at the largest size that the screen has room for.
void FormWindow::fitToScreen()
{
    constexpr int kTitleBar = 40;
    const QRect room = screen()->availableGeometry().adjusted(0, 0, 0, -kTitleBar);
    const int menu = layout()->menuBar() != nullptr ? layout()->menuBar()->sizeHint().height() : 0;
    const int foot = m_foot != nullptr ? m_foot->minimumHeight() : 0;
    const QSize least = m_content->minimumSize().expandedTo(m_content->minimumSizeHint());
    QSize wanted = least.expandedTo(m_preferredSize) + QSize(0, menu + foot);
    const int scrollBar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    if (wanted.height() > room.height()) wanted.rwidth() += scrollBar;
    const QSize size = wanted.boundedTo(room.size());
    if (m_sizing == Sizing::fixed) {
        setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                       Qt::WindowCloseButtonHint);
        setFixedSize(size);
    } else {
        resize(size);
    }
    move(room.topLeft() + QPoint((room.width() - size.width()) / 2, (room.height() - size.height()) / 2));
}

/// The tab key follows TabIndex; controls without one are skipped.
void FormWindow::orderTabs()
{
    std::vector<Control *> stops;
    for (Control *control : m_form.controls()) {
        QWidget *widget = m_mirror.widgetOf(*control);
        if (widget == nullptr) continue;
        if (control->TabIndex >= 0)
            stops.push_back(control);
        else
            widget->setFocusPolicy(Qt::NoFocus);
    }
    std::ranges::stable_sort(stops, {}, &Control::TabIndex);
    for (std::size_t i = 1; i < stops.size(); ++i)
        setTabOrder(m_mirror.widgetOf(*stops[i - 1]), m_mirror.widgetOf(*stops[i]));
}

/// The toolkit itself follows only the tab key.
void FormWindow::scrollTo(QWidget &widget)
{
    constexpr int kMargin = 24; // shows the title of the frame, too
    if (m_content->isAncestorOf(&widget)) m_scroll->ensureWidgetVisible(&widget, kMargin, kMargin);
}

/// A press of the mouse must not move what it pressed: the release would then miss it. Neither must a press that first
/// activates the window.
bool FormWindow::scrollsFor(Qt::FocusReason reason)
{
    return reason != Qt::MouseFocusReason && reason != Qt::ActiveWindowFocusReason;
}

Control *FormWindow::activeControl() const
{
    return m_mirror.controlOf(focusWidget());
}

void FormWindow::moveFocus(const Control &control)
{
    if (QWidget *widget = m_mirror.widgetOf(control)) widget->setFocus(Qt::TabFocusReason);
}

void FormWindow::sendTab()
{
    QWidget *target = focusWidget() != nullptr ? focusWidget() : this;
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier);
    QApplication::sendEvent(target, &press);
}

bool FormWindow::event(QEvent *event)
{
    if (event->type() == QEvent::WindowActivate && onActivated) onActivated();
    if (event->type() == QEvent::ApplicationPaletteChange) m_mirror.refreshAll();
    return QWidget::event(event);
}

bool FormWindow::eventFilter(QObject *watched, QEvent *event)
{
    auto *widget = qobject_cast<QWidget *>(watched);
    if (event->type() == QEvent::FocusIn && widget != nullptr &&
        scrollsFor(static_cast<QFocusEvent *>(event)->reason()))
        scrollTo(*widget);
    if (event->type() == QEvent::KeyPress && widget != nullptr) {
        scrollTo(*widget); // the mouse may have left it partly hidden
        return dealKey(widget, *static_cast<QKeyEvent *>(event));
    }
    // The wheel must not change the selection of a list that does not have the focus.
    if (event->type() == QEvent::Wheel && qobject_cast<QComboBox *>(watched) != nullptr && !widget->hasFocus()) {
        event->ignore();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

/// Passes a key to the form; true when the widget must not receive it.
bool FormWindow::dealKey(QWidget *widget, const QKeyEvent &event)
{
    const std::int16_t code = keyCode(event);
    if (code == 0) return false;
    if (event.isAutoRepeat()) return true; // a key that is held down triggers only once
    const QPointer<QWidget> guard(widget);
    bool isLeft = false;
    m_services.edge.run([&] { isLeft = m_form.key(m_mirror.controlOf(widget), code); });
    if (!isLeft || !guard) return true;
    auto *button = qobject_cast<QAbstractButton *>(widget);
    const bool isCommand = button != nullptr && !button->isCheckable();
    if (code == kReturnKey && isCommand) button->click();
    return code == kReturnKey;
}

/// A window with all controls disabled still handles its keys; all other keys arrive through the controls.
void FormWindow::keyPressEvent(QKeyEvent *event)
{
    if (focusWidget() != nullptr || !dealKey(this, *event)) QWidget::keyPressEvent(event);
}

void FormWindow::closeEvent(QCloseEvent *event)
{
    // The form decides whether it unloads; if so, the code that shows it hides the window.
    event->ignore();
    m_services.edge.run([&] { m_form.unload(true); });
}

void FormWindow::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    if (m_sizing == Sizing::fixed || !m_form.isLoaded()) return;
    m_services.edge.run([&] {
        m_form.Width = twips(m_content->width());
        m_form.Height = twips(m_content->height());
        m_form.Form_Resize();
    });
}

} // namespace inin::qt
