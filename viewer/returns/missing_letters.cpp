#include "viewer/returns/missing_letters.h"

#include "runtime/date.h"
#include "viewer/form/date_pattern.h"

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

std::string quoted(std::string_view value)
{
    constexpr std::string_view kFormulaSigns = "=+-@\t\r";
    std::string text = "\"";
    if (!value.empty() && kFormulaSigns.find(value.front()) != kFormulaSigns.npos) text += '\'';
    for (const char c : value) {
        if (c == '"') text += '"';
        text += c;
    }
    return text + '"';
}

std::string line(std::initializer_list<std::string_view> values)
{
    std::string text;
    for (const std::string_view value : values) text += (text.empty() ? "" : ",") + quoted(value);
    return text + "\r\n";
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
    std::string text = "\xEF\xBB\xBF" + line({"保険者", "地区", "利用者", "住所", "期間", "状態", "印刷日"});
    for (const PrintedLetter &letter : letters)
        text +=
            line({letter.insurer, letter.district, letter.patient, letter.address, periodText(letter.period),
                  wordsOf(letter.state).text,
                  fmt::format("{:04}/{:02}/{:02}", Year(letter.printed), Month(letter.printed), Day(letter.printed))});
    return text;
}

} // namespace inin::viewer
