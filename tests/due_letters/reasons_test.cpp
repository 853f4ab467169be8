// The reasons as sentences for people and as names for programs.
#include "due_letters/due_letters_text.h"

#include <doctest/doctest.h>

#include <algorithm>

using namespace inin::due;

namespace {

Answer answerWith(std::vector<Obstacle> obstacles, std::vector<Repeated> repeated = {})
{
    return {.number = 7,
            .name = "山田　花子",
            .letters = repeated.empty() ? 0 : 2,
            .obstacles = std::move(obstacles),
            .repeated = std::move(repeated),
            .endDay = "2024/05/02",
            .mainStaff = 3,
            .insuranceKind = {},
            .lastVisit = Visit{.day = 28, .moment = 20240528, .staff = 4}};
}

bool has(const std::vector<std::string> &lines, const std::string &line)
{
    return std::ranges::find(lines, line) != lines.end();
}

} // namespace

TEST_CASE("each obstacle has a sentence and a name")
{
    struct Reason {
        Obstacle obstacle;
        const char *sentence;
        const char *name;
    };
    for (const Reason &reason :
         {Reason{Obstacle::ended, "施術が終了しています（2024/05/02）", "ended"},
          {Obstacle::noInsurer, "保険者（HOKENJA）がありません", "no-insurer"},
          {Obstacle::otherInsuranceKind, "保険種別がほかの種別です（なし）", "other-insurance-kind"},
          {Obstacle::otherMainStaff, "主担当の施術者がほかの人です（3）", "other-main-staff"},
          {Obstacle::noVisit, "その月に施術がありません", "no-visit"},
          {Obstacle::noVisitOnDay, "その日に対象の施術がありません（月の最後は28日）", "no-visit-on-day"},
          {Obstacle::laterVisit, "あとの日に施術があります（月の最後は28日）", "later-visit"},
          {Obstacle::laterVisitOfOther, "ほかの施術者（4）の施術があとの日にあります（月の最後は28日）",
           "later-visit-of-other-staff"},
          {Obstacle::otherVisitingStaff, "その日の施術はほかの施術者（4）です", "other-visiting-staff"}}) {
        CAPTURE(reason.name);
        const std::vector<Answer> answers{answerWith({reason.obstacle})};
        CHECK(has(linesOf(answers, {}), std::string("  7 山田　花子：") + reason.sentence));
        const std::string json = jsonOf(answers);
        CHECK(json.find(std::string("\"reasons\": [\n        \"") + reason.name + "\"\n      ]") != std::string::npos);
        CHECK(json.find(std::string("\"text\": \"") + reason.sentence + "\"") != std::string::npos);
    }
}

TEST_CASE("each repetition has a sentence and a name")
{
    struct Reason {
        Repetition repetition;
        const char *sentence;
        const char *name;
    };
    for (const Reason &reason :
         {Reason{Repetition::visits, "最後の施術が2件あります", "visits"},
          {Repetition::insurers, "同じ番号の保険者（HOKENJA）が2件あります", "insurers"},
          {Repetition::companies, "受任者の会社（CORP）が2件あります", "companies"},
          {Repetition::sideRows, "利用者の補助の行（RIYOUSHA_SUB）が2件あります", "side-rows"},
          {Repetition::groupCompanies, "団体請求の会社（CORP）が2件あります", "group-companies"}}) {
        CAPTURE(reason.name);
        const std::vector<Answer> answers{answerWith({}, {{reason.repetition, 2}})};
        CHECK(has(linesOf(answers, {}), std::string("  7 山田　花子：2通。") + reason.sentence));
        CHECK(jsonOf(answers).find(std::string("\"repeated\": {\n        \"") + reason.name + "\": 2\n      }") !=
              std::string::npos);
    }
}

TEST_CASE("the report begins with all conditions that restrict it")
{
    Conditions conditions{.visits = Visits::actual,
                          .year = 2024,
                          .month = 5,
                          .lastDay = 9,
                          .trustee = Trustee::agent,
                          .patient = 7,
                          .staff = 3,
                          .insuranceKind = 2,
                          .includesEnded = true};
    CHECK(linesOf({answerWith({})}, conditions).front() ==
          "条件：実績データ、最終施術日2024-05-09、代理人、利用者7、施術者3、保険種別2、施術終了も対象");
    conditions = {.visits = Visits::ignored, .year = 2024, .month = 5};
    const std::vector<std::string> lines = linesOf({answerWith({})}, conditions);
    CHECK(lines.front() == "条件：施術を問わない、対象月2024-05、本社");
    CHECK(lines.back() == "愛知県の様式では、このうち主担当の番号が最も小さい利用者の1通だけです。");
}
