#include "viewer/check/row_rules.h"

#include "runtime/date_text.h"
#include "runtime/regional.h"
#include "viewer/layout/utf8.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <optional>

namespace inin::viewer {

namespace {

constexpr std::string_view kReplacement = "\uFFFD";
constexpr std::string_view kBankWords[] = {"", "銀行", "金庫", "農協", "郵便局"};
constexpr std::string_view kBranchWords[] = {"", "本店", "支店", "本所", "支所", "出張所"};
constexpr std::string_view kWideDigits[] = {"０", "１", "２", "３", "４", "５", "６", "７", "８", "９"};

bool isOneOf(std::string_view text, std::span<const std::string_view> words)
{
    return std::ranges::find(words, text) != words.end();
}

bool isBlank(std::string_view text)
{
    return withoutOuterBlanks(text).empty();
}

/// Only blanks, or only the words of the two kinds, which are printed even without a bank.
bool namesNoBank(std::string_view line)
{
    const std::size_t gap = line.find("  ");
    if (gap == std::string_view::npos) return isBlank(line);
    return isOneOf(withoutOuterBlanks(line.substr(0, gap)), kBankWords) &&
           isOneOf(withoutOuterBlanks(line.substr(gap)), kBranchWords);
}

bool hasDigit(std::string_view text)
{
    const auto isDigit = [](char letter) { return letter >= '0' && letter <= '9'; };
    return std::ranges::any_of(text, isDigit) ||
           std::ranges::any_of(kWideDigits, [&](std::string_view digit) { return text.find(digit) != text.npos; });
}

/// A date column. Most rows have the same date as the row before, which is not parsed again.
class DateColumn {
public:
    DateColumn(const LetterTable &table, std::string_view name) : m_name(name), m_column(table.columnOf(name)) {}

    void show(const LetterTable &table, std::size_t row)
    {
        if (!m_column) return;
        const std::string_view text = table.value(row, *m_column);
        if (m_isShown && text == m_text) return;
        m_isShown = true;
        m_text = text;
        // A time without a date is read as a time on the calendar's first day.
        const std::optional<Date> date = isBlank(text) ? std::nullopt : readDate(text, m_regional);
        m_day = date && date->days() >= 1 ? std::optional<Date>(dayOf(*date)) : std::nullopt;
    }
    [[nodiscard]] std::optional<Date> day() const { return m_day; }
    [[nodiscard]] bool isUnreadable() const { return !m_day && !isBlank(m_text); }
    /// "署名日 2024/05/01"
    [[nodiscard]] std::string shown() const { return fmt::format("{} {}", m_name, m_text); }

private:
    std::string_view m_name;
    std::optional<std::size_t> m_column;
    Regional m_regional;
    std::string m_text;
    std::optional<Date> m_day;
    bool m_isShown = false;
};

/// The texts that a letter must have.
struct NeededText {
    std::string_view column;
    Cause cause;
    bool (*isLacking)(std::string_view text);
};
constexpr NeededText kNeededTexts[] = {
    {"利用者氏名", Cause::noPatient, isBlank},
    {"保険者名", Cause::noInsurer, isBlank},
    {"会社名称", Cause::noCompany, isBlank},
    {"金融機関名", Cause::blankBank, namesNoBank},
    {"口座番号", Cause::noAccountNumber, [](std::string_view text) { return !hasDigit(text); }},
    {"口座名義", Cause::noHolder, isBlank},
    {"世帯主名", Cause::noHouseholder, isBlank},
};

} // namespace

std::string_view withoutOuterBlanks(std::string_view text)
{
    while (true) {
        if (text.starts_with(' ') || text.starts_with('\t'))
            text.remove_prefix(1);
        else if (text.starts_with(kWideBlank))
            text.remove_prefix(kWideBlank.size());
        else if (text.ends_with(' ') || text.ends_with('\t'))
            text.remove_suffix(1);
        else if (text.ends_with(kWideBlank))
            text.remove_suffix(kWideBlank.size());
        else
            return text;
    }
}

struct RowRules::Parts {
    explicit Parts(const LetterTable &of)
        : table(of), start(of, "対象開始日"), end(of, "対象終了日"), signature(of, "署名日"), lastDay(of, "最終施術日")
    {
        for (std::size_t i = 0; i < needed.size(); ++i) needed[i] = of.columnOf(kNeededTexts[i].column);
    }

    void judgeTexts(std::size_t row, std::vector<RowFinding> &found) const
    {
        for (std::size_t i = 0; i < needed.size(); ++i)
            if (needed[i] && kNeededTexts[i].isLacking(table.value(row, *needed[i])))
                found.push_back({kNeededTexts[i].cause, {}});
    }

    void judgeDates(std::size_t row, std::vector<RowFinding> &found)
    {
        for (DateColumn *column : {&start, &end, &signature, &lastDay}) {
            column->show(table, row);
            if (column->isUnreadable()) found.push_back({Cause::noDate, column->shown()});
        }
        if (start.day() && end.day() && *start.day() > *end.day()) {
            // Every day is outside a reversed period: do not report the signature date and the last day as well.
            found.push_back({Cause::periodReversed, period()});
            return;
        }
        judgeInside(signature, Cause::signatureOutside, found);
        judgeInside(lastDay, Cause::lastDayOutside, found);
    }

    void judgeInside(const DateColumn &column, Cause cause, std::vector<RowFinding> &found) const
    {
        const std::optional<Date> day = column.day();
        const bool isBefore = day && start.day() && *day < *start.day();
        const bool isAfter = day && end.day() && *day > *end.day();
        if (isBefore || isAfter) found.push_back({cause, fmt::format("{}（{}）", column.shown(), period())});
    }

    [[nodiscard]] std::string period() const { return fmt::format("{}、{}", start.shown(), end.shown()); }

    void judgeCharacters(std::size_t row, std::vector<RowFinding> &found) const
    {
        for (std::size_t column = 0; column < table.columns().size(); ++column) {
            const std::string_view text = table.value(row, column);
            if (text.find('?') == text.npos && text.find(kReplacement) == text.npos) continue;
            found.push_back({Cause::lostCharacter, fmt::format("{}：{}", table.columns()[column], text)});
        }
    }

    const LetterTable &table;
    std::array<std::optional<std::size_t>, std::size(kNeededTexts)> needed;
    DateColumn start, end, signature, lastDay;
};

RowRules::RowRules(const LetterTable &table) : m_parts(std::make_unique<Parts>(table)) {}

RowRules::~RowRules() = default;

void RowRules::judge(std::size_t row, std::vector<RowFinding> &found)
{
    const RowFault fault = m_parts->table.fault(row);
    if (fault != RowFault::none) {
        found.push_back({Cause::unreadableRow, std::string(faultText(fault))});
        return;
    }
    m_parts->judgeTexts(row, found);
    m_parts->judgeDates(row, found);
    m_parts->judgeCharacters(row, found);
}

} // namespace inin::viewer
