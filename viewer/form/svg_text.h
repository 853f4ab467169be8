#pragma once

#include "viewer/form/svg_style.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

/// Gathers one text element: a line for each place that it or its spans set.
class SvgText {
public:
    void open(const XmlAttributes &attributes, const Affine &place, const SvgStyle &style, Notice tell);
    void openSpan(const XmlAttributes &attributes, const SvgStyle &style);
    void add(std::string_view text, const SvgStyle &style);
    /// Ends the element: its lines become commands of the form.
    void close(FormDocument &form);
    /// Gives the texts the boxes that they named; a box that is not there is a RuntimeError.
    void settleBoxes(const std::map<std::string, Box, std::less<>> &boxes, FormDocument &form) const;

private:
    /// A part of a line with the style that it was written in.
    struct Part {
        std::string text;
        SvgStyle style;
    };
    struct Line {
        double x = 0, y = 0;
        std::vector<Part> parts;
    };
    struct BoxWish {
        std::size_t command;
        std::string box;
        double padding;
    };

    [[nodiscard]] std::string textOf(const Line &line) const;
    [[nodiscard]] FitRule readFit(const SvgStyle &style) const;
    void readOwnAttributes(const XmlAttributes &attributes);
    void addCommand(FormDocument &form, const Line &line, const std::string &text);

    bool m_isOpen = false;
    std::string m_id;
    Affine m_place;
    std::map<std::string, std::string, std::less<>> m_wishes; ///< the data-… attributes
    std::vector<Line> m_lines;
    Notice m_tell;
    std::vector<BoxWish> m_boxWishes;
};

} // namespace inin::viewer
