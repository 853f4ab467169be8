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

} // namespace inin
