#include "site_check/site_check.h"
#include "suite_text/code_page_932.h"
#include "system/file_path.h"

#include <fmt/format.h>

#include <algorithm>
#include <vector>

namespace inin::site {

namespace {

namespace fs = std::filesystem;

/// Date formats that a database reads correctly in every language: a four-digit year first.
constexpr std::string_view kReadableForms[] = {"yyyy/MM/dd", "yyyy/M/d", "yyyy/MM/d", "yyyy/M/dd",
                                               "yyyy-MM-dd", "yyyy-M-d", "yyyy-MM-d", "yyyy-M-dd"};

constexpr std::string_view kConnectionKey = "接続情報";

/// A finding names at most this many files.
constexpr std::size_t kMaxNamedFiles = 20;

/// The files below a folder, by their path from there, in ascending order; those that can be listed.
std::vector<std::string> filesBelow(const fs::path &folder)
{
    std::vector<std::string> names;
    std::error_code error;
    for (fs::recursive_directory_iterator at(folder, fs::directory_options::skip_permission_denied, error), end;
         !error && at != end; at.increment(error))
        if (std::error_code ignored; at->is_regular_file(ignored))
            names.push_back(textOf(at->path().lexically_relative(folder)));
    std::ranges::sort(names);
    return names;
}

} // namespace

/// The programs pass this key in the system's code page; in any other it becomes another key or question marks.
void checkCodePage(Locale &system, Findings &findings)
{
    if (system.toCodePage(kConnectionKey) == encodeCp932(kConnectionKey)) return;
    findings.push_back(
        {FindingKind::otherCodePage, "",
         "このコンピューターの「Unicode 対応ではないプログラムの言語」が日本語ではないので、設定ファイルの"
         "日本語の項目を読めません。"});
}

/// Statements and letters contain dates in this format. With an era or a day in front these would be wrong or invalid.
void checkShortDate(const Regional &regional, Findings &findings)
{
    if (std::ranges::find(kReadableForms, regional.shortDate) != std::end(kReadableForms)) return;
    findings.push_back({FindingKind::unreadableShortDate, "",
                        fmt::format("このコンピューターの短い日付の形式が「{}」なので、データベースが日付を正しく"
                                    "読めません（「yyyy/MM/dd」にしてください）。",
                                    regional.shortDate)});
}

/// The suite's older programs read and write such a copy without notice; this program uses the file of the site.
void checkVirtualStore(const fs::path &folder, const std::string &localData, Findings &findings)
{
    if (localData.empty()) return;
    const fs::path store = pathOf(localData) / "VirtualStore" / pathOf(fullPath(textOf(folder))).relative_path();
    std::vector<std::string> names = filesBelow(store);
    if (names.empty()) return;
    const std::size_t shown = std::min(names.size(), kMaxNamedFiles);
    const std::string others = shown < names.size() ? fmt::format("、ほか{}個", names.size() - shown) : "";
    names.resize(shown);
    findings.push_back(
        {FindingKind::virtualStoreCopies, "VirtualStore",
         fmt::format("サイトのファイルが、この利用者だけのフォルダー「{}」にもあります（{}{}）。総合"
                     "システムのほかのプログラムはそのファイルを使い、このプログラムはサイトのフォルダーの"
                     "ファイルを使います。内容を見比べ、正しいほうをサイトのフォルダーに置いて、この"
                     "フォルダーのファイルを削除してください。",
                     textOf(store), fmt::join(names, "、"), others)});
}

} // namespace inin::site
