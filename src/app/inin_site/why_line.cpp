#include "app/inin_site/why_line.h"

#include "system/file_path.h"

#include <fmt/format.h>

namespace inin::site {

namespace {

void setMonth(due::Conditions &conditions, YearMonth month)
{
    conditions.year = static_cast<int>(month.year());
    conditions.month = static_cast<std::int32_t>(static_cast<unsigned>(month.month()));
}

} // namespace

WhyLine::WhyLine(CLI::App &app, HelpLanguage language)
    : CommandLine(app, "why",
                  {"委任状が出ない利用者と、2通以上出る利用者を、理由とともに表示します。",
                   "Lists the patients who get no letter or several, with the reasons."},
                  language)
{
    option("DIR", m_folder, kFolder, {"サイトのフォルダー。", "Folder of the site."})->required();
    option("--month", m_month, kMonth, {"対象月。省略時は今月です。", "Month; by default this month."});
    option("--last-day", m_lastDay, kDay,
           {"最終施術日。対象月の代わりに指定します。", "Day of the last visit, instead of a month."});
    option("--visits", m_visits, {"種類", "KIND"},
           {"planned（予定）、actual（実績）、none（指定しない）のどれか。",
            "planned, actual, or none for every patient."})
        ->capture_default_str();
    flag("--agent", m_isAgent,
         {"本社ではなく代理人の委任状とします。", "Letters for the agents instead of the head office."});
    option("--patient", m_patient, kNumber, {"利用者の番号。", "Number of a patient."});
    option("--staff", m_staff, kNumber, {"施術者の番号。", "Number of a staff member."});
    option("--insurance", m_insurance, kNumber,
           {"保険種別の番号（一覧の並び）。", "Number of an insurance kind, as in the list."});
    flag("--ended", m_isWithEnded,
         {"施術終了の利用者も対象とします（予定の対象月のとき）。",
          "Includes patients whose treatment has ended (by month of planned visits)."});
    flag("--json", m_isJson, kJson);
}

Command WhyLine::read() const
{
    if (m_folder.empty()) return BadCommand{"フォルダーを指定してください。"};
    due::Conditions conditions{.trustee = m_isAgent ? due::Trustee::agent : due::Trustee::headOffice,
                               .includesEnded = m_isWithEnded};
    if (const auto bad = readVisits(conditions)) return *bad;
    if (const auto bad = readTime(conditions)) return *bad;
    if (const auto bad = readNumbers(conditions)) return *bad;
    return WhyCommand{pathOf(m_folder), conditions, m_isJson ? OutputForm::json : OutputForm::lines};
}

std::optional<BadCommand> WhyLine::readVisits(due::Conditions &conditions) const
{
    if (m_visits == "planned")
        conditions.visits = due::Visits::planned;
    else if (m_visits == "actual")
        conditions.visits = due::Visits::actual;
    else if (m_visits == "none")
        conditions.visits = due::Visits::ignored;
    else
        return BadCommand{"--visits には planned、actual、none のどれかを指定してください。"};
    return std::nullopt;
}

std::optional<BadCommand> WhyLine::readTime(due::Conditions &conditions) const
{
    if (!m_month.empty() && !m_lastDay.empty())
        return BadCommand{"--month と --last-day は、どちらか一つを指定してください。"};
    if (!m_lastDay.empty()) return readLastDay(conditions);
    const auto month = m_month.empty() ? currentMonth() : yearMonthFromText(m_month);
    if (!month) return badMonth();
    setMonth(conditions, *month);
    return std::nullopt;
}

std::optional<BadCommand> WhyLine::readLastDay(due::Conditions &conditions) const
{
    constexpr std::size_t kMonthSize = 7; // YYYY-MM
    const auto month = yearMonthFromText(m_lastDay.substr(0, kMonthSize));
    const bool hasDay = m_lastDay.size() == kMonthSize + 3 && m_lastDay[kMonthSize] == '-';
    const auto day = hasDay ? wholeNumber<unsigned>(m_lastDay.substr(kMonthSize + 1)) : std::nullopt;
    if (!month || !day || !(*month / std::chrono::day{*day}).ok())
        return BadCommand{"--last-day には1990-01-01から2098-12-31までの日付をYYYY-MM-DDの形で指定してください。"};
    setMonth(conditions, *month);
    // Without visits there is no last one: the search by day is the search without a period.
    if (conditions.visits != due::Visits::ignored) conditions.lastDay = static_cast<std::int32_t>(*day);
    return std::nullopt;
}

std::optional<BadCommand> WhyLine::readNumbers(due::Conditions &conditions) const
{
    struct Number {
        const char *option;
        const std::string &text;
        std::int32_t &number;
    };
    for (const auto &[option, text, number] :
         {Number{"--patient", m_patient, conditions.patient}, Number{"--staff", m_staff, conditions.staff},
          Number{"--insurance", m_insurance, conditions.insuranceKind}}) {
        if (text.empty()) continue;
        number = wholeNumber<std::int32_t>(text).value_or(0);
        if (number < 1) return BadCommand{fmt::format("{} には1以上の番号を指定してください。", option)};
    }
    return std::nullopt;
}

} // namespace inin::site
