#include "viewer/layout/reading_order.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <iterator>
#include <limits>
#include <utility>

namespace inin::viewer {

namespace {

constexpr double kOverlap = 1; ///< points by which neighbours may overlap
/// A part with more texts is read line by line without looking for columns.
constexpr std::size_t kMostDivided = 200;
/// More comparisons of texts with frames than this would take too long.
constexpr std::size_t kMostCompared = 10'000'000;
/// Distances in a word of single characters, and between the lines of a paragraph, as factors of the size.
constexpr double kStackPitch = 2.2, kStackShift = 0.3, kLinePitch = 2.2, kIndent = 2.1, kSameSize = 0.02;

/// Texts that are read together, and the space that they take.
struct TextUnit {
    Box box;
    ReadingLine texts;
};
using Units = std::vector<TextUnit>;

Box joined(const Box &a, const Box &b)
{
    const double left = std::min(a.left, b.left), top = std::min(a.top, b.top);
    return {left, top, std::max(a.right(), b.right()) - left, std::max(a.bottom(), b.bottom()) - top};
}

bool contains(const Box &outer, const Box &inner)
{
    return inner.left >= outer.left - kOverlap && inner.right() <= outer.right() + kOverlap &&
           inner.top >= outer.top - kOverlap && inner.bottom() <= outer.bottom() + kOverlap;
}

/// Exchanges the axes of a page of vertical text, so that its first line, at the right, is at the top.
Box turned(const Box &box)
{
    return {box.top, -box.right(), box.height, box.width};
}

bool isSameSize(const Box &a, const Box &b)
{
    return std::abs(a.height - b.height) <= kSameSize * a.height;
}

/// True when a character is directly below the last one of a word.
bool continuesWord(const Box &last, const Box &next)
{
    const double shift = (next.left + next.width / 2) - (last.left + last.width / 2), pitch = next.top - last.top;
    return isSameSize(last, next) && std::abs(shift) < kStackShift * last.height && pitch > 0 &&
           pitch < kStackPitch * last.height;
}

class PageReader {
public:
    PageReader(std::span<const PlacedText> texts, std::span<const Box> frames)
        : m_texts(texts), m_frames(frames.begin(), frames.end())
    {
        const auto vertical = std::ranges::count_if(texts, &PlacedText::isVertical);
        m_isTurned = static_cast<std::size_t>(vertical) * 2 > texts.size();
        if (m_isTurned) std::ranges::transform(m_frames, m_frames.begin(), turned);
    }

    std::vector<ReadingLine> lines()
    {
        std::vector<ReadingLine> lines;
        Units units = words();
        takeFrames(units);
        divide(units, lines);
        return paragraphs(lines);
    }

private:
    [[nodiscard]] Box boxOf(std::size_t text) const
    {
        return m_isTurned ? turned(m_texts[text].box) : m_texts[text].box;
    }

    /// Each text is a unit, except for words of single characters.
    [[nodiscard]] Units words() const
    {
        Units units;
        std::size_t last = 0; ///< the previous text, if it is a single character
        bool isOpen = false;
        for (std::size_t i = 0; i < m_texts.size(); ++i) {
            const bool isSingle = m_texts[i].isSingle && !m_texts[i].isField;
            if (isOpen && isSingle && continuesWord(boxOf(last), boxOf(i))) {
                units.back().texts.push_back(i);
                units.back().box = joined(units.back().box, boxOf(i));
            } else {
                units.push_back({boxOf(i), {i}});
            }
            isOpen = isSingle;
            last = i;
        }
        return units;
    }

    void takeFrames(Units &units) const
    {
        constexpr std::size_t kNone = std::numeric_limits<std::size_t>::max();
        if (units.size() * m_frames.size() > kMostCompared) return;
        std::vector<std::size_t> frameOf(units.size(), kNone), uses(m_frames.size());
        const auto area = [&](std::size_t frame) { return m_frames[frame].width * m_frames[frame].height; };
        for (std::size_t i = 0; i < units.size(); ++i) {
            for (std::size_t frame = 0; frame < m_frames.size(); ++frame)
                if (contains(m_frames[frame], units[i].box) && (frameOf[i] == kNone || area(frame) < area(frameOf[i])))
                    frameOf[i] = frame;
            if (frameOf[i] != kNone) ++uses[frameOf[i]];
        }
        for (std::size_t i = 0; i < units.size(); ++i)
            if (frameOf[i] != kNone && uses[frameOf[i]] == 1) units[i].box = m_frames[frameOf[i]];
    }

    using Edge = std::function<double(const Box &)>;

    /// The parts between the gaps along an axis.
    static std::vector<Units> parts(Units units, const Edge &begin, const Edge &end)
    {
        std::ranges::stable_sort(units, {}, [&](const TextUnit &unit) { return begin(unit.box); });
        std::vector<Units> parts;
        double reached = 0;
        for (TextUnit &unit : units) {
            if (parts.empty() || begin(unit.box) >= reached - kOverlap) {
                parts.emplace_back();
                reached = end(unit.box);
            }
            reached = std::max(reached, end(unit.box));
            parts.back().push_back(std::move(unit));
        }
        return parts;
    }
    static std::vector<Units> rows(Units units)
    {
        return parts(
            std::move(units), [](const Box &box) { return box.top; }, &Box::bottom);
    }
    static std::vector<Units> columns(Units units)
    {
        return parts(
            std::move(units), [](const Box &box) { return box.left; }, &Box::right);
    }

    static void divide(const Units &units, std::vector<ReadingLine> &lines)
    {
        if (units.size() == 1) return lines.push_back(units.front().texts);
        std::vector<Units> between = rows(units);
        if (between.size() > 1) {
            for (const Units &row : between) divide(row, lines);
            return;
        }
        if (between.front().size() > kMostDivided) return readInLines(std::move(between.front()), lines);
        between = columns(std::move(between.front()));
        if (between.size() == 1) return readInLines(std::move(between.front()), lines);
        divideBeside(between, lines);
    }

    /// Divides at the best vertical gap. Two sides of one line each are one line.
    static void divideBeside(const std::vector<Units> &columns, std::vector<ReadingLine> &lines)
    {
        const std::size_t gap = bestGap(columns);
        std::vector<ReadingLine> left, right;
        divide(joinedUnits(std::span(columns).first(gap)), left);
        divide(joinedUnits(std::span(columns).subspan(gap)), right);
        if (left.size() == 1 && right.size() == 1) {
            left.front().insert(left.front().end(), right.front().begin(), right.front().end());
            right.clear();
        }
        for (std::vector<ReadingLine> *const side : {&left, &right})
            std::ranges::move(*side, std::back_inserter(lines));
    }

    static Units joinedUnits(std::span<const Units> columns)
    {
        Units all;
        for (const Units &column : columns) all.insert(all.end(), column.begin(), column.end());
        return all;
    }

    static std::size_t bestGap(const std::vector<Units> &columns)
    {
        std::size_t best = 1, fewest = std::numeric_limits<std::size_t>::max();
        double widest = 0;
        for (std::size_t gap = 1; gap < columns.size(); ++gap) {
            std::size_t isolated = 0;
            for (const auto &side : {std::span(columns).first(gap), std::span(columns).subspan(gap)}) {
                const Units units = joinedUnits(side);
                if (rows(units).size() == 1) isolated += units.size();
            }
            const double width = leftOf(columns[gap]) - rightOf(columns[gap - 1]);
            if (isolated > fewest || (isolated == fewest && width <= widest + kOverlap)) continue;
            best = gap;
            fewest = isolated;
            widest = width;
        }
        return best;
    }
    static double leftOf(const Units &units)
    {
        return std::ranges::min(units, {}, [](const TextUnit &unit) { return unit.box.left; }).box.left;
    }
    static double rightOf(const Units &units)
    {
        return std::ranges::max(units, {}, [](const TextUnit &unit) { return unit.box.right(); }).box.right();
    }

    /// Texts that overlap: those whose centres are level with the highest one are its line.
    static void readInLines(Units units, std::vector<ReadingLine> &lines)
    {
        std::ranges::stable_sort(units, {}, [](const TextUnit &unit) { return unit.box.top; });
        for (auto begin = units.begin(); begin != units.end();) {
            const auto end = std::find_if(begin, units.end(), [&](const TextUnit &unit) {
                return unit.box.top + unit.box.height / 2 > begin->box.bottom();
            });
            std::stable_sort(begin, end, [](const TextUnit &a, const TextUnit &b) { return a.box.left < b.box.left; });
            ReadingLine &texts = lines.emplace_back();
            for (; begin != end; ++begin) texts.insert(texts.end(), begin->texts.begin(), begin->texts.end());
        }
    }

    /// True when a line continues the paragraph that ends with the text `last`.
    [[nodiscard]] bool continuesParagraph(std::size_t last, const ReadingLine &line) const
    {
        if (line.size() != 1 || m_texts[last].isField || m_texts[line.front()].isField) return false;
        const Box above = boxOf(last), below = boxOf(line.front());
        return isSameSize(above, below) && std::abs(above.left - below.left) < kIndent * above.height &&
               below.top - above.top < kLinePitch * above.height;
    }

    [[nodiscard]] std::vector<ReadingLine> paragraphs(const std::vector<ReadingLine> &lines) const
    {
        std::vector<ReadingLine> out;
        bool isOpen = false; ///< the last line may be continued
        for (const ReadingLine &line : lines) {
            if (isOpen && continuesParagraph(out.back().back(), line)) {
                out.back().push_back(line.front());
                continue;
            }
            isOpen = line.size() == 1;
            out.push_back(line);
        }
        return out;
    }

    std::span<const PlacedText> m_texts;
    std::vector<Box> m_frames;
    bool m_isTurned;
};

} // namespace

std::vector<ReadingLine> readingLines(std::span<const PlacedText> texts, std::span<const Box> frames)
{
    if (texts.empty()) return {};
    return PageReader(texts, frames).lines();
}

} // namespace inin::viewer
