#pragma once

#include "platform/database.h"
#include "printing/extraction.h"
#include "printing/letter_row.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace inin {

/// Columns of an extraction, in the order in which a letter reads them.
enum class Column : std::size_t {
    nIDNo,
    HokenName,
    RiyouName,
    RiyouAdd,
    CorpName,
    CorpAdd,
    cDaihyo,
    cTelNo,
    cKinyuName,
    iKinSyubetsu,
    cKinyuSiten,
    iKinSiten,
    iKozaType,
    cKozaBangou,
    cKozaMeigi1,
    nDate,
    tServicyDayStart,
    cSubAddress,
    HOKENSHUBETSU,
    cSetaiName,
    RiyouSetaiTel,
    cSetaiAdress1,
    count
};

/// Reads the current row of an extraction. A column's index is looked up at its first read, so that an empty result
/// with a missing column is no error.
class LetterReader {
public:
    LetterReader(const Recordset &rsData, const Regional &regional) : m_rsData(rsData), m_regional(regional) {}

    [[nodiscard]] std::string text(Column column);
    [[nodiscard]] std::int32_t number(Column column);

    /// Fills the letter's fields in order; those before a failing one stay filled.
    void fill(IninRow &letter, const ExtractionRule &rule, const LetterDates &dates);

    // The last treatment day of a letter, one operation for each kind of extraction.
    [[nodiscard]] std::string lastDayOfSchedule(const LetterDates &dates);
    [[nodiscard]] std::string lastDayOfJisseki(const LetterDates &dates);
    [[nodiscard]] std::string targetDay(const LetterDates &dates);
    [[nodiscard]] std::string endOfPeriod(const LetterDates &dates);

private:
    [[nodiscard]] Variant value(Column column);
    void fillText(IninRow &letter, IninField field, Column column);
    void fillBank(IninRow &letter);
    void set(IninRow &letter, IninField field, std::string_view text);

    const Recordset &m_rsData;
    const Regional &m_regional;
    std::array<std::optional<std::size_t>, static_cast<std::size_t>(Column::count)> m_places;
    IninRow m_last; ///< the latest text of each field
};

} // namespace inin
