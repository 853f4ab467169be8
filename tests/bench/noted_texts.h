#pragma once

#include "runtime/utf8.h"
#include "viewer/layout/page_painter.h"

#include <fmt/format.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace inin::bench {

/// Records the painted texts, with font, position and size of each on a line, as input for the programs to compare
/// with.
class NotedTexts : public viewer::PagePainter {
public:
    explicit NotedTexts(double height) : m_height(height) {}
    void paint(const viewer::PathCommand &) override {}
    void paint(const viewer::PictureCommand &) override {}
    void paint(const viewer::GlyphRun &run) override
    {
        const auto found = std::ranges::find(fonts, run.font);
        places.push_back(
            fmt::format("{} {:.2f} {:.2f} {:.2f}", found - fonts.begin(), run.at.e, m_height - run.at.f, run.size));
        if (found == fonts.end()) fonts.push_back(run.font);
        std::string text;
        for (const viewer::ShapedGlyph &glyph : run.glyphs)
            for (const char32_t character : run.font->charactersOf(glyph.text)) appendUtf8(text, character);
        texts.push_back(std::move(text));
    }
    void clear()
    {
        places.clear();
        texts.clear();
    }
    std::vector<const viewer::Font *> fonts;
    std::vector<std::string> places, texts;

private:
    double m_height;
};

} // namespace inin::bench
