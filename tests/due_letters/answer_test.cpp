#include "due_letters/due_letters.h"
#include "due_letters/due_letters_text.h"

#include <doctest/doctest.h>

using namespace inin::due;

namespace {

PatientRow patient()
{
    return {.number = 7,
            .name = "山田　花子",
            .mainStaff = 3,
            .insuranceKind = 2,
            .endDay = {},
            .insurers = 1,
            .companies = 1,
            .sideRows = 1,
            .groupCompanies = 1};
}

Conditions ofMay()
{
    return {.year = 2024, .month = 5};
}

Conditions ofDay(std::int32_t day, std::int32_t staff = 0)
{
    return {.year = 2024, .month = 5, .lastDay = day, .staff = staff};
}

Visit visit(std::int32_t day, std::int32_t staff)
{
    return {.day = day, .moment = 20240500.0 + day, .staff = staff};
}

using Obstacles = std::vector<Obstacle>;

} // namespace

TEST_CASE("a patient with a visit and an insurer gets one letter")
{
    const Answer answer = answerFor(patient(), {visit(2, 3), visit(28, 3)}, ofMay());
    CHECK(answer.letters == 1);
    CHECK(answer.obstacles.empty());
    CHECK(answer.repeated.empty());
}

TEST_CASE("a patient without an insurer, without a visit or with a treatment that has ended gets no letter")
{
    PatientRow row = patient();
    row.insurers = 0;
    CHECK(answerFor(row, {visit(2, 3)}, ofMay()).obstacles == Obstacles{Obstacle::noInsurer});
    CHECK(answerFor(patient(), {}, ofMay()).obstacles == Obstacles{Obstacle::noVisit});
    row = patient();
    row.endDay = "2024/05/02";
    CHECK(answerFor(row, {visit(2, 3)}, ofMay()).obstacles == Obstacles{Obstacle::ended});
}

TEST_CASE("an ended treatment counts by planned month and without visits, unless ended patients are included by month")
{
    PatientRow row = patient();
    row.endDay = "2024/05/02";
    Conditions conditions = ofMay();
    conditions.includesEnded = true;
    CHECK(answerFor(row, {visit(2, 3)}, conditions).letters == 1);
    conditions.visits = Visits::ignored;
    CHECK(answerFor(row, {}, conditions).obstacles == Obstacles{Obstacle::ended});
    conditions = ofMay();
    conditions.visits = Visits::actual;
    CHECK(answerFor(row, {visit(2, 3)}, conditions).letters == 1);
    CHECK(answerFor(row, {visit(2, 3)}, ofDay(2)).letters == 1);
}

TEST_CASE("by month the staff member is the patient's main one, by day the one of the visit")
{
    Conditions conditions = ofMay();
    conditions.staff = 4;
    CHECK(answerFor(patient(), {visit(28, 4)}, conditions).obstacles == Obstacles{Obstacle::otherMainStaff});
    CHECK(answerFor(patient(), {visit(28, 4)}, ofDay(28, 4)).letters == 1);
    CHECK(answerFor(patient(), {visit(28, 3)}, ofDay(28, 4)).obstacles == Obstacles{Obstacle::otherVisitingStaff});
}

TEST_CASE("by day a later visit removes the letter, and the answer names a visit of another staff member as such")
{
    CHECK(answerFor(patient(), {visit(27, 4), visit(28, 4)}, ofDay(27, 4)).obstacles ==
          Obstacles{Obstacle::laterVisit});
    CHECK(answerFor(patient(), {visit(27, 4), visit(28, 3)}, ofDay(27, 4)).obstacles ==
          Obstacles{Obstacle::laterVisitOfOther});
    CHECK(answerFor(patient(), {visit(28, 3)}, ofDay(27)).obstacles == Obstacles{Obstacle::noVisitOnDay});
    CHECK(answerFor(patient(), {visit(26, 3)}, ofDay(27)).obstacles == Obstacles{Obstacle::noVisitOnDay});
}

TEST_CASE("a NULL differs from every chosen number")
{
    PatientRow row = patient();
    row.insuranceKind = std::nullopt;
    row.mainStaff = std::nullopt;
    Conditions conditions = ofMay();
    conditions.insuranceKind = 2;
    conditions.staff = 3;
    CHECK(answerFor(row, {visit(2, 3)}, conditions).obstacles ==
          Obstacles{Obstacle::otherInsuranceKind, Obstacle::otherMainStaff});
}

TEST_CASE("every repetition multiplies the letters, and a missing company or side row does not remove one")
{
    PatientRow row = patient();
    row.groupCompanies = 3;
    const Answer answer = answerFor(row, {visit(28, 3), visit(28, 4), visit(2, 3)}, ofMay());
    CHECK(answer.letters == 6);
    CHECK(answer.repeated == std::vector<Repeated>{{Repetition::visits, 2}, {Repetition::groupCompanies, 3}});

    row = patient();
    row.companies = row.sideRows = row.groupCompanies = 0;
    CHECK(answerFor(row, {visit(28, 3)}, ofMay()).letters == 1);
}

TEST_CASE("the report names each patient with several letters or none, with the reasons")
{
    PatientRow ended = patient();
    ended.number = 8;
    ended.endDay = "2024/05/02";
    const std::vector<Answer> answers{answerFor(patient(), {visit(28, 3), visit(28, 4)}, ofMay()),
                                      answerFor(ended, {}, ofMay())};
    CHECK(linesOf(answers, ofMay()) ==
          std::vector<std::string>{"条件：予定データ、対象月2024-05、本社", "委任状が出る利用者：1人（2通）",
                                   "2通以上出る利用者：1人", "  7 山田　花子：2通。最後の施術が2件あります",
                                   "出ない利用者：1人",
                                   "  8 山田　花子：施術が終了しています（2024/05/02）、その月に施術がありません"});
}

TEST_CASE("the report of a chosen patient who is unknown has no counts")
{
    Conditions conditions = ofMay();
    conditions.patient = 4711;
    CHECK(linesOf({}, conditions) == std::vector<std::string>{"条件：予定データ、対象月2024-05、本社、利用者4711",
                                                              "利用者4711は、この拠点にいません。"});
    CHECK(linesOf({}, ofMay()).size() == 4); // with the counts of a branch without patients
}

TEST_CASE("the JSON has the reasons by names for programs")
{
    const std::string json = jsonOf({answerFor(patient(), {}, ofMay())});
    CHECK(json.find("\"patient\": 7") != std::string::npos);
    CHECK(json.find("\"letters\": 0") != std::string::npos);
    CHECK(json.find("\"no-visit\"") != std::string::npos);
}
