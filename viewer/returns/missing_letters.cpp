#include "viewer/returns/missing_letters.h"

#include "runtime/date.h"
#include "viewer/form/date_pattern.h"
#include "viewer/ledger/table_line.h"

#include <fmt/format.h>

#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <string_view>

namespace inin::viewer {

namespace {

std::string monthText(std::int32_t month)
{
    const std::string day = fmt::format("{:04}/{:02}/01", month / 12, month % 12 + 1);
    return formattedDate(day, "ggge年m月").value_or(day);
}

std::string line(std::initializer_list<std::string_view> values)
{
    TableLine table;
    for (const std::string_view value : values) table.add(value);
    return table.end();
}

} // namespace

std::string periodText(const MonthRange &months)
{
    return months.first == months.last ? monthText(months.first)
                                       : monthText(months.first) + "～" + monthText(months.last);
}

std::vector<PrintedLetter> missingOf(std::span<const PrintedLetter> letters)
{
    std::vector<PrintedLetter> missing;
    std::ranges::copy_if(letters, std::back_inserter(missing),
                         [](const PrintedLetter &letter) { return letter.state != LetterState::returned; });
    return missing;
}

std::string missingCsv(std::span<const PrintedLetter> letters)
{
    std::string text = std::string(kTableMark) + line({"保険者", "地区", "利用者", "住所", "期間", "状態", "印刷日"});
    for (const PrintedLetter &letter : letters)
        text +=
            line({letter.insurer, letter.district, letter.patient, letter.address, periodText(letter.period),
                  wordsOf(letter.state).text,
                  fmt::format("{:04}/{:02}/{:02}", Year(letter.printed), Month(letter.printed), Day(letter.printed))});
    return text;
}

} // namespace inin::viewer
