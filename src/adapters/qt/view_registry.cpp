#include "adapters/qt/view_registry.h"

#include "adapters/qt/form_window.h"

#include <QVBoxLayout>

#include <string_view>

namespace inin::qt {

namespace {

struct RegisteredView {
    std::string_view form;
    FormView view;
};

/// Register new windows here.
constexpr RegisteredView kViews[] = {
    {"frmBack", layOutBack},
    {"frmPrintInin", layOutPrintInin},
    {"frm患者検索", layOutPatientSearch},
    {"frm施術者検索", layOutStaffSearch},
    {"frmSelFolder", layOutSelFolder},
    {"frmVer", layOutVer},
    {"frmWaitMsg", layOutWaitMsg},
};

void stackControls(FormWindow &window)
{
    auto *layout = new QVBoxLayout(&window.content());
    for (Control *control : window.form().controls())
        if (QWidget *widget = window.mirror().widgetOf(*control); widget != nullptr && control->Container == nullptr)
            layout->addWidget(widget);
}

} // namespace

void layOutForm(FormWindow &window)
{
    for (const RegisteredView &known : kViews)
        if (known.form == window.form().name()) return known.view(window);
    stackControls(window);
}

} // namespace inin::qt
