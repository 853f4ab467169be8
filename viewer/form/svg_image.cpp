#include "viewer/form/svg_image.h"

#include "runtime/runtime_error.h"
#include "runtime/text.h"
#include "viewer/form/picture.h"
#include "viewer/form/svg_values.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

namespace inin::viewer {

namespace {

/// Of all pictures of a form together: A4 at 400 dots per inch.
constexpr std::size_t kMostPixels = 16'000'000;
constexpr std::string_view kDataScheme = "data:", kBase64 = ";base64,";

[[noreturn]] void refuseReference(std::string sentence)
{
    throw RuntimeError(error_number::invalidPicture, std::move(sentence));
}

std::string decodedBase64(std::string_view text)
{
    constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string out;
    out.reserve(text.size() / 4 * 3);
    unsigned bits = 0, count = 0;
    for (const char c : text) {
        if (c == '=') break;
        if (c == ' ' || c == '\t' || c == '\r' || c == '\n') continue;
        const std::size_t digit = kDigits.find(c);
        if (digit == std::string_view::npos) refuseReference("埋め込みの文字（base64）が壊れています。");
        bits = bits << 6U | static_cast<unsigned>(digit);
        count += 6;
        if (count < 8) continue;
        count -= 8;
        out += static_cast<char>(bits >> count & 0xFFU);
    }
    return out;
}

int hexDigit(char c)
{
    if (c >= '0' && c <= '9') return c - '0';
    const char lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

/// Drawing programs write other characters than ASCII as %E5….
std::string withoutPercents(std::string_view text)
{
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isCode =
            text[i] == '%' && i + 2 < text.size() && hexDigit(text[i + 1]) >= 0 && hexDigit(text[i + 2]) >= 0;
        out += isCode ? static_cast<char>(hexDigit(text[i + 1]) * 16 + hexDigit(text[i + 2])) : text[i];
        if (isCode) i += 2;
    }
    return out;
}

bool hasScheme(std::string_view reference)
{
    return reference.find(':') < reference.find('/');
}

/// The reference as a person knows it, without the bytes of an embedded picture.
std::string shownName(std::string_view reference, const XmlAttributes &attributes)
{
    constexpr std::size_t kShown = 80;
    if (!reference.starts_with(kDataScheme)) return std::string(left(withoutPercents(reference), kShown));
    return attributes.get("id").empty() ? "埋め込み" : std::string(attributes.get("id"));
}

/// The transform from the unit square to an element's box. Unless "none" is requested, the picture keeps its shape and
/// is as large as fits.
Affine placeIn(const Box &box, const Picture &picture, std::string_view aspect)
{
    if (aspect.starts_with("none")) return {box.width, 0, 0, box.height, box.left, box.top};
    const auto width = static_cast<double>(picture.width), height = static_cast<double>(picture.height);
    const double scale = std::min(box.width / width, box.height / height);
    const auto share = [&](std::string_view least, std::string_view most) {
        return aspect.find(least) != std::string_view::npos  ? 0.0
               : aspect.find(most) != std::string_view::npos ? 1.0
                                                             : 0.5;
    };
    return {scale * width,
            0,
            0,
            scale * height,
            box.left + share("xMin", "xMax") * (box.width - scale * width),
            box.top + share("YMin", "YMax") * (box.height - scale * height)};
}

} // namespace

std::string SvgImages::bytesOf(std::string_view reference) const
{
    if (reference.starts_with(kDataScheme)) {
        const std::size_t data = reference.find(kBase64);
        if (data == std::string_view::npos) refuseReference("base64 で埋め込んでください。");
        return decodedBase64(reference.substr(data + kBase64.size()));
    }
    if (hasScheme(reference))
        refuseReference(
            "URL や絶対パスの画像は読み込みません。帳票と同じフォルダーに置き、相対パスで指定してください。");
    if (!m_files) refuseReference("帳票の外の画像は読み込みません。");
    return m_files(withoutPercents(reference));
}

std::shared_ptr<const Picture> SvgImages::pictureOf(std::string_view reference, double opacity)
{
    std::shared_ptr<const Picture> &known = m_pictures[{std::string(reference), opacity}];
    if (known) return known;
    Picture picture = decodePicture(bytesOf(reference), kMostPixels - m_pixels);
    m_pixels += picture.width * picture.height;
    if (opacity < 1) fade(picture, opacity);
    return known = std::make_shared<const Picture>(std::move(picture));
}

std::optional<PictureCommand> SvgImages::read(const XmlAttributes &attributes, const Affine &transform,
                                              const SvgStyle &style, const NoticeHandler &report)
{
    const std::string reference = trim(attributes.find("href").value_or(attributes.get("xlink:href")));
    if (reference.empty() || style.isHidden || style.opacity <= 0) return std::nullopt;
    const std::string name = shownName(reference, attributes);
    try {
        const std::shared_ptr<const Picture> picture = pictureOf(reference, style.opacity);
        if (picture->isAnimated) report(fmt::format("画像「{}」：動く画像は、最初の一枚だけを表示します。", name));
        const auto length = [&](std::string_view attribute, std::size_t pixels) {
            return readLength(attributes.get(attribute)).value_or(static_cast<double>(pixels));
        };
        const Box box{length("x", 0), length("y", 0), length("width", picture->width),
                      length("height", picture->height)};
        const Affine at = transform * placeIn(box, *picture, attributes.get("preserveAspectRatio"));
        const Path outline = {{PathStep::Kind::move, {at({0, 0})}}, {PathStep::Kind::line, {at({1, 1})}}};
        if (!(box.width > 0 && box.height > 0)) return std::nullopt;
        if (!isDrawable(boundsOf(outline))) {
            report(fmt::format("画像「{}」：ページから遠く離れた画像や大きすぎる画像は表示しません。", name));
            return std::nullopt;
        }
        return PictureCommand{picture, at};
    } catch (const RuntimeError &error) {
        report(fmt::format("画像「{}」は表示しません。{}", name, error.description()));
        return std::nullopt;
    }
}

} // namespace inin::viewer
