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

/// The option values as given; each is validated with a message of its own.
struct Given {
    std::string folder;
    std::string into;
    std::string patients = "300";
    std::string seed = "1";
    std::string month;
    std::string staff;
    bool force = false;
};

template <class Number> std::optional<Number> wholeNumber(const std::string &text)
{
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    return number;
}

BadCommand badLine(std::string_view what)
{
    return {fmt::format("コマンドラインが正しくありません。使い方は inin-site --help で見られます。（{}）", what)};
}

Command makeCommand(const Given &given)
{
    MakeCommand command{
        pathOf(given.folder), given.into, {}, given.force ? Overwrite::anyFolder : Overwrite::onlyOwnFolder};
    const auto patients = wholeNumber<std::int64_t>(given.patients);
    if (!patients || *patients < 1 || *patients > kMaxPatients) {
        return BadCommand{fmt::format("--patients には1から{}までの人数を指定してください。", kMaxPatients)};
    }
    const auto seed = wholeNumber<std::uint64_t>(given.seed);
    if (!seed) return BadCommand{"--seed には0以上の整数を指定してください。"};
    const auto month = given.month.empty() ? currentMonth() : yearMonthFromText(given.month);
    if (!month) return BadCommand{"--month には1990-01から2098-12までの年月をYYYY-MMの形で指定してください。"};
    const auto staff = given.staff.empty() ? std::int64_t{0} : wholeNumber<std::int64_t>(given.staff).value_or(-1);
    if (staff < (given.staff.empty() ? 0 : 1) || staff > kMaxStaff) {
        return BadCommand{fmt::format("--staff には1から{}までの人数を指定してください。", kMaxStaff)};
    }
    command.order = {*patients, *seed, *month, staff};
    return command;
}

} // namespace

Command readCommandLine(int argc, const char *const *argv)
{
    Given given;
    CLI::App app{"委任状印刷の見本サイトを作り、サイトの設定を検査します。", "inin-site"};
    app.require_subcommand(1);
    CLI::App *make = app.add_subcommand("make", "見本サイトを作ります。");
    const CLI::Option *folder = make->add_option("DIR", given.folder, "作るフォルダー（--into があれば省略できます）");
    const CLI::Option *into =
        make->add_option("--into", given.into,
                         "SQL Server の接続文字列。そのデータベースに同じ行を書き込み、DIR の接続先もそこにします");
    make->add_option("--patients", given.patients, "利用者の人数（100人以上で見本の変わり種がそろいます）")
        ->capture_default_str();
    make->add_option("--seed", given.seed, "乱数の種。同じ種からは同じ行ができます")->capture_default_str();
    make->add_option("--month", given.month, "対象月 YYYY-MM。予定と実績はその前月から翌月までです（省略時は今月）");
    make->add_option("--staff", given.staff, "施術者の人数（省略時は利用者の人数から決めます）");
    make->add_flag("--force", given.force,
                   "空でないフォルダーにも書き込みます。--into では、前に作った見本データだけを作り直します");
    CLI::App *check = app.add_subcommand("check", "サイトを検査します。問題がなければ終了コード0、あれば1です。");
    check->add_option("DIR", given.folder, "検査するフォルダー")->required();
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp &) {
        return HelpCommand{app.help()};
    } catch (const CLI::ParseError &error) {
        return badLine(error.what());
    }
    if (into->count() > 0 && given.into.empty()) return BadCommand{"--into には接続文字列を指定してください。"};
    const bool needsFolder = !make->parsed() || into->count() == 0;
    if (needsFolder && make->parsed() && folder->count() == 0) return badLine("DIR is required");
    if (given.folder.empty() && (needsFolder || folder->count() > 0))
        return BadCommand{"フォルダーを指定してください。"};
    if (make->parsed()) return makeCommand(given);
    return CheckCommand{pathOf(given.folder)};
}

} // namespace inin::site
