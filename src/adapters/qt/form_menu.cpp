#include "adapters/qt/form_menu.h"

#include "adapters/qt/keys.h"
#include "adapters/qt/qt_text.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QTimer>

#include <map>

namespace inin::qt {

namespace {

void refresh(const MenuEntry &entry, QAction &action)
{
    const QString caption = toQt(entry.Caption);
    const QString key = keyText(entry.Shortcut);
    action.setSeparator(caption == QLatin1String("-"));
    // The toolkit would draw the text of a separator next to its line.
    action.setText(action.isSeparator() ? QString() : key.isEmpty() ? caption : caption + '\t' + key);
    action.setEnabled(entry.Enabled);
    action.setVisible(entry.Visible);
}

/// A menu closed without a choice would leave the menu bar with the keyboard focus, so that no key reaches the form.
/// One escape leaves the bar as well.
void comeBackFrom(QMenu &menu, QMenuBar &bar)
{
    QObject::connect(&menu, &QMenu::aboutToHide, &bar, [&bar] {
        QTimer::singleShot(0, &bar, [&bar] {
            if (!bar.hasFocus() || QApplication::activePopupWidget() != nullptr) return;
            QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
            QApplication::sendEvent(&bar, &escape);
        });
    });
}

QAction *makeAction(MenuEntry &entry, QMenuBar &bar, std::map<const Control *, QMenu *> &menus,
                    const ViewServices &services)
{
    const auto menu = menus.find(entry.Container);
    // An entry outside all menus that has an action is placed in the bar itself.
    if (menu == menus.end() && !entry.onClick) {
        QMenu *top = bar.addMenu(QString());
        menus[&entry] = top;
        comeBackFrom(*top, bar);
        return top->menuAction();
    }
    QAction *action = menu == menus.end() ? bar.addAction(QString()) : menu->second->addAction(QString());
    QObject::connect(action, &QAction::triggered, action, [&entry, &services] { services.edge.run(entry.onClick); });
    return action;
}

} // namespace

QMenuBar *makeFormMenu(Form &form, const ViewServices &services, QWidget *parent)
{
    QMenuBar *bar = nullptr;
    std::map<const Control *, QMenu *> menus;
    for (Control *control : form.controls()) {
        auto *entry = dynamic_cast<MenuEntry *>(control);
        if (entry == nullptr) continue;
        if (bar == nullptr) bar = new QMenuBar(parent);
        QAction *action = makeAction(*entry, *bar, menus, services);
        action->setObjectName(toQt(entry->name()));
        const auto show = [entry, guard = QPointer<QAction>(action)] {
            if (guard) refresh(*entry, *guard);
        };
        show();
        entry->watch(show);
    }
    return bar;
}

} // namespace inin::qt
