#include "viewer/form/svg_reader.h"

#include "runtime/runtime_error.h"
#include "runtime/text.h"
#include "viewer/form/svg_pages.h"
#include "viewer/form/svg_shapes.h"
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
    {"use", "複製（use）は表示しません。複製を独立したオブジェクトにしてください。"},
    {"foreignObject", "foreignObject は表示しません。"},
    {"symbol", "シンボルは表示しません。"},
    {"flowRoot", "流し込み文字は表示しません。通常の文字に変換してください。"},
    {"textPath", "パスに沿った文字は表示しません。"},
};

/// An open element: the transform from its user units to the page, its style, and when it is drawn.
struct Level {
    Affine transform;
    SvgStyle style;
    CommandPlace place = {};
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
    explicit SvgReader(const PictureFiles &files) : m_images(files) {}

    FormDocument read(std::string_view bytes)
    {
        // Rules also apply to elements before them, so they are read first.
        StyleCollector styles;
        readXml(bytes, kSvgSpace, styles);
        for (const std::string &text : styles.texts()) m_sheet.add(text, noticeHandler());
        readXml(bytes, kSvgSpace, *this);
        m_text.resolveBoxes(m_boxes, m_form);
        distributeOverPages(m_form, m_pages, noticeHandler());
        return std::move(m_form);
    }

    void open(std::string_view name, const XmlAttributes &attributes) override
    {
        if (m_levels.empty()) {
            openRoot(name, attributes);
            return;
        }
        if (m_skipped > 0 || name.empty() || name.find(':') != std::string_view::npos) {
            ++m_skipped;
            if (name == "inkscape:page") addPage(attributes);
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

    FormPaper paperOf(std::string_view word)
    {
        if (word == "own") return FormPaper::own;
        if (word == "script") return FormPaper::script;
        if (!word.empty())
            addNotice(fmt::format("用紙の指定「{}」（data-paper）は使えません。own か script です。", word));
        return FormPaper::standard;
    }

    void openRoot(std::string_view name, const XmlAttributes &attributes)
    {
        if (name != "svg") throw RuntimeError(error_number::invalidCall, "SVG の文書ではありません。");
        m_form.singleNotice = attributes.get("data-single-notice");
        m_form.paper = paperOf(attributes.get("data-paper"));
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
        addRules(attributes, level.place);
        if (name == "text") m_text.open(attributes, level.transform, level.style, level.place, noticeHandler());
        if (name == "tspan") m_text.openSpan(attributes, level.style);
        if (auto shape = shapeOf(name, attributes)) draw(std::move(*shape), level, attributes);
        if (name == "image") drawImage(attributes, level);
        m_levels.push_back(std::move(level));
    }

    void addRules(const XmlAttributes &attributes, CommandPlace &place)
    {
        const auto add = [&](ShowRule rule) {
            rule.parent = place.rule;
            m_form.rules.push_back(std::move(rule));
            place.rule = m_form.rules.size();
        };
        if (const auto text = attributes.find("data-if")) add(readShowRule(*text));
        if (const auto text = attributes.find("data-unless")) add(opposite(readShowRule(*text)));
    }

    void drawImage(const XmlAttributes &attributes, const Level &level)
    {
        auto command = m_images.read(attributes, level.transform, level.style, noticeHandler());
        if (!command) return;
        command->place = level.place;
        m_form.commands.emplace_back(std::move(*command));
    }

    /// A page of a drawing with several pages, in the root's user units.
    void addPage(const XmlAttributes &attributes)
    {
        Path path = rectangleOf(attributes);
        transformPath(path, m_levels.front().transform);
        const Box area = boundsOf(path);
        if (area.width > 0 && area.height > 0 && area.width <= kLargestPage && area.height <= kLargestPage)
            m_pages.push_back(area);
    }

    /// True for an element that marks the place of a code and is not drawn itself.
    bool placeCode(const XmlAttributes &attributes, const Path &path, const Level &level)
    {
        const auto kind = attributes.find("data-code");
        if (!kind) return false;
        if (*kind == "qr")
            m_form.codes.push_back({boundsOf(path), level.place});
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
        if (placeCode(attributes, path, level)) return;
        const std::string_view id = attributes.get("id");
        if (!id.empty()) m_boxes[std::string(id)] = boundsOf(path);
        const double scale = level.transform.scale();
        PathCommand command{std::move(path), level.style.fillOnPaper(), level.style.evenOdd, {}, level.place};
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
    SvgImages m_images;
    std::vector<Box> m_pages;
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

FormDocument readSvg(std::string_view bytes, const PictureFiles &files)
{
    return SvgReader(files).read(bytes);
}

} // namespace inin::viewer
