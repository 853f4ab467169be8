#pragma once

#include "printing/extraction.h"
#include "printing/letter_row.h"
#include "shell/app.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace inin {

struct StartedSession;

/// The conditions of a run, as the screen holds them.
struct LetterConditions {
    std::string csTargetDate;
    ExtractionQuery query; ///< without bounds: they follow from the target date
    std::int16_t iDspPeriodKind = 0;
    std::int16_t iSyomeiKind = 0;
    // Values of the date boxes, read only if the kinds require them; a Null is an error then.
    Variant imSetDateFrom;
    Variant imSetDateTo;
    Variant imSyomei;
};

/// Reads from the database for which patients a letter is due, and fills the letters. Each operation opens a session of
/// its own. Failures are shown in boxes, with the session still open.
class LetterExtraction {
public:
    /// `csErrMsg` receives the text of a run-time error in lastVisitDay and must outlive the extraction.
    LetterExtraction(App &app, std::string &csErrMsg) : m_app(app), m_csErrMsg(csErrMsg) {}

    /// Replaces the letters and returns their number; without a row one blank letter remains. Nothing after a failure:
    /// the letters read so far remain, and all of the previous ones if the session did not start.
    [[nodiscard]] std::optional<std::int16_t>
    readLetters(const ExtractionRule &rule, const LetterConditions &conditions, std::vector<IninRow> &letters);
    /// Day of the month of the patient's last visit in the month; -1 for none or a failure.
    [[nodiscard]] std::int32_t lastVisitDay(const LastVisitRule &rule, std::int32_t nRiyoushaNo, std::int32_t nYear,
                                            std::int32_t nMonth);

private:
    [[nodiscard]] std::optional<std::int16_t> readOver(StartedSession &own, const ExtractionRule &rule,
                                                       const LetterConditions &conditions,
                                                       std::vector<IninRow> &letters);
    [[nodiscard]] LetterDates datesOf(const LetterConditions &conditions, const TargetDate &target) const;
    [[nodiscard]] std::int16_t fill(std::vector<IninRow> &letters, Recordset &rsData, const ExtractionRule &rule,
                                    const LetterDates &dates);

    App &m_app;
    std::string &m_csErrMsg;
};

} // namespace inin
