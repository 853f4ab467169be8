#include "viewer/layout/text_fit.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string_view>

namespace inin::viewer {

namespace {

constexpr double kTolerance = 0.01; ///< points
constexpr double kSizeStep = 0.97;
constexpr double kStretchStep = 0.05;

constexpr std::u32string_view kNotFirst = U"、。，．・：；？！゛゜ヽヾゝゞ々ー）］｝〕〉》」』】〟’”),.:;?!]}､｡｣ﾞﾟｰ"
                                          U"ぁぃぅぇぉっゃゅょゎァィゥェォッャュョヮヵヶｧｨｩｪｫｬｭｮｯ％‰℃−";
constexpr std::u32string_view kNotLast = U"（［｛〔〈《「『【〝‘“([{｢￥＄№〒";

bool contains(std::u32string_view set, char32_t character)
{
    return set.find(character) != std::u32string_view::npos;
}

bool isBlank(char32_t character)
{
    return character == U' ' || character == U'\u3000';
}

/// Letters and digits of words.
bool isWordCharacter(char32_t character)
{
    return (character > 0x20 && character < 0x250) || (character >= 0xFF10 && character <= 0xFF19) ||
           character == 0xFF0D;
}

/// Breaks one text into lines at one size and stretch.
class LineBreaker {
public:
    LineBreaker(const TextToFit &text, double size, double stretch, double room)
        : m_text(text), m_factor(size * stretch / 1000), m_spacing(text.spacing * (size / text.size) * stretch),
          m_room(room + kTolerance)
    {
    }

    /// Empty when more than `most` lines are needed.
    std::optional<std::vector<FittedLine>> lines(std::size_t most)
    {
        std::vector<FittedLine> lines;
        std::size_t begin = 0;
        for (const std::size_t end : m_text.paragraphEnds) {
            do {
                if (lines.size() == most) return std::nullopt;
                lines.push_back(nextLine(begin, end));
                begin = skipBlanks(lines.back().end, end);
            } while (begin < end);
            begin = end;
        }
        return lines;
    }

    /// At most `most` lines; the last one leaves room for the ellipsis.
    std::vector<FittedLine> truncatedLines(std::size_t most)
    {
        std::vector<FittedLine> lines;
        std::size_t begin = 0;
        for (const std::size_t end : m_text.paragraphEnds) {
            do {
                const bool isLast = lines.size() + 1 == most;
                if (isLast) m_room -= m_text.ellipsisWidth * m_factor + m_spacing;
                lines.push_back(isLast ? filledLine(begin, end) : nextLine(begin, end));
                if (isLast) return lines;
                begin = skipBlanks(lines.back().end, end);
            } while (begin < end);
            begin = end;
        }
        return lines;
    }

    [[nodiscard]] FittedLine lineOf(std::size_t begin, std::size_t end) const
    {
        return {begin, end, end > begin ? widthOf(begin, end) : 0};
    }

private:
    /// The width of a range that is not empty.
    [[nodiscard]] double widthOf(std::size_t begin, std::size_t end) const
    {
        const ShapedGlyph &first = m_text.glyphs[begin], &last = m_text.glyphs[end - 1];
        return (double{last.x} + double{last.advance} - double{first.x}) * m_factor +
               static_cast<double>(end - begin - 1) * m_spacing;
    }

    /// The longest part that fits. It has at least one glyph, so that the loops end.
    FittedLine filledLine(std::size_t begin, std::size_t end) const
    {
        std::size_t fits = begin;
        while (fits < end && widthOf(begin, fits + 1) <= m_room) ++fits;
        if (fits == begin && begin < end) ++fits;
        return lineOf(begin, fits);
    }

    FittedLine nextLine(std::size_t begin, std::size_t end) const
    {
        const FittedLine filled = filledLine(begin, end);
        if (filled.end == end) return filled;
        for (std::size_t at = filled.end; at > begin + 1; --at)
            if (mayBreakBetween(m_text.glyphs[at - 1].text, m_text.glyphs[at].text)) return withoutBlanks(begin, at);
        return filled;
    }

    [[nodiscard]] FittedLine withoutBlanks(std::size_t begin, std::size_t end) const
    {
        while (end > begin + 1 && isBlank(m_text.glyphs[end - 1].text)) --end;
        return lineOf(begin, end);
    }

    [[nodiscard]] std::size_t skipBlanks(std::size_t at, std::size_t end) const
    {
        while (at < end && isBlank(m_text.glyphs[at].text)) ++at;
        return at;
    }

    const TextToFit &m_text;
    double m_factor, m_spacing, m_room;
};

/// The number of lines of a size that fit into the box, at least one.
std::size_t linesWithRoom(const FitRule &rule, double size)
{
    const double more = (rule.box.height + kTolerance - size) / (size * rule.leading);
    return static_cast<std::size_t>(std::clamp(std::floor(more) + 1, 1.0, static_cast<double>(rule.lines)));
}

std::optional<FittedText> fitAtSize(const TextToFit &text, const FitRule &rule, double size)
{
    const std::size_t most = linesWithRoom(rule, size);
    for (std::size_t count = text.paragraphEnds.size(); count <= most; ++count) {
        for (double stretch = 1;; stretch = std::max(stretch - kStretchStep, rule.narrowest)) {
            if (auto lines = LineBreaker(text, size, stretch, rule.box.width).lines(count))
                return FittedText{std::move(*lines), size, stretch, false};
            if (stretch <= rule.narrowest) break;
        }
    }
    return std::nullopt;
}

} // namespace

bool mayBreakBetween(char32_t before, char32_t after)
{
    if (isBlank(before)) return !isBlank(after);
    if (isBlank(after)) return true;
    if (contains(kNotFirst, after) || contains(kNotLast, before)) return false;
    return !(isWordCharacter(before) && isWordCharacter(after));
}

FittedText fitInBox(const TextToFit &text, const FitRule &rule)
{
    if (!text.isTooLong) {
        double size = text.size;
        while (size > rule.smallest) {
            if (auto fitted = fitAtSize(text, rule, size)) return std::move(*fitted);
            size *= kSizeStep;
        }
        if (auto fitted = fitAtSize(text, rule, rule.smallest)) return std::move(*fitted);
    }
    LineBreaker breaker(text, rule.smallest, rule.narrowest, rule.box.width);
    return {breaker.truncatedLines(linesWithRoom(rule, rule.smallest)), rule.smallest, rule.narrowest, true};
}

FittedText unfitted(const TextToFit &text)
{
    const LineBreaker breaker(text, text.size, 1, 0);
    FittedText fitted{{}, text.size, 1, text.isTooLong};
    std::size_t begin = 0;
    for (const std::size_t end : text.paragraphEnds) {
        fitted.lines.push_back(breaker.lineOf(begin, end));
        begin = end;
    }
    return fitted;
}

} // namespace inin::viewer
