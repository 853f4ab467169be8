#include "search/patient_search.h"

#include "common/helpers.h"
#include "master/patient_record.h"
#include "runtime/text.h"
#include "search/patient_search_form.h"
#include "shell/error_box.h"

namespace inin {

std::int16_t cls患者検索::iDspStart()
try {
    frm患者検索 window(m_app);
    if (window.iInit(nSeledCD) != iGood) {
        m_errStr = window.CsErrStr();
        return iBad;
    }
    m_app.platform.windows.show(window, Modality::modal);
    if (!window.isChosen()) return kNothingChosen;
    window.vGetSeledInf(nSeledCD, m_seledName, &iArea);
    return iGood;
} catch (const RuntimeError &error) {
    m_errStr = numberedText(error);
    return iBad;
}

std::int16_t cls患者検索::iSetRiyouName(std::int32_t nCode, Label &Ctrl)
{
    return writeName(nCode, Ctrl.Caption);
}

std::int16_t cls患者検索::iSetRiyouName2(std::int32_t nCode, Label &Ctrl)
{
    return writeName(nCode, Ctrl.Caption);
}

std::int16_t cls患者検索::iSetRiyouName2(std::int32_t nCode, TextBox &Ctrl)
{
    return writeName(nCode, Ctrl.Text);
}

std::string cls患者検索::csSetRiyouName_Text(std::int32_t nCode)
try {
    return readName(nCode).value_or(std::string());
} catch (const RuntimeError &error) {
    m_errStr = numberedText(error);
    return {};
}

std::int16_t cls患者検索::writeName(std::int32_t nCode, Attribute<std::string> &target)
try {
    target = "";
    const std::optional<std::string> name = readName(nCode);
    if (!name) return iBad;
    target = *name;
    return iGood;
} catch (const RuntimeError &error) {
    m_errStr = numberedText(error);
    return iBad;
}

std::optional<std::string> cls患者検索::readName(std::int32_t nCode)
{
    RIYOUSHA_REC patient;
    if (iGetRiyoushaRec(m_app, nCode, patient) != kPatientRead) return std::nullopt;
    return trim(csCutNul(patient.cName));
}

} // namespace inin
