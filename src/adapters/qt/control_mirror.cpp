#include "adapters/qt/control_mirror.h"

#include "adapters/qt/control_colours.h"
#include "adapters/qt/date_edit.h"
#include "adapters/qt/drop_down_list.h"
#include "adapters/qt/elided_label.h"
#include "adapters/qt/grid_view.h"
#include "adapters/qt/number_edit.h"
#include "adapters/qt/open_list.h"
#include "adapters/qt/option_radio_button.h"
#include "adapters/qt/picture_box.h"
#include "adapters/qt/picture_file.h"
#include "adapters/qt/qt_text.h"
#include "adapters/qt/units.h"
#include "screen/grid.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QPointer>
#include <QPushButton>
#include <QSignalBlocker>

namespace inin::qt {

namespace {

/// Shows the attributes that all kinds of controls share.
void refreshCommon(const Control &control, QWidget &widget)
{
    widget.setEnabled(control.Enabled);
    widget.setVisible(control.Visible);
    // A date box uses its tool tip for the text that it cannot read.
    if (!control.ToolTipText.get().empty()) widget.setToolTip(toQt(control.ToolTipText));
    if (control.BackColor != -1) paintWith(widget, control.BackColor);
}

void refreshItems(const ListBox &list, QComboBox &combo)
{
    const QSignalBlocker quiet(combo);
    // The items of a list are only appended to, or cleared and filled again.
    if (combo.count() > list.ListCount()) combo.clear();
    for (int index = combo.count(); index < list.ListCount(); ++index) {
        const QString text = toQt(list.items()[static_cast<std::size_t>(index)].text);
        combo.addItem(text);
        combo.setItemData(index, text, Qt::ToolTipRole); // shows the whole of a long name
    }
    combo.setCurrentIndex(list.ListIndex);
}

void refreshPicture(const ImageBox &image, PictureBox &box, const std::string &path)
{
    if (image.Width > 0 && image.Height > 0)
        box.setGeometry(pixels(image.Left), pixels(image.Top), pixels(image.Width), pixels(image.Height));
    const QString name = toQt(path);
    if (box.windowFilePath() == name) return;
    box.setWindowFilePath(name);
    box.setPicture(pictureOf(path));
}

} // namespace

QWidget *ControlMirror::make(Control &control)
{
    if (widgetOf(control) == nullptr) control.accept(*this);
    return widgetOf(control);
}

QWidget *ControlMirror::widgetOf(const Control &control) const
{
    const auto found = m_widgets.find(&control);
    return found != m_widgets.end() ? found->second : nullptr;
}

Control *ControlMirror::controlOf(const QWidget *widget) const
{
    for (; widget != nullptr; widget = widget->parentWidget())
        if (const auto found = m_controls.find(widget); found != m_controls.end()) return found->second;
    return nullptr;
}

void ControlMirror::refreshAll() const
{
    for (const auto &refresh : m_refreshers) refresh();
}

QWidget *ControlMirror::parentFor(const Control &control) const
{
    QWidget *container = control.Container != nullptr ? widgetOf(*control.Container) : nullptr;
    return container != nullptr ? container : &m_content;
}

void ControlMirror::keep(Control &control, QWidget *widget, std::function<void()> refresh)
{
    widget->setObjectName(toQt(control.name()));
    m_widgets[&control] = widget;
    m_controls[widget] = &control;
    // The record may outlive its window.
    const auto both = [&control, guard = QPointer<QWidget>(widget), refresh = std::move(refresh)] {
        if (!guard) return;
        refreshCommon(control, *guard);
        if (refresh) refresh();
    };
    both();
    control.watch(both);
    m_refreshers.push_back(both);
}

void ControlMirror::visit(OptionButton &control)
{
    auto *option = new OptionRadioButton(parentFor(control)); // owned by its parent, as all widgets here
    QObject::connect(option, &QAbstractButton::clicked, option,
                     [this, &control] { m_services.edge.run([&] { control.Value = true; }); });
    keep(control, option, [&control, option] {
        option->setText(toQt(control.Caption));
        option->setChecked(control.Value);
    });
}

void ControlMirror::visit(CheckBox &control)
{
    auto *box = new QCheckBox(parentFor(control));
    QObject::connect(box, &QAbstractButton::clicked, box, [this, &control](bool ticked) {
        m_services.edge.run([&] { control.Value = ticked ? std::int16_t{1} : std::int16_t{0}; });
    });
    keep(control, box, [&control, box] {
        box->setText(toQt(control.Caption));
        box->setChecked(control.Value != 0);
    });
}

void ControlMirror::visit(Button &control)
{
    auto *button = new QPushButton(parentFor(control));
    QObject::connect(button, &QAbstractButton::clicked, button,
                     [this, &control] { m_services.edge.run(control.onClick); });
    keep(control, button, [&control, button] { button->setText(toQt(control.Caption)); });
}

void ControlMirror::visit(NumberBox &control)
{
    auto *box = new NumberEdit({control.Min, control.Max}, control.Format, parentFor(control));
    m_services.edge.readBeforeEvents(*box);
    box->onEdited = [this, &control](const Variant &value) { m_services.edge.run([&] { control.Value = value; }); };
    keep(control, box, [&control, box] {
        if (!(box->value() == control.Value.get())) box->setValue(control.Value);
    });
    box->setValue(control.Value);
}

void ControlMirror::visit(DateBox &control)
{
    auto *box = new DateEdit(control.Format, m_services.today, parentFor(control));
    m_services.edge.readBeforeEvents(*box);
    box->onEdited = [this, &control](const Variant &value) { m_services.edge.run([&] { control.Value = value; }); };
    keep(control, box, [&control, box] {
        if (!(box->value() == control.Value.get())) box->setValue(control.Value);
    });
}

void ControlMirror::visit(TextBox &control)
{
    auto *box = new QLineEdit(parentFor(control));
    QObject::connect(box, &QLineEdit::textEdited, box, [this, &control](const QString &text) {
        m_services.edge.run([&] { control.Text = fromQt(text); });
    });
    keep(control, box, [&control, box] {
        const QString text = toQt(control.Text);
        if (box->text() != text) box->setText(text);
    });
}

void ControlMirror::visit(ListBox &control)
{
    if (control.Style == ListStyle::open) return keepOpenList(control);
    auto *combo = new DropDownList(parentFor(control));
    QObject::connect(combo, &QComboBox::activated, combo, [this, &control](int index) {
        m_services.edge.run([&] { control.pick(static_cast<std::int16_t>(index)); });
    });
    keep(control, combo, [&control, combo] { refreshItems(control, *combo); });
}

void ControlMirror::keepOpenList(ListBox &control)
{
    auto *list = new OpenList(parentFor(control));
    QObject::connect(list, &QListWidget::currentRowChanged, list, [this, &control](int index) {
        m_services.edge.run([&] { control.ListIndex = static_cast<std::int16_t>(index); });
    });
    QObject::connect(list, &QAbstractItemView::doubleClicked, list,
                     [this, &control] { m_services.edge.run(control.onDblClick); });
    keep(control, list, [&control, list] { list->refresh(control); });
}

void ControlMirror::visit(Label &control)
{
    auto *label = new ElidedLabel(parentFor(control));
    label->setTextFormat(Qt::PlainText);
    label->setAutoFillBackground(control.BackColor != -1);
    keep(control, label, [&control, label] { label->setText(toQt(control.Caption)); });
}

void ControlMirror::visit(Frame &control)
{
    if (control.Caption.get().empty()) return keep(control, new QWidget(parentFor(control)), {});
    auto *frame = new QGroupBox(parentFor(control));
    keep(control, frame, [&control, frame] { frame->setTitle(toQt(control.Caption)); });
}

void ControlMirror::visit(MenuEntry &) {}

void ControlMirror::visit(ImageBox &control)
{
    auto *box = new PictureBox(parentFor(control));
    keep(control, box, [this, &control, box] {
        const std::string &picture = control.Picture.get();
        refreshPicture(control, *box, picture.empty() ? picture : m_services.systemPath(picture));
    });
}

void ControlMirror::visit(Grid &control)
{
    auto *view = new GridView(control, m_services.edge, parentFor(control));
    keep(control, view, [view] { view->refresh(); });
}

} // namespace inin::qt
