#include "viewer/check/row_rules.h"

#include "runtime/date_text.h"
#include "runtime/regional.h"
#include "viewer/form/placeholder.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <limits>
#include <optional>

namespace inin::viewer {

namespace {

constexpr std::string_view kReplacement = "\uFFFD";
constexpr std::string_view kBankColumn = "金融機関名", kSecondBankColumn = "金融機関名２";
constexpr std::int32_t kLongestPeriod = 2, kLongestDistance = 24; ///< months
constexpr std::string_view kBankWords[] = {"", "銀行", "金庫", "農協", "郵便局"};
constexpr std::string_view kBranchWords[] = {"", "本店", "支店", "本所", "支所", "出張所"};
/// Without a name these words name no branch; 本店 and 本所 alone do.
constexpr std::string_view kIncompleteBranches[] = {"", "支店", "支所", "出張所"};
constexpr std::string_view kWideDigits[] = {"０", "１", "２", "３", "４", "５", "６", "７", "８", "９"};

bool isOneOf(std::string_view text, std::span<const std::string_view> words)
{
    return std::ranges::find(words, text) != words.end();
}

bool isBlank(std::string_view text)
{
    return withoutOuterBlanks(text).empty();
}

struct BankLine {
    std::string_view bank, branch;
};
/// A bank line has two blanks between the bank and its branch. Empty for a text of another form.
std::optional<BankLine> bankLineOf(std::string_view line)
{
    const std::size_t gap = line.find("  ");
    if (gap == std::string_view::npos) return std::nullopt;
    return BankLine{withoutOuterBlanks(line.substr(0, gap)), withoutOuterBlanks(line.substr(gap))};
}

/// Only blanks, or only the words of the two kinds, which are printed even without a bank.
bool namesNoBank(std::string_view line)
{
    const std::optional<BankLine> parts = bankLineOf(line);
    if (!parts) return isBlank(line);
    return isOneOf(parts->bank, kBankWords) && isOneOf(parts->branch, kBranchWords);
}

/// A bank without a branch or the reverse. A post office has no branch, and a head office needs no name.
bool namesHalfBank(std::string_view line)
{
    const std::optional<BankLine> parts = bankLineOf(line);
    if (!parts || namesNoBank(line)) return false;
    const bool lacksBranch = isOneOf(parts->branch, kIncompleteBranches) && !parts->bank.ends_with("郵便局");
    return lacksBranch || isOneOf(parts->bank, kBankWords);
}

std::size_t digitsIn(std::string_view text)
{
    std::size_t digits = 0;
    for (; !text.empty(); text.remove_prefix(1))
        if (const char c = text.front();
            (c >= '0' && c <= '9') ||
            std::ranges::any_of(kWideDigits, [&](std::string_view digit) { return text.starts_with(digit); }))
            ++digits;
    return digits;
}

bool hasNoNumber(std::string_view text)
{
    return digitsIn(text) == 0;
}

bool hasShortNumber(std::string_view text)
{
    constexpr std::size_t kFewestDigits = 4;
    return !hasNoNumber(text) && digitsIn(text) < kFewestDigits;
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

/// A text that a letter must have.
struct NeededText {
    std::string_view column;
    Cause cause;
    bool (*isLacking)(std::string_view text);
};
constexpr NeededText kNeededTexts[] = {
    {"利用者氏名", Cause::noPatient, isBlank},
    {"利用者住所", Cause::noPatientAddress, isBlank},
    {"保険者名", Cause::noInsurer, isBlank},
    {"会社名称", Cause::noCompany, isBlank},
    {"会社住所", Cause::noCompanyAddress, isBlank},
    {"代表者名", Cause::noRepresentative, isBlank},
    {"会社電話番号", Cause::noTelephone, isBlank},
    {kBankColumn, Cause::blankBank, namesNoBank},
    {kBankColumn, Cause::halfBank, namesHalfBank},
    {"口座番号", Cause::noAccountNumber, hasNoNumber},
    {"口座番号", Cause::shortAccountNumber, hasShortNumber},
    {"口座名義", Cause::noHolder, isBlank},
    {"世帯主名", Cause::noHouseholder, isBlank},
    {"世帯主住所", Cause::noHouseholderAddress, isBlank},
    {"世帯主電話", Cause::noHouseholderTelephone, isBlank},
};

/// The second bank line is derived from the first, which alone shows what is missing.
bool isNeeded(std::string_view column, const NeededColumns &needed)
{
    return !needed || needed->contains(column) || (column == kBankColumn && needed->contains(kSecondBankColumn));
}

/// A text in a value, and the cause that it reveals.
struct FoundText {
    Cause cause;
    bool (*isIn)(std::string_view value);
};
constexpr FoundText kFoundTexts[] = {
    {Cause::unfilledField, hasPlaceholderBraces},
    {Cause::getaMark, [](std::string_view value) { return value.find("〓") != value.npos; }},
    {Cause::lostCharacter,
     [](std::string_view value) { return value.find('?') != value.npos || value.find(kReplacement) != value.npos; }},
};

/// The same day some months later; a day that the month lacks is carried over. Later than all dates in the last year.
Date monthsAfter(Date day, std::int32_t months)
{
    constexpr std::int16_t kLastYear = 9999;
    if (Year(day) == kLastYear) return Date(std::numeric_limits<double>::max());
    return DateSerial(Year(day), Month(day) + months, Day(day));
}

} // namespace

bool hasPlaceholderBraces(std::string_view text)
{
    constexpr std::string_view kBraces[] = {"{{", "}}", "｛｛", "｝｝"};
    if (std::ranges::any_of(kBraces, [&](std::string_view braces) { return text.find(braces) != text.npos; }))
        return true;
    const std::size_t open = text.find("｛");
    return open != text.npos && text.find("｝", open) != text.npos;
}

struct RowRules::Parts {
    Parts(const LetterTable &of, const NeededColumns &columns, Date today)
        : table(of), start(of, "対象開始日"), end(of, "対象終了日"), signature(of, "署名日"), lastDay(of, "最終施術日"),
          earliest(monthsAfter(today, -kLongestDistance)), latest(monthsAfter(today, kLongestDistance))
    {
        for (std::size_t i = 0; i < needed.size(); ++i)
            if (isNeeded(kNeededTexts[i].column, columns)) needed[i] = of.columnOf(kNeededTexts[i].column);
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
        judgeDistance(found);
        if (start.day() && end.day() && *start.day() > *end.day()) {
            // Every day is outside a reversed period: do not report the signature date and the last day as well.
            found.push_back({Cause::periodReversed, period()});
            return;
        }
        if (start.day() && end.day() && *end.day() >= monthsAfter(*start.day(), kLongestPeriod))
            found.push_back({Cause::longPeriod, period()});
        judgeInside(signature, Cause::signatureOutside, found);
        judgeInside(lastDay, Cause::lastDayOutside, found);
    }

    /// One finding for all dates of a letter: a wrong year usually affects several.
    void judgeDistance(std::vector<RowFinding> &found) const
    {
        std::string dates;
        for (const DateColumn *column : {&start, &end, &signature, &lastDay}) {
            const std::optional<Date> day = column->day();
            if (!day || (*day >= earliest && *day <= latest)) continue;
            dates += (dates.empty() ? "" : "、") + column->shown();
        }
        if (!dates.empty()) found.push_back({Cause::farDate, dates});
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
            for (const FoundText &each : kFoundTexts)
                if (each.isIn(text))
                    found.push_back({each.cause, fmt::format("{}：{}", table.columns()[column], text)});
        }
    }

    const LetterTable &table;
    std::array<std::optional<std::size_t>, std::size(kNeededTexts)> needed;
    DateColumn start, end, signature, lastDay;
    Date earliest, latest; ///< that are not far from today
};

RowRules::RowRules(const LetterTable &table, const NeededColumns &needed, Date today)
    : m_parts(std::make_unique<Parts>(table, needed, today))
{
}

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
