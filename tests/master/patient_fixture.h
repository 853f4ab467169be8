#pragma once

#include "master/patient_record.h"
#include "support/faulty_database.h"

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace inin {

using PatientCells = std::vector<std::pair<std::string, Variant>>;

/// Branch 3, sub-branch 1, with a database that returns one patient's row.
struct PatientFixture : FaultyWorld {
    explicit PatientFixture(const PatientCells &cells = {{"cName", "山田　花子"}})
    {
        faultyApp.iKyotenCd = 3;
        faultyApp.iKyotenEb = 1;
        answer(cells);
    }
    /// The result of the next read.
    void answer(const PatientCells &cells)
    {
        FakeResult result;
        result.rows.emplace_back();
        for (const auto &[column, value] : cells) {
            result.columns.push_back(column);
            result.rows.front().push_back(value);
        }
        database.results.push_back(result);
    }
    std::int16_t read(std::int32_t nCode = 101) { return iGetRiyoushaRec(faultyApp, nCode, rec); }

    RIYOUSHA_REC rec;
};

/// The record of a row with these columns; the read must succeed and show nothing.
[[nodiscard]] inline RIYOUSHA_REC recordOf(const PatientCells &cells)
{
    PatientFixture fixture(cells);
    const bool isSilent = fixture.read() == -1 && fixture.boxes.shown.empty();
    if (!isSilent) throw std::logic_error("the patient was not read");
    return fixture.rec;
}

} // namespace inin
