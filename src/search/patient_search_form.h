#pragma once

#include "search/search_form.h"

#include <cstdint>
#include <memory>
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
    void tellStaffFailure(const std::string &words);

    std::unique_ptr<cT_ADODB> m_session; ///< not used by the window's own searches
    std::int16_t m_endedMonths = 0;      ///< the setting "終了患者施術期間"
    std::string m_limitMonth;            ///< "yyyy/mm"
};

} // namespace inin
