#include "screen/typed_date_scan.h"

#include "runtime/text.h"
#include "runtime/text_scan.h"

#include <algorithm>

namespace inin {

namespace {

struct Fold {
    std::string_view typed;
    std::string_view plain;
};

/// Characters that an input method enters for a point, a slash and a hyphen; blanks; and single characters for a whole
/// era or weekday, spelled out as in the normalisation form NFKC.
constexpr Fold kFolds[] = {
    {"。", "."},    {"・", "/"},     {"、", "."},    {"ー", "-"},    {"−", "-"},     {"　", " "},    {"\u00A0", " "},
    {"\t", " "},    {"㋿", "令和"}, {"㍻", "平成"}, {"㍼", "昭和"}, {"㍽", "大正"}, {"㍾", "明治"}, {"㈰", "(日)"},
    {"㈪", "(月)"}, {"㈫", "(火)"},  {"㈬", "(水)"}, {"㈭", "(木)"}, {"㈮", "(金)"}, {"㈯", "(土)"},
};

constexpr std::size_t kWideBytes = 3;
/// The full-width forms of "!" to "~" are in two blocks of 64: EF BC 81 to EF BC BF, and EF BD 80 to EF BD 9E.
constexpr std::string_view kWideLow = "\xEF\xBC";
constexpr std::string_view kWideHigh = "\xEF\xBD";
constexpr unsigned char kLastWideHigh = 0x9E;

/// The plain character of a full-width one, NUL for any other.
char narrowed(std::string_view wide)
{
    if (wide.size() < kWideBytes) return '\0';
    const auto last = static_cast<unsigned char>(wide[2]);
    if (wide.starts_with(kWideLow) && last > 0x80) return static_cast<char>(last - 0x60);
    if (wide.starts_with(kWideHigh) && last <= kLastWideHigh) return static_cast<char>(last - 0x20);
    return '\0';
}

const Fold *foldAt(std::string_view text)
{
    for (const Fold &fold : kFolds)
        if (text.starts_with(fold.typed)) return &fold;
    return nullptr;
}

/// Reads an era's name, the first character of its name, or its Latin letter.
const Era *takeEra(TextScan &scan, std::span<const Era> eraTable)
{
    for (const Era &era : eraTable)
        if (scan.accept(era.name) || scan.accept(left(era.name, 1)) || scan.acceptWord({&era.letter, 1})) return &era;
    return nullptr;
}

ScannedDate::Unit takeUnit(TextScan &scan)
{
    if (scan.accept("年")) return ScannedDate::Unit::year;
    if (scan.accept("月")) return ScannedDate::Unit::month;
    return scan.accept("日") ? ScannedDate::Unit::day : ScannedDate::Unit::none;
}

/// Reads digits; the first year of an era may be written 元.
std::string_view takeNumber(TextScan &scan)
{
    return scan.accept("元") ? "1" : scan.takeDigits();
}

bool takeSeparator(TextScan &scan)
{
    return scan.accept('.') || scan.accept('/') || scan.accept('-');
}

/// Reads one or two digits.
bool takeClockNumber(TextScan &scan)
{
    const std::size_t digits = scan.takeDigits().size();
    return digits == 1 || digits == 2;
}

/// Reads the 34:56 of 12:34:56, with or without seconds and their fraction.
bool takeMinutes(TextScan &scan)
{
    if (!takeClockNumber(scan)) return false;
    if (!scan.accept(':')) return true;
    if (!takeClockNumber(scan)) return false;
    return !scan.accept('.') || !scan.takeDigits().empty();
}

/// Reads the 34分56秒 of 12時34分56秒; both are optional.
bool takeMinutesInWords(TextScan &scan)
{
    if (!scan.atDigit()) return true;
    if (!takeClockNumber(scan) || !scan.accept("分")) return false;
    return !scan.atDigit() || (takeClockNumber(scan) && scan.accept("秒"));
}

/// Reads 12:34, 12:34:56, 午後3:05, 3:05 PM, 12時34分 or T12:34, if present.
void takeTime(TextScan &scan)
{
    TextScan ahead = scan;
    if (!ahead.accept('T') && !ahead.accept("午前")) ahead.accept("午後");
    ahead.skipBlanks();
    if (!takeClockNumber(ahead)) return;
    if (ahead.accept(':') ? !takeMinutes(ahead) : !ahead.accept("時") || !takeMinutesInWords(ahead)) return;
    ahead.skipBlanks();
    if (!ahead.acceptWord("AM")) ahead.acceptWord("PM");
    scan = ahead;
}

/// Reads (土), (土曜) or (土曜日), if present.
void takeWeekday(TextScan &scan)
{
    constexpr std::string_view kWeekdays[] = {"日", "月", "火", "水", "木", "金", "土"};
    TextScan ahead = scan;
    if (!ahead.accept('(')) return;
    if (std::ranges::none_of(kWeekdays, [&](std::string_view day) { return ahead.accept(day); })) return;
    if (!ahead.accept("曜日")) ahead.accept("曜");
    if (ahead.accept(')')) scan = ahead;
}

/// True at the end of the text, and before the weekday and the time that often follow a date copied from elsewhere.
bool isAtDateEnd(TextScan scan)
{
    scan.skipBlanks();
    takeWeekday(scan);
    scan.skipBlanks();
    takeTime(scan);
    scan.skipBlanks();
    return scan.atEnd();
}

constexpr std::size_t kMaxDigits = 8;

} // namespace

std::string foldedDateText(std::string_view text)
{
    std::string folded;
    while (!text.empty()) {
        std::size_t taken = 1;
        if (const Fold *fold = foldAt(text)) {
            folded += fold->plain;
            taken = fold->typed.size();
        } else if (const char plain = narrowed(text.substr(0, kWideBytes)); plain != '\0') {
            folded += plain;
            taken = kWideBytes;
        } else {
            folded += text.front();
        }
        text.remove_prefix(taken);
    }
    return trim(folded);
}

ScannedDate scanTypedDate(std::string_view foldedText, std::span<const Era> eraTable)
{
    ScannedDate scanned;
    TextScan scan(foldedText);
    scanned.era = takeEra(scan, eraTable);
    bool hasSeparator = true;
    while (hasSeparator) {
        scan.skipBlanks();
        const std::string_view digits = takeNumber(scan);
        if (digits.empty() || digits.size() > kMaxDigits) return scanned;
        ScannedDate::Number &number = scanned.numbers.emplace_back();
        number.value = std::stoi(std::string(digits));
        number.digits = digits.size();
        const bool hasBlank = scan.peek() == ' ';
        scan.skipBlanks();
        number.unit = takeUnit(scan);
        if (isAtDateEnd(scan)) {
            scanned.isWhole = true;
            return scanned;
        }
        hasSeparator = number.unit != ScannedDate::Unit::none || takeSeparator(scan) || hasBlank;
    }
    return scanned;
}

} // namespace inin
