#include "due_letters/due_letters_text.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>

namespace inin::due {

namespace {

std::string_view nameOf(Obstacle obstacle)
{
    switch (obstacle) {
    case Obstacle::ended:
        return "ended";
    case Obstacle::noInsurer:
        return "no-insurer";
    case Obstacle::otherInsuranceKind:
        return "other-insurance-kind";
    case Obstacle::otherMainStaff:
        return "other-main-staff";
    case Obstacle::noVisit:
        return "no-visit";
    case Obstacle::noVisitOnDay:
        return "no-visit-on-day";
    case Obstacle::laterVisit:
        return "later-visit";
    case Obstacle::laterVisitOfOther:
        return "later-visit-of-other-staff";
    case Obstacle::otherVisitingStaff:
        return "other-visiting-staff";
    }
    return {};
}

std::string_view nameOf(Repetition repetition)
{
    switch (repetition) {
    case Repetition::visits:
        return "visits";
    case Repetition::insurers:
        return "insurers";
    case Repetition::companies:
        return "companies";
    case Repetition::sideRows:
        return "side-rows";
    case Repetition::groupCompanies:
        return "group-companies";
    }
    return {};
}

std::string numberText(std::optional<std::int32_t> number)
{
    return number ? std::to_string(*number) : "なし";
}

std::string sentenceOf(Obstacle obstacle, const Answer &answer)
{
    const Visit visit = answer.lastVisit.value_or(Visit());
    const std::string staff = numberText(visit.staff);
    switch (obstacle) {
    case Obstacle::ended:
        return fmt::format("施術が終了しています（{}）", answer.endDay.value_or(""));
    case Obstacle::noInsurer:
        return "保険者（HOKENJA）がありません";
    case Obstacle::otherInsuranceKind:
        return fmt::format("保険種別がほかの種別です（{}）", numberText(answer.insuranceKind));
    case Obstacle::otherMainStaff:
        return fmt::format("主担当の施術者がほかの人です（{}）", numberText(answer.mainStaff));
    case Obstacle::noVisit:
        return "その月に施術がありません";
    case Obstacle::noVisitOnDay:
        return fmt::format("その日に対象の施術がありません（月の最後は{}日）", visit.day);
    case Obstacle::laterVisit:
        return fmt::format("あとの日に施術があります（月の最後は{}日）", visit.day);
    case Obstacle::laterVisitOfOther:
        return fmt::format("ほかの施術者（{}）の施術があとの日にあります（月の最後は{}日）", staff, visit.day);
    case Obstacle::otherVisitingStaff:
        return fmt::format("その日の施術はほかの施術者（{}）です", staff);
    }
    return {};
}

std::string sentenceOf(const Repeated &repeated)
{
    switch (repeated.repetition) {
    case Repetition::visits:
        return fmt::format("最後の施術が{}件あります", repeated.times);
    case Repetition::insurers:
        return fmt::format("同じ番号の保険者（HOKENJA）が{}件あります", repeated.times);
    case Repetition::companies:
        return fmt::format("受任者の会社（CORP）が{}件あります", repeated.times);
    case Repetition::sideRows:
        return fmt::format("利用者の補助の行（RIYOUSHA_SUB）が{}件あります", repeated.times);
    case Repetition::groupCompanies:
        return fmt::format("団体請求の会社（CORP）が{}件あります", repeated.times);
    }
    return {};
}

std::string reasonsOf(const Answer &answer)
{
    std::vector<std::string> reasons;
    for (const Obstacle obstacle : answer.obstacles) reasons.push_back(sentenceOf(obstacle, answer));
    for (const Repeated &repeated : answer.repeated) reasons.push_back(sentenceOf(repeated));
    return fmt::format("{}", fmt::join(reasons, "、"));
}

std::string conditionText(const Conditions &conditions)
{
    const std::string_view visits = conditions.visits == Visits::planned  ? "予定データ"
                                    : conditions.visits == Visits::actual ? "実績データ"
                                                                          : "施術を問わない";
    const std::string time = conditions.lastDay ? fmt::format("最終施術日{:04}-{:02}-{:02}", conditions.year,
                                                              conditions.month, *conditions.lastDay)
                                                : fmt::format("対象月{:04}-{:02}", conditions.year, conditions.month);
    std::string text =
        fmt::format("条件：{}、{}、{}", visits, time, conditions.trustee == Trustee::headOffice ? "本社" : "代理人");
    if (conditions.patient > 0) text += fmt::format("、利用者{}", conditions.patient);
    if (conditions.staff > 0) text += fmt::format("、施術者{}", conditions.staff);
    if (conditions.insuranceKind > 0) text += fmt::format("、保険種別{}", conditions.insuranceKind);
    if (conditions.includesEnded) text += "、施術終了も対象";
    return text;
}

} // namespace

std::vector<std::string> linesOf(const std::vector<Answer> &answers, const Conditions &conditions)
{
    if (answers.empty() && conditions.patient > 0)
        return {conditionText(conditions), fmt::format("利用者{}は、この拠点にいません。", conditions.patient)};
    std::int64_t letters = 0;
    std::vector<std::string> several, none;
    for (const Answer &answer : answers) {
        letters += answer.letters;
        if (answer.letters > 1)
            several.push_back(
                fmt::format("  {} {}：{}通。{}", answer.number, answer.name, answer.letters, reasonsOf(answer)));
        if (answer.letters == 0)
            none.push_back(fmt::format("  {} {}：{}", answer.number, answer.name, reasonsOf(answer)));
    }
    std::vector<std::string> lines{
        conditionText(conditions),
        fmt::format("委任状が出る利用者：{}人（{}通）", answers.size() - none.size(), letters),
        fmt::format("2通以上出る利用者：{}人", several.size())};
    lines.insert(lines.end(), several.begin(), several.end());
    lines.push_back(fmt::format("出ない利用者：{}人", none.size()));
    lines.insert(lines.end(), none.begin(), none.end());
    if (conditions.visits == Visits::ignored)
        lines.emplace_back("愛知県の様式では、このうち主担当の番号が最も小さい利用者の1通だけです。");
    return lines;
}

std::string jsonOf(const std::vector<Answer> &answers)
{
    using Json = nlohmann::ordered_json;
    Json list = Json::array();
    for (const Answer &answer : answers) {
        Json reasons = Json::array(), repeated = Json::object();
        for (const Obstacle obstacle : answer.obstacles) reasons.push_back(nameOf(obstacle));
        for (const Repeated &one : answer.repeated) repeated[std::string(nameOf(one.repetition))] = one.times;
        list.push_back({{"patient", answer.number},
                        {"name", answer.name},
                        {"letters", answer.letters},
                        {"reasons", std::move(reasons)},
                        {"repeated", std::move(repeated)},
                        {"text", reasonsOf(answer)}});
    }
    return Json{{"patients", std::move(list)}}.dump(2, ' ', false, Json::error_handler_t::replace);
}

} // namespace inin::due
