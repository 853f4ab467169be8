#pragma once

#include "viewer/form/svg_style.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

/// Collects one text element: a line for each position that the element or its spans set.
class SvgText {
public:
    void open(const XmlAttributes &attributes, const Affine &transform, const SvgStyle &style, CommandPlace place,
              NoticeHandler report);
    void openSpan(const XmlAttributes &attributes, const SvgStyle &style);
    void add(std::string_view text, const SvgStyle &style);
    /// Ends the element and adds its lines to the form as commands.
    void close(FormDocument &form);
    /// Assigns to each text the box that it names. A missing box is a RuntimeError.
    void resolveBoxes(const std::map<std::string, Box, std::less<>> &boxes, FormDocument &form) const;

private:
    /// A part of a line with its style.
    struct Part {
        std::string text;
        SvgStyle style;
    };
    struct Line {
        double x = 0, y = 0;
        std::vector<Part> parts;
    };
    struct BoxReference {
        std::size_t command;
        bool isPlaced;
        std::string box;
        double padding;
    };

    [[nodiscard]] std::string textOf(const Line &line) const;
    [[nodiscard]] FitRule readFit(const SvgStyle &style) const;
    void readDataAttributes(const XmlAttributes &attributes);
    void addCommand(FormDocument &form, const Line &line, const std::string &text);

    /// Reports properties of a text that do not have the effect that its editor may expect.
    void reportSurprises(const TextCommand &command, const SvgStyle &style) const;

    bool m_isOpen = false;
    bool m_isPlaced = false; ///< the element or a span has a position of its own
    std::string m_id;
    Affine m_transform;
    CommandPlace m_place;
    std::map<std::string, std::string, std::less<>> m_dataAttributes; ///< without their prefix
    std::vector<Line> m_lines;
    NoticeHandler m_report;
    std::vector<BoxReference> m_boxReferences;
};

} // namespace inin::viewer
