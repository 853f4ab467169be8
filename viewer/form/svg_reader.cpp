#include "viewer/form/svg_reader.h"

#include "runtime/runtime_error.h"
#include "runtime/text.h"
#include "viewer/form/svg_style_sheet.h"
#include "viewer/form/svg_text.h"
#include "viewer/form/svg_values.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <map>

namespace inin::viewer {

namespace {

constexpr std::string_view kSvgSpace = "http://www.w3.org/2000/svg";
constexpr double kPointsPerPixel = 0.75;
constexpr const char *kOffPageNotice = "ページから遠く離れた図形や大きすぎる図形は表示しません。";
constexpr double kLargestPage = 14400; ///< points; the limit of PDF

/// An element that is not drawn, with the notice about it; no notice for elements that are expected in a form.
struct Skipped {
    std::string_view name;
    std::string_view notice;
};
constexpr Skipped kSkipped[] = {
    {"title", ""},
    {"desc", ""},
    {"metadata", ""},
    {"defs", ""},
    {"namedview", ""},
    {"script", "スクリプトは実行しません。"},
    {"style", ""}, // read by StyleCollector
    {"image", "画像は表示しません。外部のファイルも読み込みません。"},
    {"use", "複製（use）は表示しません。複製を独立したオブジェクトにしてください。"},
    {"foreignObject", "foreignObject は表示しません。"},
    {"symbol", "シンボルは表示しません。"},
    {"flowRoot", "流し込み文字は表示しません。通常の文字に変換してください。"},
    {"textPath", "パスに沿った文字は表示しません。"},
};

double coordinate(const XmlAttributes &attributes, std::string_view name)
{
    return readLength(attributes.get(name)).value_or(0);
}

Path pathOfPoints(std::string_view text, bool isClosed)
{
    const std::vector<double> numbers = readNumbers(text);
    Path path;
    for (std::size_t i = 0; i + 1 < numbers.size(); i += 2)
        path.push_back({i == 0 ? PathStep::Kind::move : PathStep::Kind::line, {Point{numbers[i], numbers[i + 1]}}});
    if (isClosed && !path.empty()) path.push_back({PathStep::Kind::close, {}});
    return path;
}

Path rectangleOf(const XmlAttributes &a)
{
    const auto rx = readLength(a.get("rx")), ry = readLength(a.get("ry"));
    return rectanglePath({coordinate(a, "x"), coordinate(a, "y"), coordinate(a, "width"), coordinate(a, "height")},
                         rx.value_or(ry.value_or(0)), ry.value_or(rx.value_or(0)));
}

Path lineOf(const XmlAttributes &a)
{
    return {{PathStep::Kind::move, {Point{coordinate(a, "x1"), coordinate(a, "y1")}}},
            {PathStep::Kind::line, {Point{coordinate(a, "x2"), coordinate(a, "y2")}}}};
}

struct Shape {
    std::string_view name;
    Path (*path)(const XmlAttributes &);
};
const Shape kShapes[] = {
    {"rect", rectangleOf},
    {"line", lineOf},
    {"circle",
     [](const XmlAttributes &a) {
         return ellipsePath({coordinate(a, "cx"), coordinate(a, "cy")}, coordinate(a, "r"), coordinate(a, "r"));
     }},
    {"ellipse",
     [](const XmlAttributes &a) {
         return ellipsePath({coordinate(a, "cx"), coordinate(a, "cy")}, coordinate(a, "rx"), coordinate(a, "ry"));
     }},
    {"polyline", [](const XmlAttributes &a) { return pathOfPoints(a.get("points"), false); }},
    {"polygon", [](const XmlAttributes &a) { return pathOfPoints(a.get("points"), true); }},
    {"path", [](const XmlAttributes &a) { return readPathData(a.get("d")); }},
};

/// An open element: the transform from its user units to the page, and its style.
struct Level {
    Affine transform;
    SvgStyle style;
};

class StyleCollector : public XmlHandler {
public:
    void open(std::string_view name, const XmlAttributes &attributes) override
    {
        const std::string_view type = attributes.get("type", "text/css");
        m_isInStyle = name == "style" && type == "text/css";
        if (m_isInStyle) m_texts.emplace_back();
    }
    void close(std::string_view /*name*/) override { m_isInStyle = false; }
    void text(std::string_view text) override
    {
        if (m_isInStyle) m_texts.back() += text;
    }
    [[nodiscard]] const std::vector<std::string> &texts() const { return m_texts; }

private:
    std::vector<std::string> m_texts;
    bool m_isInStyle = false;
};

class SvgReader : public XmlHandler {
public:
    FormDocument read(std::string_view bytes)
    {
        // Rules also apply to elements before them, so they are read first.
        StyleCollector styles;
        readXml(bytes, kSvgSpace, styles);
        for (const std::string &text : styles.texts()) m_sheet.add(text, noticeHandler());
        readXml(bytes, kSvgSpace, *this);
        m_text.resolveBoxes(m_boxes, m_form);
        return std::move(m_form);
    }

    void open(std::string_view name, const XmlAttributes &attributes) override
    {
        if (m_levels.empty()) {
            openRoot(name, attributes);
            return;
        }
        if (m_skipped > 0 || name.empty()) {
            ++m_skipped;
            rememberBox(name, attributes);
            return;
        }
        const auto *const skipped = std::ranges::find(kSkipped, name, &Skipped::name);
        if (skipped != std::end(kSkipped)) {
            if (!skipped->notice.empty()) addNotice(std::string(skipped->notice));
            // Titles of single shapes are not the document's.
            m_isInTitle = name == "title" && m_levels.size() == 1;
            ++m_skipped;
            return;
        }
        openVisible(name, attributes);
    }

    void close(std::string_view name) override
    {
        if (m_skipped > 0) {
            if (--m_skipped == 0) m_isInTitle = false;
            return;
        }
        if (name == "text") m_text.close(m_form);
        m_levels.pop_back();
    }

    void text(std::string_view text) override
    {
        if (m_isInTitle) m_form.title += text;
        if (m_skipped == 0 && !m_levels.empty()) m_text.add(text, m_levels.back().style);
    }

private:
    void addNotice(std::string sentence)
    {
        if (std::ranges::find(m_form.notices, sentence) == m_form.notices.end())
            m_form.notices.push_back(std::move(sentence));
    }
    [[nodiscard]] NoticeHandler noticeHandler()
    {
        return [this](std::string sentence) { addNotice(std::move(sentence)); };
    }

    void openRoot(std::string_view name, const XmlAttributes &attributes)
    {
        if (name != "svg") throw RuntimeError(error_number::invalidCall, "SVG の文書ではありません。");
        m_form.singleNotice = attributes.get("data-single-notice");
        Level level;
        level.transform = pageTransform(attributes);
        level.style.apply(attributes, m_sheet.declarationsFor(name, attributes), noticeHandler());
        m_levels.push_back(std::move(level));
    }

    /// Sets the page size and returns the transform from the root's user units to the page.
    Affine pageTransform(const XmlAttributes &attributes)
    {
        const std::vector<double> view = readNumbers(attributes.get("viewBox"));
        const bool hasView = view.size() == 4 && view[2] > 0 && view[3] > 0;
        const auto size = [&](std::string_view name, double viewSize) {
            return kPointsPerPixel * readLength(attributes.get(name), 16, viewSize).value_or(viewSize);
        };
        m_form.width = size("width", hasView ? view[2] : 0);
        m_form.height = size("height", hasView ? view[3] : 0);
        if (!(m_form.width > 0 && m_form.height > 0 && m_form.width <= kLargestPage && m_form.height <= kLargestPage))
            throw RuntimeError(error_number::invalidCall, "用紙の大きさ（width と height）がありません。");
        if (!hasView) return {kPointsPerPixel, 0, 0, kPointsPerPixel, 0, 0};
        const double scale = std::min(m_form.width / view[2], m_form.height / view[3]);
        return Affine{1, 0, 0, 1, (m_form.width - scale * view[2]) / 2, (m_form.height - scale * view[3]) / 2} *
               Affine{scale, 0, 0, scale, -view[0] * scale, -view[1] * scale};
    }

    void openVisible(std::string_view name, const XmlAttributes &attributes)
    {
        Level level = m_levels.back();
        level.transform = level.transform * readTransform(attributes.get("transform"));
        level.style.apply(attributes, m_sheet.declarationsFor(name, attributes), noticeHandler());
        if (name == "text") m_text.open(attributes, level.transform, level.style, noticeHandler());
        if (name == "tspan") m_text.openSpan(attributes, level.style);
        const auto *const shape = std::ranges::find(kShapes, name, &Shape::name);
        if (shape != std::end(kShapes)) draw(shape->path(attributes), level, attributes);
        m_levels.push_back(std::move(level));
    }

    /// True for an element that marks the place of a code and is not drawn itself.
    bool placeCode(const XmlAttributes &attributes, const Path &path)
    {
        const auto kind = attributes.find("data-code");
        if (!kind) return false;
        if (*kind == "qr")
            m_form.codes.push_back({boundsOf(path)});
        else
            addNotice(fmt::format("コード「{}」（data-code）には対応していません。", *kind));
        return true;
    }

    void draw(Path path, const Level &level, const XmlAttributes &attributes)
    {
        transformPath(path, level.transform);
        if (!isDrawable(boundsOf(path))) {
            addNotice(kOffPageNotice);
            return;
        }
        if (placeCode(attributes, path)) return;
        const std::string_view id = attributes.get("id");
        if (!id.empty()) m_boxes[std::string(id)] = boundsOf(path);
        const double scale = level.transform.scale();
        PathCommand command{std::move(path), level.style.fillOnPaper(), level.style.evenOdd, {}};
        if (const auto color = level.style.strokeOnPaper(); color && level.style.strokeWidth > 0) {
            Stroke stroke{*color, level.style.strokeWidth * scale, level.style.dashes, level.style.cap,
                          level.style.join};
            for (double &dash : stroke.dashes) dash *= scale;
            command.stroke = std::move(stroke);
        }
        if (!level.style.isHidden && !command.path.empty() && (command.fill || command.stroke))
            m_form.commands.emplace_back(std::move(command));
    }

    /// A box may be among elements that are not drawn, such as definitions.
    void rememberBox(std::string_view name, const XmlAttributes &attributes)
    {
        if (name != "rect" || attributes.get("id").empty()) return;
        Path path = rectangleOf(attributes);
        transformPath(path, m_levels.back().transform * readTransform(attributes.get("transform")));
        m_boxes[std::string(attributes.get("id"))] = boundsOf(path);
    }

    FormDocument m_form;
    StyleSheet m_sheet;
    std::vector<Level> m_levels;
    std::map<std::string, Box, std::less<>> m_boxes;
    SvgText m_text;
    std::size_t m_skipped = 0; ///< depth inside an element that is not drawn
    bool m_isInTitle = false;
};

} // namespace

bool looksLikeXml(std::string_view bytes)
{
    if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) return true; // UTF-16
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
    bytes.remove_prefix(std::min(bytes.find_first_not_of(" \t\r\n"), bytes.size()));
    if (bytes.size() < 2 || bytes.front() != '<') return false;
    const char next = bytes[1];
    return next == '?' || next == '!' || (next >= 'a' && next <= 'z') || (next >= 'A' && next <= 'Z');
}

FormDocument readSvg(std::string_view bytes)
{
    return SvgReader().read(bytes);
}

} // namespace inin::viewer
