#pragma once

namespace inin::qt {

class FormWindow;

/// Lays out the widgets of a form.
using FormView = void (*)(FormWindow &window);

// Each form's view has its own file.
void layOutBack(FormWindow &window);          ///< frmBack
void layOutPrintInin(FormWindow &window);     ///< frmPrintInin
void layOutPatientSearch(FormWindow &window); ///< frm患者検索
void layOutStaffSearch(FormWindow &window);   ///< frm施術者検索
void layOutSelFolder(FormWindow &window);     ///< frmSelFolder
void layOutVer(FormWindow &window);           ///< frmVer
void layOutWaitMsg(FormWindow &window);       ///< frmWaitMsg

/// Finds the view by the form's name. The controls of a form without a view are stacked, so that the form is usable.
void layOutForm(FormWindow &window);

} // namespace inin::qt
