#pragma once

#include "search/search_form.h"
#include "search/search_sql.h"

#include <cstdint>
#include <string>

namespace inin {

/// The search list of staff.
class frm施術者検索 : public SearchForm {
public:
    explicit frm施術者検索(App &app);

    CheckBox &chkEndSejutsuha = m_endedCheck;

    /// Keeps the conditions of the list; opens no session and is always 0.
    [[nodiscard]] std::int16_t iInit(std::int32_t nSeledCode, std::int16_t iKanriEnd, std::int32_t nSelEigyouCd);
    void vGetSeledInf(std::int32_t &nSeledCD, std::string &csSeledName) const;

protected:
    [[nodiscard]] std::string statement(const SearchFilter &filter) const override;

private:
    std::int32_t m_nSelEigyouCd = kAnyConsultation;
};

/// Shows the modal search list of staff, and checks a typed staff number.
class cls施術者検索 {
public:
    explicit cls施術者検索(App &app) : m_app(app) {}

    /// Text of the last failure.
    [[nodiscard]] const std::string &CsErrStr() const { return m_errStr; }
    /// In: the staff member to highlight when the list opens, 0 for none. Out: the chosen one.
    std::int32_t nSeledCD = 0;
    [[nodiscard]] const std::string &csSeledName() const { return m_seledName; }

    /// Shows the list modally: 0 a staff member was chosen, 1 the window was closed without a choice, -1 a failure.
    /// `iKanriEnd` 1: staff whose management has ended are included. `nSelEigyouCd`: only the staff of that
    /// consultation, -1 for all.
    [[nodiscard]] std::int16_t iDspStart(std::int16_t iKanriEnd = 0, std::int32_t nSelEigyouCd = kAnyConsultation);
    /// Without the list: 0 if the number is found and usable, with the name in csSeledName; 1 if not usable, or on a
    /// failure.
    [[nodiscard]] std::int16_t iChkStaff(std::int32_t nIDNo, std::int16_t iKanriEnd = 0);

private:
    [[nodiscard]] std::string whyNotUsable(const Recordset &rsData, std::int16_t iKanriEnd) const;

    App &m_app;
    std::string m_errStr;
    std::string m_seledName;
};

} // namespace inin
