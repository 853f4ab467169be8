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

/// A text with its place, from characters to runs. Kept so that the letters' texts reuse the room of those before.
class TextSetter {
public:
    /// `command` and `fonts` must outlive this; `page` is the page's width and height.
    TextSetter(const TextCommand &command, Fonts &fonts, Point page);

    /// What is asked below is about the text that was set last.
    void set(std::string_view text);

    [[nodiscard]] const std::vector<GlyphRun> &runs() const { return m_runs; }
    /// Characters that no font has.
    [[nodiscard]] const std::vector<char32_t> &missing() const { return m_missing; }
    [[nodiscard]] bool isShrunk() const { return m_isShrunk; }
    /// It was cut, or leaves the page.
    [[nodiscard]] bool doesNotFit() const { return m_doesNotFit; }

private:
    [[nodiscard]] FitRule alongLines(FitRule rule) const;
    void shape(std::string_view text);
    void place(const FittedText &fitted);
    [[nodiscard]] Affine along(double by) const;
    [[nodiscard]] Affine onItsSide(double size) const;
    void addRuns(const FittedText &fitted, std::size_t begin, std::size_t end, const Affine &at);
    void addToLineText(const MixedText::Part &part, std::span<const ShapedGlyph> glyphs, bool isFirst);
    [[nodiscard]] double shareBefore() const;
    Affine placeOf(const FittedText &fitted, std::size_t line, double width);
    Affine freePlace(double width, double aside);

    const TextCommand &m_command;
    bool m_runsDown;
    const Font &m_font;
    Point m_page;
    std::u32string m_characters;
    MixedText m_text;
    TextToFit m_toFit;
    std::size_t m_cutBegin = 0;
    std::vector<char32_t> m_missing, m_unused;
    std::vector<GlyphRun> m_runs;
    std::vector<std::u32string> m_lineTexts; ///< of the runs, which point at them: it has its room before it is filled
    std::size_t m_lineRuns = 0;              ///< of the last of them
    bool m_isShrunk = false, m_doesNotFit = false;
};

} // namespace inin::viewer
