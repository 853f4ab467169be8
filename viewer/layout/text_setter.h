#pragma once

#include "viewer/layout/mixed_text.h"
#include "viewer/layout/page_painter.h"
#include "viewer/layout/text_fit.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

/// Lays out a text, from characters to positioned runs. Kept between letters so that its memory is reused.
class TextSetter {
public:
    /// `command` and `fonts` must outlive this object; `page` is the width and height of the page.
    TextSetter(const TextCommand &command, Fonts &fonts, Point page);

    /// Lays out a text. The operations below are about the last one.
    void set(std::string_view text);

    [[nodiscard]] const std::vector<GlyphRun> &runs() const { return m_runs; }
    /// Characters that no font has.
    [[nodiscard]] const std::vector<char32_t> &missing() const { return m_missing; }
    [[nodiscard]] bool isShrunk() const { return m_isShrunk; }
    /// The text was truncated or extends beyond the page.
    [[nodiscard]] bool doesNotFit() const { return m_doesNotFit; }

private:
    [[nodiscard]] FitRule inLineDirection(FitRule rule) const;
    void shape(std::string_view text);
    void place(const FittedText &fitted);
    [[nodiscard]] Affine along(double by) const;
    [[nodiscard]] Affine rotated(double size) const;
    void addRuns(const FittedText &fitted, std::size_t begin, std::size_t end, const Affine &at);
    void addCombined(const FittedText &fitted, const MixedText::Part &part, std::span<const ShapedGlyph> digits,
                     const Affine &line);
    /// Adds the text of the last `runs` runs.
    void addToLineText(const MixedText::Part &part, std::span<const ShapedGlyph> glyphs, bool isFirst,
                       std::size_t runs);
    [[nodiscard]] double shareBefore() const;
    Affine placeOf(const FittedText &fitted, std::size_t line, double width);
    Affine placeWithoutBox(double width, double distance);

    const TextCommand &m_command;
    bool m_isVertical;
    const Font &m_font;
    Point m_page;
    std::u32string m_characters;
    MixedText m_text;
    TextToFit m_toFit;
    std::size_t m_ellipsisBegin = 0;
    std::vector<char32_t> m_missing, m_unused;
    std::vector<GlyphRun> m_runs;
    std::vector<std::u32string> m_lineTexts; ///< the runs point to them: its capacity is reserved before it is filled
    std::size_t m_lineRuns = 0;              ///< the number of runs of the last line
    bool m_isShrunk = false, m_doesNotFit = false;
};

} // namespace inin::viewer
