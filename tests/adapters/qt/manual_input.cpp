#include "adapters/qt/manual_input.h"

#include "adapters/qt/date_edit.h"
#include "adapters/qt/grid_view.h"
#include "adapters/qt/menu_click.h"
#include "adapters/qt/number_edit.h"
#include "adapters/qt/qt_text.h"
#include "platform/key_codes.h"
#include "screen/grid.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QInputMethodEvent>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QtTest/QTest>

#include <optional>
#include <stdexcept>

namespace inin::qt {

namespace {

Qt::Key keyOf(std::int16_t code)
{
    if (code == kReturnKey) return Qt::Key_Return;
    if (code == kEscapeKey) return Qt::Key_Escape;
    if (code >= kF1Key && code <= kF12Key) return static_cast<Qt::Key>(Qt::Key_F1 + code - kF1Key);
    throw std::runtime_error("no key has the code " + std::to_string(code));
}

bool canBeUsed(const QWidget &widget)
{
    return widget.isVisible() && widget.isEnabled();
}

void click(QWidget &widget)
{
    // An option or a check box can be clicked only on its indicator and its caption, which are left-aligned.
    const bool isCheckable =
        qobject_cast<QAbstractButton *>(&widget) != nullptr && qobject_cast<QAbstractButton *>(&widget)->isCheckable();
    QTest::mouseClick(&widget, Qt::LeftButton, {},
                      isCheckable ? QPoint(8, widget.height() / 2) : widget.rect().center());
}

void selectAll(QLineEdit &box)
{
    box.setFocus(Qt::MouseFocusReason);
    QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
}

/// Enters text like an input method, in one piece.
void enterText(QLineEdit &box, const std::string &text)
{
    selectAll(box);
    QTest::keyClick(&box, Qt::Key_Delete);
    QInputMethodEvent composed;
    composed.setCommitString(toQt(text));
    QApplication::sendEvent(&box, &composed);
}

void typeText(QLineEdit &box, const Json &to)
{
    selectAll(box);
    QTest::keyClick(&box, Qt::Key_Delete);
    if (to.is_null()) return;
    QTest::keyClicks(&box, toQt(to.is_string() ? to.get<std::string>() : to.dump()));
}

class ByHand : private ControlVisitor {
public:
    ByHand(FormWindow &window, const ScriptCommand &command) : m_window(window), m_command(command) {}

    void act(Control &control)
    {
        m_widget = m_window.mirror().widgetOf(control);
        control.accept(*this);
    }

private:
    void visit(OptionButton &) override { qt::click(*m_widget); }
    void visit(CheckBox &box) override
    {
        const bool wanted = m_command.to.is_boolean() ? m_command.to.get<bool>() : m_command.to == 1;
        if (m_command.kind == CommandKind::click || wanted != (box.Value != 0)) qt::click(*m_widget);
    }
    void visit(Button &) override { qt::click(*m_widget); }
    void visit(NumberBox &) override { typeText(dynamic_cast<QLineEdit &>(*m_widget), m_command.to); }
    void visit(DateBox &) override
    {
        typeText(dynamic_cast<QLineEdit &>(*m_widget), m_command.to);
        QTest::keyClick(m_widget, Qt::Key_Tab);
    }
    void visit(TextBox &) override { enterText(dynamic_cast<QLineEdit &>(*m_widget), m_command.to.get<std::string>()); }
    void visit(ListBox &list) override
    {
        if (list.Style == ListStyle::open) return clickItem();
        auto &combo = dynamic_cast<QComboBox &>(*m_widget);
        QTest::mouseClick(&combo, Qt::LeftButton, {}, combo.rect().center());
        QTest::keyClick(combo.view(), Qt::Key_Home);
        for (int steps = 0; steps < m_command.number; ++steps) QTest::keyClick(combo.view(), Qt::Key_Down);
        QTest::keyClick(combo.view(), Qt::Key_Return);
    }
    void visit(Label &) override {}
    void visit(Frame &) override {}
    void visit(MenuEntry &entry) override { clickMenu(entry); }
    void visit(ImageBox &) override {}
    void visit(Grid &) override {}

    void clickItem()
    {
        auto &list = dynamic_cast<QListWidget &>(*m_widget);
        QListWidgetItem *item = list.item(m_command.number);
        list.scrollToItem(item);
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(item).center());
    }
    void clickMenu(const MenuEntry &entry)
    {
        auto *bar = m_window.findChild<QMenuBar *>();
        auto *action = m_window.findChild<QAction *>(toQt(entry.name()));
        if (entry.Container == nullptr) {
            QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(action).center());
            return;
        }
        auto *top = m_window.findChild<QAction *>(toQt(entry.Container->name()));
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(top).center());
        clickEntry(*top->menu(), *action);
    }

    FormWindow &m_window;
    const ScriptCommand &m_command;
    QWidget *m_widget = nullptr;
};

ManualResult pressKey(FormWindow &window, const Control *control, std::int16_t code)
{
    QWidget *target = control != nullptr ? window.mirror().widgetOf(*control) : window.focusWidget();
    if (target == nullptr) target = &window;
    if (!canBeUsed(*target)) return ManualResult::refused;
    if (control != nullptr) target->setFocus(Qt::MouseFocusReason);
    QTest::keyClick(target, keyOf(code));
    return ManualResult::done;
}

ManualResult hitRow(FormWindow &window, const Grid &grid, const ScriptCommand &command)
{
    auto &view = dynamic_cast<GridView &>(*window.mirror().widgetOf(grid));
    const bool isThere = command.row <= grid.RowCount() && (command.row > 0 || command.doubleClick);
    if (!isThere || !canBeUsed(view)) return ManualResult::refused;
    QWidget *target = view.viewport();
    QPoint place;
    if (command.row == 0) {
        target = view.horizontalHeader()->viewport();
        place = QPoint(20, target->height() / 2);
    } else {
        const int column = view.isColumnHidden(0) ? 1 : 0;
        const QModelIndex cell = view.model()->index(command.row - 1, column);
        view.scrollTo(cell);
        place = view.visualRect(cell).center();
        QTest::mouseClick(target, Qt::LeftButton, {}, place);
    }
    if (command.doubleClick) QTest::mouseDClick(target, Qt::LeftButton, {}, place);
    return ManualResult::done;
}

bool isUsable(const FormWindow &window, const Control &control)
{
    if (const QWidget *widget = window.mirror().widgetOf(control)) return canBeUsed(*widget);
    const auto *action = window.findChild<QAction *>(toQt(control.name()));
    return action != nullptr && action->isVisible() && action->isEnabled();
}

} // namespace

ManualResult actManually(FormWindow &window, const ScriptCommand &command)
{
    Form &form = window.form();
    if (command.kind == CommandKind::row) {
        const Grid *grid = gridOf(form);
        return grid != nullptr ? hitRow(window, *grid, command) : ManualResult::refused;
    }
    Control *control = form.find(command.control);
    if (command.kind == CommandKind::key) return pressKey(window, control, command.number);
    if (control == nullptr) throw std::runtime_error("no control " + command.control);
    const auto *list = dynamic_cast<const ListBox *>(control);
    const bool isBeyond = list != nullptr && (command.number < 0 || command.number >= list->ListCount());
    if (isBeyond) return ManualResult::refused;
    const bool wasUsable = isUsable(window, *control);
    // A hidden control cannot be clicked at all; a disabled one is clicked and must ignore it.
    const QWidget *widget = window.mirror().widgetOf(*control);
    if (wasUsable || (widget != nullptr && widget->isVisible())) ByHand(window, command).act(*control);
    return wasUsable ? ManualResult::done : ManualResult::refused;
}

namespace {

/// Compares one widget with its record and describes the first difference.
class MirrorCheck : private ControlVisitor {
public:
    [[nodiscard]] std::string faultOf(Control &control, QWidget *widget)
    {
        m_widget = widget;
        m_fault.clear();
        control.accept(*this);
        if (widget != nullptr) {
            expect(widget->isHidden() != control.Visible.get(), "Visible");
            expect(widget->isEnabledTo(widget->parentWidget()) == control.Enabled.get(), "Enabled");
        }
        return m_fault.empty() ? m_fault : control.name() + " shows another " + m_fault;
    }

private:
    void visit(OptionButton &control) override
    {
        expect(as<QAbstractButton>().isChecked() == control.Value.get(), "Value");
    }
    void visit(CheckBox &control) override
    {
        expect(as<QAbstractButton>().isChecked() == (control.Value != 0), "Value");
    }
    void visit(Button &control) override { expect(as<QAbstractButton>().text() == toQt(control.Caption), "Caption"); }
    void visit(NumberBox &control) override
    {
        const auto *number = control.Value.get().getIf<std::int32_t>();
        if (number != nullptr || control.Value.get().isNull())
            expect(as<QLineEdit>().text() == (number != nullptr ? QString::number(*number) : QString()), "Value");
    }
    void visit(DateBox &control) override
    {
        const auto *date = control.Value.get().getIf<Date>();
        const TypedDate shown = readTypedDate(
            fromQt(as<QLineEdit>().text()),
            {Date(46000), control.Format.find('d') != std::string::npos ? DateGrain::day : DateGrain::month, eras()});
        // A box for months hides the day.
        const bool isSame = date == nullptr
                                ? !shown.date
                                : shown.date && Year(*shown.date) == Year(*date) && Month(*shown.date) == Month(*date);
        expect(isSame, "Value");
    }
    void visit(TextBox &control) override { expect(as<QLineEdit>().text() == toQt(control.Text), "Text"); }
    void visit(ListBox &control) override
    {
        if (control.Style == ListStyle::open) {
            expect(as<QListWidget>().count() == control.ListCount(), "ListCount");
            return expect(as<QListWidget>().currentRow() == control.ListIndex, "ListIndex");
        }
        expect(as<QComboBox>().count() == control.ListCount(), "ListCount");
        expect(as<QComboBox>().currentIndex() == control.ListIndex, "ListIndex");
    }
    void visit(Label &control) override { expect(as<QLabel>().text() == toQt(control.Caption), "Caption"); }
    void visit(Frame &) override {}
    void visit(MenuEntry &) override {}
    void visit(ImageBox &) override {}
    void visit(Grid &control) override
    {
        expect(as<QTableView>().model()->rowCount() == control.RowCount(), "RowCount");
        expect(as<QTableView>().currentIndex().row() == control.ActiveRow - 1, "ActiveRow");
    }

    template <class T> [[nodiscard]] T &as() const { return dynamic_cast<T &>(*m_widget); }
    void expect(bool isSame, const char *attribute)
    {
        if (!isSame && m_fault.empty()) m_fault = attribute;
    }

    QWidget *m_widget = nullptr;
    std::string m_fault;
};

} // namespace

std::string mirrorFault(const FormWindow &window)
{
    MirrorCheck look;
    for (Control *control : window.form().controls()) {
        std::string fault = look.faultOf(*control, window.mirror().widgetOf(*control));
        if (!fault.empty()) return fault;
    }
    return {};
}

} // namespace inin::qt
