// How the screen's staff member and patient are picked: by the search windows, or by a number and the return key.

#include "printing/print_form.h"
#include "runtime/conversion.h"
#include "runtime/text.h"
#include "search/patient_search.h"
#include "search/staff_search.h"
#include "shell/error_box.h"

namespace inin {

namespace {

constexpr std::int16_t kReturn = 13;
constexpr std::int32_t kNobody = -1;
/// What stands beside a patient number of 0: the search was left, so everybody is meant.
constexpr const char *kEverybody = "(全員)";

} // namespace

void frmPrintInin::btn_KanjaSelect_Click()
{
    iSelectKanja();
}

void frmPrintInin::btn_StaffSelect_Click()
{
    // The box and the list have it already.
    static_cast<void>(iSelectStaff(&imNum_StaffNo, &cbSejyutsu));
}

std::int32_t frmPrintInin::iSelectStaff(NumberBox *box, ListBox *list)
{
    cls施術者検索 staff(m_app);
    const std::int16_t status = staff.iDspStart(chkChushi.Value, kAnyConsultation);
    if (status == kNothingChosen) return kNobody;
    if (status != iGood) {
        m_app.platform.boxes.show("施術者の検索に失敗しました" + staff.CsErrStr(), Icon::critical);
        return kNobody;
    }
    if (box != nullptr) box->Value = staff.nSeledCD;
    if (list != nullptr) list->chooseItemData(staff.nSeledCD);
    return staff.nSeledCD;
}

void frmPrintInin::imNum_StaffNo_KeyPress(std::int16_t KeyCode)
try {
    if (KeyCode != kReturn) return;
    const Variant &value = imNum_StaffNo.Value;
    const std::int32_t nIDNo = value.isNull() ? 0 : toLong(value, m_app.regional);
    static_cast<void>(iChkStaffNo(nIDNo, cbSejyutsu)); // it has told its failure itself
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
    const bool isChosen = status == iGood;
    imNum_CD.Value = isChosen ? patients.nSeledCD : 0;
    lbl_SelKanja.Caption = isChosen ? patients.csSeledName() : kEverybody;
} catch (const RuntimeError &error) {
    m_app.platform.boxes.show(numberedText(error), Icon::none);
}

/// Nothing is trapped here: the return key in an empty box ends the process.
void frmPrintInin::imNum_CD_KeyPress(std::int16_t KeyCode)
{
    if (KeyCode != kReturn) return;
    cls患者検索 patients(m_app);
    // Without such a patient the label is empty; that is all the screen tells.
    static_cast<void>(patients.iSetRiyouName(toLong(imNum_CD.Value, m_app.regional), lbl_SelKanja));
}

} // namespace inin
