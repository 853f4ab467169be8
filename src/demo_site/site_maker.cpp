#include "demo_site/site_maker.h"

#include "adapters/database/connection_string.h"
#include "demo_site/database_maker.h"
#include "demo_site/embedded.h"
#include "runtime/runtime_error.h"
#include "runtime/text.h"
#include "suite_text/code_page_932.h"
#include "suite_text/profile_text.h"
#include "suite_text/unicode_mark.h"
#include "system/file_path.h"
#include "system/program_version.h"
#include "system/whole_file.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <vector>

namespace inin::site {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLongestConnection = 4096;

constexpr std::string_view kSettings = "[Sorvin総合システム]\n"
                                       "SYSTEM_SYS=\\SYS\n"
                                       "SYSTEM_TMP=\\TMP\n"
                                       "SYSTEM_ICON=\\ICON\n"
                                       "SYSTEM_DATA=\\DATA\n"
                                       "WALLPAPER=wall.bmp\n"
                                       "BASEID=0101\n"
                                       "終了患者施術期間=3\n";

constexpr std::string_view kConnection = "[接続情報]\n"
                                         "接続情報=Provider=SQLite;Data Source=demo.db\n";

constexpr std::string_view kFormsNote =
    "帳票（委任状37_01.wfd、委任状23.wfd、委任状37_高松市.wfd）は SVG ファイルです。Inkscape で開いて直せます。\n"
    "二重の波かっこの中は CSV の列の名前で、印刷のときに値と入れ替わります。\n"
    "委任状23_空欄.wfd は空欄の様式です。DATA\\帳票Format.ini に名前を書くと、この様式で印刷されます。\n"
    "束の表紙.wfd は、保険者や地区ごとの束に付ける表紙です。\n";

constexpr DemoForm kForms[] = {
    {"委任状37_01.wfd", standardForm},      {"委任状23.wfd", aichiForm}, {"委任状23_空欄.wfd", blankAichiForm},
    {"委任状37_高松市.wfd", takamatsuForm}, {"束の表紙.wfd", coverForm},
};

/// Text files of the suite: code page 932, CR LF.
std::string suiteText(std::string_view text)
{
    std::string lines;
    for (const char character : text) {
        if (character == '\n') lines += '\r';
        lines += character;
    }
    return encodeCp932(lines);
}

void writeSuiteText(const fs::path &path, std::string_view text)
{
    writeWholeFile(path, suiteText(text), NewFile::byTheMask);
}

std::string versionText(const SiteOrder &order)
{
    return fmt::format("VERSION=見本サイト {}\nUUPDATE={}\n[OnlineHelp]\nADDRESS=https://example.invalid/help\n",
                       programVersion(), yearMonthText(order.month));
}

std::string markerText(const SiteOrder &order)
{
    return fmt::format("inin-site が作った見本サイトです。もう一度 make すると、中身は作り直されます。\n"
                       "patients={} seed={} month={}\n",
                       order.patients, order.seed, yearMonthText(order.month));
}

void writeSiteFiles(const fs::path &folder, const SiteOrder &order, const fs::path &formViewer)
{
    makeFolder(textOf(folder));
    writeWholeFile(folder / kMarkerFile, markerText(order),
                   NewFile::byTheMask); // first, so that an aborted run can be repeated
    for (const std::string_view name : kFolders) makeFolder(textOf(folder / name));
    writeSuiteText(folder / "Massage.ini", kSettings);
    writeConnectionFile(folder, suiteText(kConnection));
    writeSuiteText(folder / "Sorvin.ver", versionText(order));
    writeSuiteText(folder / "SYS" / "README.txt", kFormsNote);
    writeWholeFile(folder / "ICON" / "wall.bmp", wallpaper(), NewFile::byTheMask);
    for (const DemoForm &form : kForms)
        writeWholeFile(folder / "SYS" / pathOf(form.name), form.text(), NewFile::byTheMask);
    writeMenu(folder / kMenu);
    for (const std::string_view tool : kFormTools) writeFormTool(folder / tool, formViewer);
}

bool namesServer(const fs::path &connectionFile)
{
    const std::string connection =
        decodeCp932(profileString(tryReadWholeFile(connectionFile).value_or(""), encodeCp932("接続情報"),
                                  encodeCp932("接続情報"), "", kLongestConnection));
    return !connection.empty() && !readConnectionString(connection).isForSqlite();
}

void refuseSuite(const fs::path &folder, const std::string &why)
{
    throw RuntimeError(error_number::pathAccess,
                       fmt::format("「{}」は総合システムのフォルダーのようです（{}）。何も書き込みませんでした。"
                                   "見本サイトは別のフォルダーに作ってください。",
                                   textOf(folder), why));
}

/// Protects a practice's own files, which no option may put at risk.
void refuseSuiteFolder(const fs::path &folder)
{
    std::error_code error;
    std::vector<std::string_view> programs(std::begin(kFormTools), std::end(kFormTools));
    programs.push_back(kMenu);
    for (const std::string_view name : programs) {
        const fs::path program = folder / name;
        if (fs::exists(fs::symlink_status(program, error)) && !isOwnProgram(program))
            refuseSuite(folder, fmt::format("「{}」があります", name));
    }
    // A demo site's own connection may name a server that was filled with demo data.
    if (!fs::exists(folder / kMarkerFile, error) && namesServer(folder / "adodb.ini"))
        refuseSuite(folder, "「adodb.ini」の接続先がサーバーです");
}

/// True if a package was unpacked into the folder and nothing else is there. The package has a list of its files.
bool hasOnlyPackage(const fs::path &folder)
{
    const std::optional<std::string> list = unmarked(tryReadWholeFile(folder / "guide" / "installed.txt").value_or(""));
    if (!list) return false;
    const std::string lines = "\n" + *list;
    const fs::directory_iterator entries(folder);
    return std::all_of(begin(entries), end(entries), [&](const fs::directory_entry &entry) {
        const std::string name = "\n" + encodeCp932(textOf(entry.path().filename()));
        return lines.find(name + (entry.is_directory() ? "\\" : "\r")) != lines.npos;
    });
}

void refuseForeignFolder(const fs::path &folder)
{
    std::error_code error;
    if (!fs::exists(folder, error) || fs::exists(folder / kMarkerFile, error)) return;
    if (fs::is_directory(folder, error) && (fs::is_empty(folder, error) || hasOnlyPackage(folder))) return;
    throw RuntimeError(
        error_number::pathAccess,
        fmt::format("「{}」は空のフォルダーでも inin-site が作ったフォルダーでもないので、何も書き込みませんでした。"
                    "上書きするときは --force を付けてください。",
                    textOf(folder)));
}

void makeAndRename(const fs::path &unfinished, const fs::path &target, const SiteOrder &order)
{
    std::error_code error;
    fs::remove(unfinished, error); // left by a run that was killed
    makeDatabase(textOf(unfinished), order);
    const fs::file_status old = fs::status(target, error);
    if (fs::is_regular_file(old)) fs::permissions(unfinished, old.permissions(), error);
    fs::rename(unfinished, target, error);
    if (!error) return;
    throw RuntimeError(error_number::pathAccess,
                       fmt::format("データベース「{}」を置き換えられません。", textOf(target)));
}

/// The database gets its name when it is complete: a failing run keeps the old one and leaves nothing else. A killed
/// run leaves the unfinished file, which the next run removes.
void replaceDatabase(const fs::path &folder, const SiteOrder &order)
{
    const fs::path target = folder / "demo.db";
    fs::path unfinished = target;
    unfinished += ".new";
    try {
        makeAndRename(unfinished, target, order);
    } catch (const RuntimeError &) {
        std::error_code error;
        fs::remove(unfinished, error); // report the original failure
        throw;
    }
}

} // namespace

std::span<const DemoForm> demoForms()
{
    return kForms;
}

void writeConnectionFile(const fs::path &folder, std::string_view bytes)
{
    // Otherwise the new file keeps the rights of the old one.
    const fs::path path = folder / "adodb.ini";
    std::error_code error;
    fs::remove(path, error);
    writeWholeFile(path, bytes, NewFile::ownerOnly);
}

void makeSite(const fs::path &folder, const SiteOrder &order, Overwrite overwrite, const fs::path &formViewer)
{
    refuseSuiteFolder(folder);
    if (overwrite == Overwrite::onlyOwnFolder) refuseForeignFolder(folder);
    writeSiteFiles(folder, order, formViewer);
    replaceDatabase(folder, order);
}

} // namespace inin::site
