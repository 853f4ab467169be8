#pragma once

namespace inin::qt {

class FormWindow;

/// Lays out the widgets of a form.
using FormView = void (*)(FormWindow &window);

// Each form's view is a file of its own.
void layOutBack(FormWindow &window);          ///< frmBack
void layOutPrintInin(FormWindow &window);     ///< frmPrintInin
void layOutPatientSearch(FormWindow &window); ///< frm患者検索
void layOutStaffSearch(FormWindow &window);   ///< frm施術者検索
void layOutSelFolder(FormWindow &window);     ///< frmSelFolder
void layOutVer(FormWindow &window);           ///< frmVer
void layOutWaitMsg(FormWindow &window);       ///< frmWaitMsg

/// Finds the view by the form's name. A form without one gets its controls under one another, so that it can be used.
void layOutForm(FormWindow &window);

} // namespace inin::qt
