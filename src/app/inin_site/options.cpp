#include "app/inin_site/options.h"

#include "system/file_path.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <charconv>

namespace inin::site {

namespace {

/// More than any branch has; the limit prevents a typing error from filling the disk.
constexpr std::int64_t kMaxPatients = 1000000;
/// With the first entry and the stopped staff this is still below the 16-bit limit of a list on the screen.
constexpr std::int64_t kMaxStaff = 30000;

template <class Number> std::optional<Number> wholeNumber(const std::string &text)
{
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    return number;
}

BadCommand badMonth()
{
    return {"--month には1990-01から2098-12までの年月をYYYY-MMの形で指定してください。"};
}

/// A command with its help in one language.
class CommandLine {
public:
    CommandLine(CLI::App &app, const char *name, const HelpText &description, HelpLanguage language)
        : m_command(*app.add_subcommand(name, description.in(language))), m_language(language)
    {
    }

    [[nodiscard]] bool isChosen() const { return m_command.parsed(); }

protected:
    [[nodiscard]] HelpLanguage language() const { return m_language; }
    /// `value` is the option's variable, `name` the name of its value on the help page.
    template <class Value>
    CLI::Option *option(const char *option, Value &value, const HelpText &name, const HelpText &description)
    {
        return m_command.add_option(option, value, description.in(m_language))->option_text(name.in(m_language));
    }
    void flag(const char *flag, bool &value, const HelpText &description)
    {
        m_command.add_flag(flag, value, description.in(m_language));
    }
    [[nodiscard]] std::size_t count(const char *option) const { return m_command.count(option); }

private:
    CLI::App &m_command;
    HelpLanguage m_language;
};

constexpr HelpText kSuiteFolder{"総合システムのフォルダー。", "Folder of the suite."};
constexpr HelpText kFolder{"DIR", "DIR"}, kFile{"ファイル", "FILE"}, kNumber{"番号", "NUMBER"}, kCount{"人数", "COUNT"};
constexpr HelpText kMonth{"YYYY-MM", "YYYY-MM"}, kDay{"YYYY-MM-DD", "YYYY-MM-DD"};
constexpr HelpText kJson{"結果を JSON で表示します。", "Prints the result as JSON."};

/// The command `make`. The values are kept as given; each is validated with a message of its own.
class MakeLine : public CommandLine {
public:
    MakeLine(CLI::App &app, HelpLanguage language)
        : CommandLine(app, "make", {"見本サイトを作ります。", "Makes a demo site."}, language)
    {
        option("DIR", m_folder, kFolder,
               {"作るフォルダー。接続文字列があれば省略できます。",
                "Folder to make; not needed with a connection string."});
        option(
            "--into", m_into, {"接続文字列", "CONNECTION"},
            {"SQL Server の接続文字列。そのデータベースに同じ行を書き込み、DIR の接続先もそこにします。コマンドライン"
             "はほかの人にも見えるので、パスワードがあれば --connection-file か環境変数 ININ_CONNECTION を使ってください。",
             "Connection string of an SQL Server database that gets the same rows and is used by DIR. Other users can see "
             "the command line: for a password use --connection-file or the variable ININ_CONNECTION."});
        option("--connection-file", m_connectionFile, kFile,
               {"接続文字列を一行目に書いたファイル。", "File with the connection string in its first line."});
        option("--patients", m_patients, kCount,
               {"利用者の人数。100人以上で見本の特殊な例がそろいます。",
                "Number of patients; 100 have every irregularity of the demo."})
            ->capture_default_str();
        option("--seed", m_seed, kNumber,
               {"乱数の種。同じ種からは同じ行ができます。", "Seed; the same seed makes the same rows."})
            ->capture_default_str();
        option("--month", m_month, kMonth,
               {"対象月。予定と実績はその前月から翌月までです。省略時は今月です。",
                "Month of the visits, with the months before and after it; by default this month."});
        option("--staff", m_staff, kCount,
               {"施術者の人数。省略時は利用者の人数から決めます。",
                "Number of staff; by default it follows the number of patients."});
        flag("--force", m_force,
             {"空でないフォルダーにも書き込みます。接続文字列があれば、前に作った見本データだけを作り直します。",
              "Writes to a folder that is not empty; in a database replaces only an earlier demo."});
    }

    [[nodiscard]] Command read(const std::string &connection) const
    {
        const bool isFolderGiven = count("DIR") > 0;
        if (count("--into") > 0 && m_into.empty()) return BadCommand{"--into には接続文字列を指定してください。"};
        if (count("--connection-file") > 0 && m_connectionFile.empty())
            return BadCommand{"--connection-file にはファイルを指定してください。"};
        if (!m_into.empty() && !m_connectionFile.empty())
            return BadCommand{"--into と --connection-file は、どちらか一つを指定してください。"};
        const bool isConnectionGiven = !m_into.empty() || !m_connectionFile.empty();
        const std::string into = isConnectionGiven ? m_into : connection;
        if (!isFolderGiven && !isConnectionGiven && into.empty())
            return BadCommand{refusedCommandLine("inin-site", "DIR is required", language())};
        if (isFolderGiven && m_folder.empty()) return BadCommand{"フォルダーを指定してください。"};
        return withOrder({pathOf(m_folder), into, pathOf(m_connectionFile), {}, Overwrite::onlyOwnFolder});
    }

private:
    [[nodiscard]] Command withOrder(MakeCommand command) const
    {
        const auto patients = wholeNumber<std::int64_t>(m_patients);
        if (!patients || *patients < 1 || *patients > kMaxPatients)
            return BadCommand{fmt::format("--patients には1から{}までの人数を指定してください。", kMaxPatients)};
        const auto seed = wholeNumber<std::uint64_t>(m_seed);
        if (!seed) return BadCommand{"--seed には0以上の整数を指定してください。"};
        const auto month = m_month.empty() ? currentMonth() : yearMonthFromText(m_month);
        if (!month) return badMonth();
        const auto staff = m_staff.empty() ? std::int64_t{0} : wholeNumber<std::int64_t>(m_staff).value_or(-1);
        if (staff < (m_staff.empty() ? 0 : 1) || staff > kMaxStaff)
            return BadCommand{fmt::format("--staff には1から{}までの人数を指定してください。", kMaxStaff)};
        command.order = {*patients, *seed, *month, staff};
        if (m_force) command.overwrite = Overwrite::anyFolder;
        return command;
    }

    std::string m_folder, m_into, m_connectionFile, m_patients = "300", m_seed = "1", m_month, m_staff;
    bool m_force = false;
};

class CheckLine : public CommandLine {
public:
    CheckLine(CLI::App &app, HelpLanguage language)
        : CommandLine(app, "check",
                      {"サイトを検査します。問題がなければ終了コード 0、あれば 1、検査できなければ 2 です。",
                       "Checks a site. Exit code 0 without faults, 1 with faults, 2 if it cannot be checked."},
                      language)
    {
        option("DIR", m_folder, kFolder, {"検査するフォルダー。", "Folder to check."})->required();
        flag("--json", m_isJson, kJson);
        option("--bundle", m_bundle, kFile,
               {"問い合わせに添える zip を書きます。氏名、住所、パスワードは入りません。",
                "Writes a zip for support, without names, addresses and passwords."});
    }

    [[nodiscard]] Command read() const
    {
        if (m_folder.empty()) return BadCommand{"フォルダーを指定してください。"};
        if (count("--bundle") > 0 && m_bundle.empty())
            return BadCommand{"--bundle には zip の名前を指定してください。"};
        return CheckCommand{pathOf(m_folder), m_isJson ? OutputForm::json : OutputForm::lines, pathOf(m_bundle)};
    }

private:
    std::string m_folder, m_bundle;
    bool m_isJson = false;
};

class FormsLine : public CommandLine {
public:
    FormsLine(CLI::App &app, HelpLanguage language)
        : CommandLine(app, "forms",
                      {"サイトにない帳票を書き込みます。すでにある帳票はそのまま残します。",
                       "Writes the form documents that a site lacks; existing ones are kept."},
                      language)
    {
        option("DIR", m_folder, kFolder, kSuiteFolder)->required();
        flag("--replace", m_isReplacing,
             {"すでにある帳票を、番号を付けた名前で残してから置き換えます。",
              "Replaces existing form documents, and keeps each under a numbered name."});
    }

    [[nodiscard]] Command read() const
    {
        if (m_folder.empty()) return BadCommand{"フォルダーを指定してください。"};
        return FormsCommand{pathOf(m_folder), m_isReplacing ? Existing::replace : Existing::keep};
    }

private:
    std::string m_folder;
    bool m_isReplacing = false;
};

class ToolsLine : public CommandLine {
public:
    ToolsLine(CLI::App &app, HelpLanguage language)
        : CommandLine(app, "tools",
                      {"帳票ツールの代わりに form viewer が開くようにします。ほかのメーカーのツールは残します。",
                       "Lets formviewer start under the names of the form tools; tools of another maker are kept."},
                      language)
    {
        option("DIR", m_folder, kFolder, kSuiteFolder)->required();
    }

    [[nodiscard]] Command read() const
    {
        if (m_folder.empty()) return BadCommand{"フォルダーを指定してください。"};
        return ToolsCommand{pathOf(m_folder)};
    }

private:
    std::string m_folder;
};

class WhyLine : public CommandLine {
public:
    WhyLine(CLI::App &app, HelpLanguage language)
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

    [[nodiscard]] Command read() const
    {
        if (m_folder.empty()) return BadCommand{"フォルダーを指定してください。"};
        due::Conditions conditions{.trustee = m_isAgent ? due::Trustee::agent : due::Trustee::headOffice,
                                   .includesEnded = m_isWithEnded};
        if (const auto bad = readVisits(conditions)) return *bad;
        if (const auto bad = readTime(conditions)) return *bad;
        for (const auto &[option, text, number] :
             {Number{"--patient", m_patient, conditions.patient}, Number{"--staff", m_staff, conditions.staff},
              Number{"--insurance", m_insurance, conditions.insuranceKind}}) {
            if (text.empty()) continue;
            number = wholeNumber<std::int32_t>(text).value_or(0);
            if (number < 1) return BadCommand{fmt::format("{} には1以上の番号を指定してください。", option)};
        }
        return WhyCommand{pathOf(m_folder), conditions, m_isJson ? OutputForm::json : OutputForm::lines};
    }

private:
    struct Number {
        const char *option;
        const std::string &text;
        std::int32_t &number;
    };

    [[nodiscard]] std::optional<BadCommand> readVisits(due::Conditions &conditions) const
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

    [[nodiscard]] std::optional<BadCommand> readTime(due::Conditions &conditions) const
    {
        if (!m_month.empty() && !m_lastDay.empty())
            return BadCommand{"--month と --last-day は、どちらか一つを指定してください。"};
        if (!m_lastDay.empty()) return readLastDay(conditions);
        const auto month = m_month.empty() ? currentMonth() : yearMonthFromText(m_month);
        if (!month) return badMonth();
        setMonth(conditions, *month);
        return std::nullopt;
    }

    [[nodiscard]] std::optional<BadCommand> readLastDay(due::Conditions &conditions) const
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

    static void setMonth(due::Conditions &conditions, YearMonth month)
    {
        conditions.year = static_cast<int>(month.year());
        conditions.month = static_cast<std::int32_t>(static_cast<unsigned>(month.month()));
    }

    std::string m_folder, m_month, m_lastDay, m_visits = "planned", m_patient, m_staff, m_insurance;
    bool m_isAgent = false, m_isWithEnded = false, m_isJson = false;
};

} // namespace

Command readCommandLine(int argc, const char *const *argv, const std::string &connection, HelpLanguage language)
{
    CLI::App app{
        HelpText{"委任状印刷の見本サイトを作り、サイトを検査します。", "Makes and checks sites of PrintInin."}.in(
            language),
        "inin-site"};
    setHelpLanguage(app, language);
    app.require_subcommand(1);
    const MakeLine make(app, language);
    const CheckLine check(app, language);
    const WhyLine why(app, language);
    const FormsLine forms(app, language);
    const ToolsLine tools(app, language);
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success &request) {
        return HelpCommand{requestedText(app, request)};
    } catch (const CLI::ParseError &error) {
        return BadCommand{refusedCommandLine("inin-site", error.what(), language)};
    }
    if (make.isChosen()) return make.read(connection);
    if (check.isChosen()) return check.read();
    if (forms.isChosen()) return forms.read();
    return tools.isChosen() ? tools.read() : why.read();
}

} // namespace inin::site
