#pragma once

#include "search/staff_search_form.h"

#include <cstdint>
#include <string>

namespace inin {

/// The way to the modal pick list of staff, and the check of a typed staff number.
class cls施術者検索 {
public:
    explicit cls施術者検索(App &app) : m_app(app) {}

    /// Words of the last failure.
    [[nodiscard]] const std::string &CsErrStr() const { return m_errStr; }
    /// In: the staff member to highlight when the list opens, 0 for none. Out: the chosen one.
    std::int32_t nSeledCD = 0;
    [[nodiscard]] const std::string &csSeledName() const { return m_seledName; }

    /// Shows the list modally: 0 somebody was chosen, 1 the window was left without a choice, -1 a failure.
    /// `iKanriEnd` 1: staff whose management has ended count too. `nSelEigyouCd`: only the staff in charge of that
    /// consultation, -1 for no restriction.
    [[nodiscard]] std::int16_t iDspStart(std::int16_t iKanriEnd = 0, std::int32_t nSelEigyouCd = kAnyConsultation);
    /// Without the list: 0 the number is found and usable, with the name in csSeledName; 1 not usable, or a failure.
    [[nodiscard]] std::int16_t iChkStaff(std::int32_t nIDNo, std::int16_t iKanriEnd = 0);

private:
    [[nodiscard]] std::string whyNotUsable(const Recordset &rsData, std::int16_t iKanriEnd) const;

    App &m_app;
    std::string m_errStr;
    std::string m_seledName;
};

} // namespace inin
