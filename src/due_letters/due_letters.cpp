#include "due_letters/due_letters.h"

#include <algorithm>

namespace inin::due {

namespace {

/// NULL differs from every number, as in a statement.
bool differs(std::optional<std::int32_t> value, std::int32_t wanted)
{
    return wanted > 0 && value != wanted;
}

bool isEarlier(const Visit &a, const Visit &b)
{
    return a.moment < b.moment;
}

/// The extractions by planned visits of a month and without visits leave out patients whose treatment has ended.
bool leavesOutEnded(const Conditions &conditions)
{
    if (conditions.visits == Visits::ignored) return true;
    return conditions.visits == Visits::planned && !conditions.lastDay && !conditions.includesEnded;
}

class VisitRule {
public:
    VisitRule(const std::vector<Visit> &visits, const Conditions &conditions)
        : m_visits(visits), m_conditions(conditions),
          m_last(visits.empty() ? nullptr : &*std::ranges::max_element(visits, isEarlier))
    {
    }

    [[nodiscard]] const Visit *last() const { return m_last; }

    /// Nothing if the visits give a letter.
    [[nodiscard]] std::optional<Obstacle> obstacle() const
    {
        if (m_conditions.visits == Visits::ignored || count() > 0) return std::nullopt;
        if (m_last == nullptr) return Obstacle::noVisit;
        // By month any visit gives a letter, so this is a search by day.
        if (m_last->day < *m_conditions.lastDay) return Obstacle::noVisitOnDay;
        return m_last->day == *m_conditions.lastDay ? Obstacle::otherVisitingStaff : laterVisit();
    }

    /// The rows of visits that the extraction finds for the patient.
    [[nodiscard]] std::int32_t count() const
    {
        return static_cast<std::int32_t>(
            std::ranges::count_if(m_visits, [this](const Visit &visit) { return isFound(visit); }));
    }

private:
    /// By month: the visits at the latest moment, by any staff member. By day: those of the chosen staff member on the
    /// day, if it is the patient's last day of visits by any staff member.
    [[nodiscard]] bool isFound(const Visit &visit) const
    {
        if (!m_conditions.lastDay) return visit.moment == m_last->moment;
        return visit.day == *m_conditions.lastDay && m_last->day == visit.day &&
               !differs(visit.staff, m_conditions.staff);
    }

    [[nodiscard]] Obstacle laterVisit() const
    {
        const bool isVisitedOnDay = std::ranges::any_of(m_visits, [this](const Visit &visit) {
            return visit.day == *m_conditions.lastDay && !differs(visit.staff, m_conditions.staff);
        });
        if (!isVisitedOnDay) return Obstacle::noVisitOnDay;
        const bool isOther = m_conditions.staff > 0 && m_last->staff != m_conditions.staff;
        return isOther ? Obstacle::laterVisitOfOther : Obstacle::laterVisit;
    }

    const std::vector<Visit> &m_visits;
    const Conditions &m_conditions;
    const Visit *m_last;
};

std::vector<Obstacle> obstaclesOf(const PatientRow &patient, const VisitRule &visits, const Conditions &conditions)
{
    std::vector<Obstacle> obstacles;
    if (leavesOutEnded(conditions) && patient.endDay) obstacles.push_back(Obstacle::ended);
    if (patient.insurers == 0) obstacles.push_back(Obstacle::noInsurer);
    if (differs(patient.insuranceKind, conditions.insuranceKind)) obstacles.push_back(Obstacle::otherInsuranceKind);
    // By day the staff member is that of the visit.
    if (!conditions.lastDay && differs(patient.mainStaff, conditions.staff))
        obstacles.push_back(Obstacle::otherMainStaff);
    if (const auto obstacle = visits.obstacle()) obstacles.push_back(*obstacle);
    return obstacles;
}

/// The outer joins keep a patient without such a row.
std::int32_t joined(std::int32_t rows)
{
    return std::max(rows, 1);
}

void count(Answer &answer, Repetition repetition, std::int32_t times)
{
    answer.letters *= times;
    if (times > 1) answer.repeated.push_back({repetition, times});
}

} // namespace

Answer answerFor(const PatientRow &patient, const std::vector<Visit> &visits, const Conditions &conditions)
{
    const VisitRule rule(visits, conditions);
    Answer answer{.number = patient.number,
                  .name = patient.name,
                  .letters = 0,
                  .obstacles = obstaclesOf(patient, rule, conditions),
                  .repeated = {},
                  .endDay = patient.endDay,
                  .mainStaff = patient.mainStaff,
                  .insuranceKind = patient.insuranceKind,
                  .lastVisit = rule.last() == nullptr ? std::nullopt : std::optional(*rule.last())};
    if (!answer.obstacles.empty()) return answer;
    answer.letters = 1;
    count(answer, Repetition::visits, conditions.visits == Visits::ignored ? 1 : rule.count());
    count(answer, Repetition::insurers, patient.insurers);
    count(answer, Repetition::companies, joined(patient.companies));
    count(answer, Repetition::sideRows, joined(patient.sideRows));
    count(answer, Repetition::groupCompanies, joined(patient.groupCompanies));
    return answer;
}

} // namespace inin::due
