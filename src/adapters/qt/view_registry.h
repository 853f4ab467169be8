#pragma once

namespace inin {

class FormWindow;

/// Lays out the widgets of a form.
using FormView = void (*)(FormWindow &window);

// Each form's view is a file of its own.
void layOutBack(FormWindow &window);      ///< frmBack
void layOutPrintInin(FormWindow &window); ///< frmPrintInin
void layOutWaitMsg(FormWindow &window);   ///< frmWaitMsg

/// Finds the view by the form's name. A form without one gets its controls under one another, so that it can be used.
void layOutForm(FormWindow &window);

} // namespace inin
