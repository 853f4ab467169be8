#include "adapters/qt/qt_windows.h"

#include "adapters/qt/form_window.h"
#include "adapters/qt/pointer_shape.h"
#include "common/picture.h"

#include <QApplication>
#include <QEventLoop>
#include <QPointer>
#include <QTimer>
#include <QWindow>

#include <algorithm>

namespace inin::qt {

namespace {

/// Milliseconds. Limits the wait for a window that the system does not show, for example on another desktop.
constexpr int kPatience = 500;

/// True when the form has text. A form with only a picture needs no font.
bool hasText(const Form &form)
{
    return std::ranges::any_of(
        form.controls(), [](const Control *control) { return dynamic_cast<const ImageBox *>(control) == nullptr; });
}

/// Waits until the window is painted. The caller of a modeless form continues with other work, and an empty window
/// would be on the screen during that work. User input meanwhile stays in the queue.
void waitUntilPainted(const FormWindow &window)
{
    QTimer patience; // its timeout is an event that wakes the loop below
    patience.setSingleShot(true);
    patience.start(kPatience);
    while (window.isVisible() && !window.windowHandle()->isExposed() && patience.isActive())
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::WaitForMoreEvents);
}

/// Removes a modal window at the end of its scope, also after an error.
class AtEnd {
public:
    explicit AtEnd(std::function<void()> action) : m_action(std::move(action)) {}
    AtEnd(const AtEnd &) = delete;
    AtEnd &operator=(const AtEnd &) = delete;
    ~AtEnd() { m_action(); }

private:
    std::function<void()> m_action;
};

} // namespace

QtWindows::QtWindows(Files &files, ViewServices services) : m_files(files), m_services(std::move(services)) {}

QtWindows::~QtWindows()
{
    setPointerShape(kPointerDefault);
    // The forms may be destroyed already. Upper windows are children of lower ones: destroy them from the top.
    while (!m_windows.empty()) m_windows.pop_back();
}

void QtWindows::show(Form &form, Modality modality)
{
    listenToPointer(form);
    form.load();
    if (!form.isLoaded()) return; // its own load has unloaded it: it is never shown
    FormWindow &window = open(form, modality);
    if (modality == Modality::modeless) {
        waitUntilPainted(window);
        return m_services.edge.throwKept();
    }
    const AtEnd removal([&] { remove(window); });
    runUntilUnloaded(form);
}

/// A form that is already connected stays connected.
void QtWindows::listenToPointer(Form &form)
{
    form.onMousePointer = [before = form.onMousePointer](std::int16_t kind) {
        if (before) before(kind);
        setPointerShape(kind);
    };
}

FormWindow &QtWindows::open(Form &form, Modality modality)
{
    if (m_services.beforeText && hasText(form)) m_services.beforeText();
    QWidget *owner = m_windows.empty() ? nullptr : m_windows.back().get();
    FormWindow &window = *m_windows.emplace_back(std::make_unique<FormWindow>(form, m_services, owner));
    if (modality == Modality::modal) window.setWindowModality(Qt::ApplicationModal);
    window.onActivated = [this, &window] { activate(window); };
    form.watch([&form, guard = QPointer<FormWindow>(&window)] {
        if (guard && !form.isLoaded()) guard->hide();
    });
    window.open();
    activate(window);
    return window;
}

void QtWindows::runUntilUnloaded(Form &form)
{
    QEventLoop loop;
    // The watcher lives as long as the form, the loop does not.
    form.watch([&form, guard = QPointer<QEventLoop>(&loop)] {
        if (guard && !form.isLoaded()) guard->quit();
    });
    m_services.edge.throwKept();
    while (form.isLoaded()) m_services.edge.exec(loop);
}

/// Only the program's own windows are activated in turn; a box or another program in front raises no event.
void QtWindows::activate(FormWindow &window)
{
    if (m_active == &window) return;
    const auto before = std::ranges::find_if(m_windows, [&](const auto &each) { return each.get() == m_active; });
    m_active = &window;
    if (before != m_windows.end() && (*before)->form().isLoaded())
        m_services.edge.run([&] { (*before)->form().Form_Deactivate(); });
    if (window.form().isLoaded()) m_services.edge.run([&] { window.form().Form_Activate(); });
}

void QtWindows::remove(const FormWindow &window)
{
    if (m_active == &window) m_active = nullptr;
    std::erase_if(m_windows, [&](const auto &each) { return each.get() == &window; });
}

void QtWindows::checkPicture(const std::string &path)
{
    checkPictureFile(m_files, path);
}

void QtWindows::beep()
{
    QApplication::beep();
}

void QtWindows::processWaitingEvents()
{
    QApplication::processEvents();
    m_services.edge.throwKept();
}

void QtWindows::moveFocus(Form &form, Control &control)
{
    if (FormWindow *window = windowOf(form)) window->moveFocus(control);
}

void QtWindows::sendTab(Form &form)
{
    if (FormWindow *window = windowOf(form)) window->sendTab();
}

Control *QtWindows::activeControl(Form &form)
{
    const FormWindow *window = windowOf(form);
    return window != nullptr ? window->activeControl() : nullptr;
}

FormWindow *QtWindows::windowOf(const Form &form) const
{
    const auto found = std::ranges::find_if(m_windows, [&](const auto &window) { return &window->form() == &form; });
    return found != m_windows.end() ? found->get() : nullptr;
}

FormWindow *QtWindows::topWindow() const
{
    return m_windows.empty() ? nullptr : m_windows.back().get();
}

} // namespace inin::qt
