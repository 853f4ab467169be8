#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace inin::due {

// Which patients a print run gives a letter, and why the others get none. The rules are those of the five extractions,
// applied to the rows of the tables one patient at a time.

enum class Visits { planned, actual, ignored };
enum class Trustee { headOffice, agent };

/// The conditions screen. A number of 0 is no condition.
struct Conditions {
    Visits visits = Visits::planned;
    std::int32_t year = 0;
    std::int32_t month = 0;
    std::optional<std::int32_t> lastDay{}; ///< only patients whose last visit of the month is on this day
    Trustee trustee = Trustee::headOffice;
    std::int32_t patient = 0;
    std::int32_t staff = 0;
    std::int32_t insuranceKind = 0;
    bool includesEnded = false;
};

/// A patient's row and the numbers of rows that it is joined with.
struct PatientRow {
    std::int32_t number = 0;
    std::string name;
    std::optional<std::int32_t> mainStaff;
    std::optional<std::int32_t> insuranceKind;
    std::optional<std::string> endDay;
    std::int32_t insurers = 0;
    std::int32_t companies = 0;
    std::int32_t sideRows = 0;
    std::int32_t groupCompanies = 0;
};

/// A visit of the month.
struct Visit {
    std::int32_t day = 0; ///< of the month
    double moment = 0;    ///< orders the visits; equal for planned visits of one day
    std::optional<std::int32_t> staff;
};
using VisitsOfPatients = std::map<std::int32_t, std::vector<Visit>>;

enum class Obstacle {
    ended,
    noInsurer,
    otherInsuranceKind,
    otherMainStaff,
    noVisit,           ///< in the month
    noVisitOnDay,      ///< the last visit of the month is earlier
    laterVisit,        ///< by the same staff member
    laterVisitOfOther, ///< by another one
    otherVisitingStaff,
};

/// The reasons of more than one letter: each multiplies the letters.
enum class Repetition { visits, insurers, companies, sideRows, groupCompanies };

struct Repeated {
    Repetition repetition;
    std::int32_t times;
    friend bool operator==(const Repeated &, const Repeated &) = default;
};

struct Answer {
    std::int32_t number = 0;
    std::string name;
    std::int64_t letters = 0;
    std::vector<Obstacle> obstacles; ///< empty if there are letters
    std::vector<Repeated> repeated;  ///< empty unless there are several letters
    std::optional<std::string> endDay;
    std::optional<std::int32_t> mainStaff;
    std::optional<std::int32_t> insuranceKind;
    std::optional<Visit> lastVisit; ///< of the month
};

[[nodiscard]] Answer answerFor(const PatientRow &patient, const std::vector<Visit> &visits,
                               const Conditions &conditions);

} // namespace inin::due
