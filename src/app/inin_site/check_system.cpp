#include "app/inin_site/site_check.h"

#include <fmt/format.h>

#include <algorithm>

namespace inin::site {

namespace {

/// What a database reads as the day that was meant, whatever its own language: the year first and whole.
constexpr std::string_view kReadableForms[] = {"yyyy/MM/dd", "yyyy/M/d", "yyyy/MM/d", "yyyy/M/dd",
                                               "yyyy-MM-dd", "yyyy-M-d", "yyyy-MM-d", "yyyy-M-dd"};

} // namespace

/// Dates go into statements and letters in this form, so an era or a day in front makes other days of them, or none.
void checkShortDate(const Regional &regional, Findings &findings)
{
    if (std::ranges::find(kReadableForms, regional.shortDate) != std::end(kReadableForms)) return;
    findings.push_back(fmt::format("このコンピューターの短い日付の形式が「{}」なので、データベースが日付を正しく"
                                   "読めません（「yyyy/MM/dd」にしてください）。",
                                   regional.shortDate));
}

} // namespace inin::site
