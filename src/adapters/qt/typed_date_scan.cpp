#include "adapters/qt/typed_date_scan.h"

#include "runtime/text.h"
#include "runtime/text_scan.h"

namespace inin {

namespace {

struct Fold {
    std::string_view typed;
    std::string_view plain;
};

/// What an input method makes of the keys for a point, a slash and a hyphen.
constexpr Fold kFolds[] = {{"。", "."}, {"・", "/"}, {"、", "."}, {"ー", "-"}, {"−", "-"}, {"　", " "}};

constexpr std::size_t kWideBytes = 3;
/// The full-width forms of "!" to "~" lie in two blocks of 64: EF BC 81 to EF BC BF, and EF BD 80 to EF BD 9E.
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

/// Takes an era's name, the first character of its name or its letter.
const Era *takeEra(TextScan &scan, std::span<const Era> eraTable)
{
    for (const Era &era : eraTable)
        if (scan.accept(era.name) || scan.accept(left(era.name, 1)) || scan.acceptWord({&era.letter, 1})) return &era;
    return nullptr;
}

ScannedDate::Unit takeUnit(TextScan &scan)
{
    using Unit = ScannedDate::Unit;
    if (scan.accept("年")) return Unit::year;
    if (scan.accept("月")) return Unit::month;
    return scan.accept("日") ? Unit::day : Unit::none;
}

/// Digits; the first year of an era is written 元.
std::string_view takeNumber(TextScan &scan)
{
    return scan.accept("元") ? "1" : scan.takeDigits();
}

bool takeSeparator(TextScan &scan)
{
    return scan.accept('.') || scan.accept('/') || scan.accept('-');
}

constexpr std::size_t kMostDigits = 8;

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
    while (scan.skipBlanks(), hasSeparator && !scan.atEnd()) {
        const std::string_view digits = takeNumber(scan);
        if (digits.empty()) return scanned;
        if (digits.size() > kMostDigits) return scanned;
        ScannedDate::Number &number = scanned.numbers.emplace_back();
        number.value = std::stoi(std::string(digits));
        number.digits = digits.size();
        scan.skipBlanks();
        number.unit = takeUnit(scan);
        hasSeparator = number.unit != ScannedDate::Unit::none || takeSeparator(scan);
        // A separator behind the last number is no date that somebody has finished.
        if (number.unit == ScannedDate::Unit::none && hasSeparator && scan.atEnd()) return scanned;
    }
    scanned.isWhole = scan.atEnd() && !scanned.numbers.empty();
    return scanned;
}

} // namespace inin
