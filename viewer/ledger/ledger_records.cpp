#include "viewer/ledger/ledger_records.h"

#include <fmt/format.h>

#include <charconv>

namespace inin::viewer {

namespace {

/// In the order of CodeResult.
constexpr CodeResultWords kCodeResults[] = {
    {CodeResult::marked, "marked", "返送済みにしました。"},
    {CodeResult::already, "already", "すでに返送済みです。"},
    {CodeResult::unreadable, "unreadable", "整理番号を読み取れません。"},
    {CodeResult::otherLedger, "otherLedger", "ほかの台帳の整理番号です。"},
    {CodeResult::unknown, "unknown",
     "この整理番号の委任状は台帳にありません。保存期間を過ぎて削除されたか、消去されています。"},
    {CodeResult::notRecorded, "notRecorded", "返送を台帳に記録できませんでした。"},
};

/// Rows are found by their place.
template <class Row, std::size_t kRows, class Key> constexpr bool isInOrder(const Row (&rows)[kRows], Key Row::*key)
{
    for (std::size_t i = 0; i < kRows; ++i)
        if (static_cast<std::size_t>(rows[i].*key) != i) return false;
    return true;
}
static_assert(isInOrder(kLetterStates, &LetterStateWords::state));
static_assert(isInOrder(kCodeResults, &CodeResultWords::result));

constexpr std::string_view kBetweenMonths = "..";

std::string monthText(std::int32_t month)
{
    return fmt::format("{:04}-{:02}", month / 12, month % 12 + 1);
}

/// "2026-11"
std::optional<std::int32_t> readMonth(std::string_view text)
{
    constexpr std::size_t kYearDigits = 4, kAllCharacters = 7;
    if (text.size() != kAllCharacters || text[kYearDigits] != '-') return std::nullopt;
    std::int32_t year = 0, month = 0;
    const char *const dash = text.data() + kYearDigits, *const end = text.data() + text.size();
    if (std::from_chars(text.data(), dash, year).ptr != dash || std::from_chars(dash + 1, end, month).ptr != end)
        return std::nullopt;
    if (year < 0 || month < 1 || month > 12) return std::nullopt;
    return monthNumber(year, month);
}

} // namespace

std::string monthRangeText(const MonthRange &months)
{
    std::string text = monthText(months.first);
    if (months.last != months.first) text.append(kBetweenMonths).append(monthText(months.last));
    return text;
}

std::optional<MonthRange> readMonthRange(std::string_view text)
{
    const std::size_t between = text.find(kBetweenMonths);
    const bool isOne = between == std::string_view::npos;
    const auto first = readMonth(text.substr(0, between));
    const auto last = isOne ? first : readMonth(text.substr(between + kBetweenMonths.size()));
    if (!first || !last || *last < *first) return std::nullopt;
    return MonthRange{*first, *last};
}

const LetterStateWords &wordsOf(LetterState state)
{
    return kLetterStates[static_cast<std::size_t>(state)];
}

const CodeResultWords &wordsOf(CodeResult result)
{
    return kCodeResults[static_cast<std::size_t>(result)];
}

} // namespace inin::viewer
