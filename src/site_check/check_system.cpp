#include "site_check/site_check.h"
#include "suite_text/code_page_932.h"

#include <fmt/format.h>

#include <algorithm>

namespace inin::site {

namespace {

/// Date formats that a database reads correctly in every language: a four-digit year first.
constexpr std::string_view kReadableForms[] = {"yyyy/MM/dd", "yyyy/M/d", "yyyy/MM/d", "yyyy/M/dd",
                                               "yyyy-MM-dd", "yyyy-M-d", "yyyy-MM-d", "yyyy-M-dd"};

constexpr std::string_view kConnectionKey = "接続情報";

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

} // namespace inin::site
