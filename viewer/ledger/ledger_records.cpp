#include "viewer/ledger/ledger_records.h"

#include <fmt/format.h>

#include <charconv>

namespace inin::viewer {

namespace {

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

std::string_view stateText(LetterState state)
{
    switch (state) {
    case LetterState::unprinted:
        return "未印刷";
    case LetterState::sent:
        return "送信済み";
    case LetterState::onPaper:
        return "紙で確認済み";
    case LetterState::returned:
        return "返送済み";
    }
    return "";
}

std::string_view stateName(LetterState state)
{
    switch (state) {
    case LetterState::unprinted:
        return "unprinted";
    case LetterState::sent:
        return "sent";
    case LetterState::onPaper:
        return "onPaper";
    case LetterState::returned:
        return "returned";
    }
    return "";
}

std::string_view outputKindName(OutputKind kind)
{
    switch (kind) {
    case OutputKind::print:
        return "print";
    case OutputKind::pdf:
        return "pdf";
    case OutputKind::pictures:
        return "pictures";
    }
    return "";
}

std::string_view codeResultText(CodeResult result)
{
    switch (result) {
    case CodeResult::marked:
        return "返送済みにしました。";
    case CodeResult::already:
        return "すでに返送済みです。";
    case CodeResult::unreadable:
        return "整理番号を読み取れません。";
    case CodeResult::otherLedger:
        return "ほかの台帳の整理番号です。";
    case CodeResult::unknown:
        return "この整理番号の委任状は台帳にありません。保存期間を過ぎて削除されたか、消去されています。";
    case CodeResult::notRecorded:
        return "返送を台帳に記録できませんでした。";
    }
    return "";
}

} // namespace inin::viewer
