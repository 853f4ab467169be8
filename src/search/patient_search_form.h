#pragma once

#include "screen/controls.h"
#include "search/search_form.h"
#include "shell/app.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace inin {

/// The search list of patients.
class frm患者検索 : public SearchForm {
public:
    explicit frm患者検索(App &app);

    CheckBox &chkEndKanja = m_endedCheck;
    NumberBox imNum_StaffNo{"imNum_StaffNo"};
    ListBox cbo_Sejutusha{"cbo_Sejutusha"};
    Button btn_StaffSelect{"btn_StaffSelect"};
    OptionGroup opt_SejutsuKubun{"opt_SejutsuKubun", 3}; ///< 0 both kinds, 1 massage, 2 acupuncture
    Label lbl_1ranInf{"lbl_1ranInf"};                    ///< time and conditions of the rows shown

    /// Opens the window's own session, which stays open as long as the window. 0, or -1 with the error text in
    /// CsErrStr.
    [[nodiscard]] std::int16_t iInit(std::int32_t nSeledCode);
    void vGetSeledInf(std::int32_t &nSeledCD, std::string &csSeledName, std::int32_t *iArea = nullptr) const;

protected:
    void readSettings() override;
    [[nodiscard]] std::string statement(const SearchFilter &filter) const override;
    [[nodiscard]] SearchFilter readFilter() const override;
    void showFilter(const SearchFilter &filter) override;
    void showStaff(const std::vector<StaffEntry> &staff) override;
    void clearInfo() override;
    void writeInfo(const SearchFilter &inForce) override;
    [[nodiscard]] bool confirmEntry(const Control *active) override;

private:
    void cbo_Sejutusha_Click();
    void btn_StaffSelect_Click();
    [[nodiscard]] bool lookUpStaff();
    void showStaffFailure(const std::string &words);

    std::unique_ptr<cT_ADODB> m_session; ///< not used by the window's own searches
    std::int16_t m_endedMonths = 0;      ///< the setting "終了患者施術期間"
    std::string m_limitMonth;            ///< "yyyy/mm"
};

/// Shows the modal search list of patients, and finds a patient's name by number.
class cls患者検索 {
public:
    explicit cls患者検索(App &app) : m_app(app) {}

    /// Text of the last failure.
    [[nodiscard]] const std::string &CsErrStr() const { return m_errStr; }
    /// Branch number of the chosen patient.
    std::int32_t iArea = 0;
    /// In: the patient to highlight when the list opens, 0 for none. Out: the chosen one.
    std::int32_t nSeledCD = 0;
    [[nodiscard]] const std::string &csSeledName() const { return m_seledName; }

    /// Shows the list modally: 0 a patient was chosen, 1 the window was closed without a choice, -1 a failure.
    [[nodiscard]] std::int16_t iDspStart();

    // Writes the patient's name by number: 0 found, -1 not found, which empties the control.
    std::int16_t iSetRiyouName(std::int32_t nCode, Label &Ctrl);  ///< writes the caption
    std::int16_t iSetRiyouName2(std::int32_t nCode, Label &Ctrl); ///< writes the control's default property
    std::int16_t iSetRiyouName2(std::int32_t nCode, TextBox &Ctrl);
    /// The name itself, empty if there is no such patient.
    [[nodiscard]] std::string csSetRiyouName_Text(std::int32_t nCode);

private:
    /// nullopt if there is no such patient.
    [[nodiscard]] std::optional<std::string> readName(std::int32_t nCode);
    std::int16_t writeName(std::int32_t nCode, Attribute<std::string> &target);

    App &m_app;
    std::string m_errStr;
    std::string m_seledName;
};

} // namespace inin
