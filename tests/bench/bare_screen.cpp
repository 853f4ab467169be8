// The controls of the conditions screen as the toolkit's own widgets, with their captions and nothing else: no settings,
// database, background, rules or style. It shows how long the toolkit alone needs for so many controls. Ends when the
// window is painted.

#include "bench/end_at_paint.h"
#include "printing/print_controls.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include <map>

namespace inin::bench {

namespace {

/// Adds a widget for each visible control, two in a row. Parents own their widgets.
class BareControls : private PrintControls, private ControlVisitor {
public:
    explicit BareControls(QWidget &window)
    {
        new QVBoxLayout(&window);
        m_parents[nullptr] = &window;
        for (Control *control : designed()) {
            m_parent = m_parents[control->Container];
            if (control->Visible) control->accept(*this);
        }
    }

private:
    void visit(OptionButton &control) override { add<QRadioButton>(control.Caption); }
    void visit(CheckBox &control) override { add<QCheckBox>(control.Caption); }
    void visit(Button &control) override { add<QPushButton>(control.Caption); }
    void visit(NumberBox &) override { add<QLineEdit>("1"); }
    void visit(DateBox &) override { add<QLineEdit>("令和 8年11月22日"); }
    void visit(TextBox &) override { add<QLineEdit>(""); }
    void visit(ListBox &) override { add<QComboBox>(); }
    void visit(Label &control) override { add<QLabel>(control.Caption); }
    void visit(Frame &control) override
    {
        m_parents[&control] = add<QGroupBox>(control.Caption);
        new QGridLayout(m_parents[&control]);
    }
    void visit(MenuEntry &) override {}
    void visit(ImageBox &) override {}
    void visit(Grid &) override {}

    template <class Widget> Widget *add(const std::string &text)
    {
        return place(new Widget(QString::fromStdString(text)));
    }
    template <class Widget> Widget *add() { return place(new Widget); }
    template <class Widget> Widget *place(Widget *widget)
    {
        auto *grid = qobject_cast<QGridLayout *>(m_parent->layout());
        if (grid == nullptr)
            m_parent->layout()->addWidget(widget);
        else
            grid->addWidget(widget, grid->count() / 2, grid->count() % 2);
        return widget;
    }

    std::map<const Control *, QWidget *> m_parents; ///< by container
    QWidget *m_parent = nullptr;                    ///< of the next widget
};

} // namespace

} // namespace inin::bench

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("DISPLAY")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    inin::bench::EndAtPaint::of("bare");
    QFont font = QApplication::font();
    font.setFamilies(
        QFontDatabase::families(QFontDatabase::Japanese).mid(0, 1)); // a search for each character is slower
    QApplication::setFont(font);
    QWidget window;
    window.setObjectName("bare");
    const inin::bench::BareControls controls(window);
    window.resize(468, 757);
    window.show();
    return QApplication::exec();
}
