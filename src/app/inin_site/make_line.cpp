#include "app/inin_site/make_line.h"

#include "system/file_path.h"

#include <fmt/format.h>

namespace inin::site {

namespace {

/// More than any branch has; the limit prevents a typing error from filling the disk.
constexpr std::int64_t kMaxPatients = 1000000;
/// With the first entry and the stopped staff this is still below the 16-bit limit of a list on the screen.
constexpr std::int64_t kMaxStaff = 30000;

} // namespace

MakeLine::MakeLine(CLI::App &app, HelpLanguage language)
    : CommandLine(app, "make", {"見本サイトを作ります。", "Makes a demo site."}, language)
{
    option(
        "DIR", m_folder, kFolder,
        {"作るフォルダー。接続文字列があれば省略できます。", "Folder to make; not needed with a connection string."});
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

Command MakeLine::read(const std::string &connection) const
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

Command MakeLine::withOrder(MakeCommand command) const
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

} // namespace inin::site
