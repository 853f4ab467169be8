// Choice of the staff member and the patient: by the search windows, by the list, or by a number and the return key.

#include "platform/key_codes.h"
#include "printing/print_form.h"
#include "runtime/conversion.h"
#include "runtime/text.h"
#include "search/patient_search_form.h"
#include "search/staff_search_form.h"
#include "shell/error_box.h"

namespace inin {

namespace {

constexpr std::int32_t kNobodyChosen = -1;
/// The name shown with patient number 0: the search was left without a choice, which means all patients.
constexpr const char *kEverybody = "(全員)";

} // namespace

void frmPrintInin::cbSejyutsu_Click()
{
    if (cbSejyutsu.ListIndex == -1) return;
    const std::int32_t nIDNo = cbSejyutsu.ItemData(cbSejyutsu.ListIndex);
    imNum_StaffNo.Value = nIDNo == kNoChoice ? std::int32_t{0} : nIDNo;
}

void frmPrintInin::btn_KanjaSelect_Click()
{
    iSelectKanja();
}

void frmPrintInin::btn_StaffSelect_Click()
{
    // The box and the list are already set.
    static_cast<void>(iSelectStaff(&imNum_StaffNo, &cbSejyutsu));
}

std::int32_t frmPrintInin::iSelectStaff(NumberBox *box, ListBox *list)
{
    cls施術者検索 staff(m_app);
    const std::int16_t status = staff.iDspStart(chkChushi.Value, kAnyConsultation);
    if (status == kNothingChosen) return kNobodyChosen;
    if (status != iGood) {
        m_app.platform.boxes.show("施術者の検索に失敗しました" + staff.CsErrStr(), Icon::critical);
        return kNobodyChosen;
    }
    // A number that is not in the list leaves the list unchanged: the box and the list then show different people.
    if (box != nullptr) box->Value = staff.nSeledCD;
    if (list != nullptr) list->chooseItemData(staff.nSeledCD);
    return staff.nSeledCD;
}

/// Only the return key starts the staff check; other keys, the tab key and leaving the box do not. An unknown number
/// shows the box of iChkStaffNo and stays in the number box, and the list keeps its entry.
void frmPrintInin::imNum_StaffNo_KeyPress(std::int16_t KeyCode)
try {
    if (KeyCode != kReturnKey) return;
    const Variant &value = imNum_StaffNo.Value;
    const std::int32_t nIDNo = value.isNull() ? 0 : toLong(value);
    static_cast<void>(iChkStaffNo(nIDNo, cbSejyutsu)); // it has already shown its failure
} catch (const RuntimeError &error) {
    m_app.platform.boxes.show("Error:" + error.description(), Icon::none);
}

std::int16_t frmPrintInin::iChkStaffNo(std::int32_t nIDNo, ListBox &list)
try {
    if (nIDNo == 0) {
        list.ListIndex = std::int16_t{0};
        return iGood;
    }
    cls施術者検索 staff(m_app);
    // Deliberate double box: after a failed connection or statement iChkStaff has already shown the reason.
    if (staff.iChkStaff(nIDNo, chkChushi.Value) != iGood) {
        m_app.platform.boxes.show("施術者の検索に失敗しました" + staff.CsErrStr(), Icon::critical);
        return iBad;
    }
    list.chooseItemData(nIDNo);
    return iGood;
} catch (const RuntimeError &error) {
    const std::string text = std::string("施術者の検索に失敗しました！").append(kCr).append(kCr);
    m_app.platform.boxes.show(text + numberedText(error), Icon::none);
    return iBad;
}

void frmPrintInin::iSelectKanja()
try {
    cls患者検索 patients(m_app);
    const std::int16_t status = patients.iDspStart();
    if (status != iGood && status != kNothingChosen) {
        m_app.platform.boxes.show("患者の検索に失敗しました" + patients.CsErrStr(), Icon::critical);
        return;
    }
    // Deliberate: without a choice the box gets 0, not an empty value; neither is a condition of the run.
    const bool isChosen = status == iGood;
    imNum_CD.Value = isChosen ? patients.nSeledCD : 0;
    lbl_SelKanja.Caption = isChosen ? patients.csSeledName() : kEverybody;
} catch (const RuntimeError &error) {
    m_app.platform.boxes.show(numberedText(error), Icon::none);
}

/// Deliberately no handler: the return key in an empty box is a failed conversion and ends the process.
void frmPrintInin::imNum_CD_KeyPress(std::int16_t KeyCode)
{
    if (KeyCode != kReturnKey) return;
    cls患者検索 patients(m_app);
    // For an unknown number the label is empty; the screen reports nothing else.
    static_cast<void>(patients.iSetRiyouName(toLong(imNum_CD.Value), lbl_SelKanja));
}

} // namespace inin
