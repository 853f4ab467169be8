#include "viewer/layout/font_catalogue.h"

#include "runtime/text.h"
#include "system/program_edges.h"
#include "viewer/layout/font_faces.h"

#include <algorithm>

namespace inin::viewer {

namespace {

using enum JapaneseStyle;

constexpr JapaneseFamily kFamilies[] = {
    {mincho, "IPAexMincho", "IPAex明朝"},
    {mincho, "MS Mincho", "ＭＳ 明朝"},
    {mincho, "Yu Mincho", "游明朝"},
    {mincho, "BIZ UDMincho Medium", "BIZ UD明朝 Medium"},
    {mincho, "BIZ UDMincho", "BIZ UD明朝"},
    {mincho, "IPAMincho", "IPA明朝"},
    {mincho, "Noto Serif JP", "Noto Serif JP"},
    {mincho, "IPAmjMincho", "IPAmj明朝"},
    {gothic, "IPAexGothic", "IPAexゴシック"},
    {gothic, "MS Gothic", "ＭＳ ゴシック"},
    {gothic, "Yu Gothic", "游ゴシック"},
    {gothic, "BIZ UDGothic", "BIZ UDゴシック"},
    {gothic, "Meiryo", "メイリオ"},
    {gothic, "IPAGothic", "IPAゴシック"},
    {gothic, "Noto Sans JP", "Noto Sans JP"},
};

/// Parts of names that indicate a gothic style.
constexpr std::string_view kGothicWords[] = {"gothic",    "sans",     "mono",     "meiryo", "arial",
                                             "helvetica", "ゴシック", "メイリオ", "角ゴ"};

constexpr char32_t kKana = U'あ';
constexpr std::string_view kNameSeparator = " & ";
/// The fallback fonts before and after the other Japanese ones. The first has the characters of family registers.
constexpr std::string_view kFirstFallbacks[] = {"IPAmjMincho", "IPAexMincho", "IPAexGothic"};
constexpr std::string_view kLastFallbacks[] = {"DejaVu Serif", "DejaVu Sans"};

std::vector<std::string> namesOf(std::string_view family)
{
    const JapaneseFamily *const known = japaneseFamily(family);
    if (known == nullptr) return {std::string(family)};
    return {std::string(known->name), std::string(known->japaneseName)};
}

/// A font is listed by its full name, which begins with its family: "Yu Mincho Demibold".
bool isListedUnder(const FontFile &file, const std::vector<std::string> &families)
{
    const std::string list = asciiLower(file.listedAs);
    for (std::size_t begin = 0; begin < list.size();) {
        const std::size_t end = std::min(list.find(kNameSeparator, begin), list.size());
        const std::string_view name = std::string_view(list).substr(begin, end - begin);
        if (std::ranges::any_of(families, [&](const auto &family) { return name.starts_with(asciiLower(family)); }))
            return true;
        begin = end + kNameSeparator.size();
    }
    return false;
}

bool hasAnyFamily(const FontFace &face, const std::vector<std::string> &names)
{
    return std::ranges::any_of(names, [&](const std::string &name) { return face.hasFamily(name); });
}

bool isAny(const FontFace &)
{
    return true;
}

std::vector<std::string_view> fallbackFamilies()
{
    std::vector<std::string_view> families(std::begin(kFirstFallbacks), std::end(kFirstFallbacks));
    for (const JapaneseFamily &family : japaneseFamilies()) families.push_back(family.name);
    families.insert(families.end(), std::begin(kLastFallbacks), std::end(kLastFallbacks));
    return families;
}

} // namespace

std::span<const JapaneseFamily> japaneseFamilies()
{
    return kFamilies;
}

const JapaneseFamily *japaneseFamily(std::string_view name)
{
    const auto *const found = std::ranges::find_if(kFamilies, [&](const JapaneseFamily &family) {
        return equalsIgnoringAsciiCase(family.name, name) || equalsIgnoringAsciiCase(family.japaneseName, name);
    });
    return found == std::end(kFamilies) ? nullptr : found;
}

JapaneseStyle styleOfName(std::string_view family)
{
    const std::string name = asciiLower(family);
    const bool isGothic =
        std::ranges::any_of(kGothicWords, [&](std::string_view word) { return name.find(word) != std::string::npos; });
    return isGothic ? gothic : mincho;
}

std::unique_ptr<FontCatalogue> makeFontCatalogue()
{
    const std::string folder = environmentText("ININ_FONTS");
    if (!folder.empty()) return std::make_unique<ListedFonts>(fontFilesIn(folder));
    return makeSystemFontCatalogue();
}

struct ListedFonts::File {
    FontFile file;
    bool isRead = false;
    std::vector<FontFace> faces;
};

ListedFonts::ListedFonts(std::vector<FontFile> files)
{
    for (FontFile &file : files) m_files.push_back({std::move(file), false, {}});
}

ListedFonts::~ListedFonts() = default;

const std::vector<FontFace> &ListedFonts::facesOf(File &file)
{
    if (!file.isRead) file.faces = readFontFaces(file.file.path);
    file.isRead = true;
    return file.faces;
}

std::optional<FontLocation> ListedFonts::first(const FileTest &isWanted, const FaceTest &passes)
{
    std::optional<FontLocation> other;
    for (File &file : m_files) {
        if (!isWanted(file.file)) continue;
        for (const FontFace &face : facesOf(file)) {
            if (!face.hasTrueTypeOutlines || !passes(face)) continue;
            FontLocation place{file.file.path, face.index,
                               face.families.empty() ? std::string() : face.families.front()};
            if (face.isRegular) return place;
            if (!other) other = std::move(place);
        }
    }
    return other;
}

std::optional<FontLocation> ListedFonts::fontOf(const Names &names, const FaceTest &passes)
{
    const auto answers = [&](const FontFace &face) { return hasAnyFamily(face, names) && passes(face); };
    auto font = first([&](const FontFile &file) { return isListedUnder(file, names); }, answers);
    if (font) return font;
    // A family whose names are all known would have been found in the list; others may be listed in another language.
    const bool isKnown = names.size() > 1;
    return first([&](const FontFile &file) { return !isKnown || file.listedAs.empty(); }, answers);
}

std::optional<FontLocation> ListedFonts::nearest(const std::string &family)
{
    const JapaneseStyle style = styleOfName(family);
    for (const bool isSameStyle : {true, false})
        for (const JapaneseFamily &known : japaneseFamilies()) {
            if ((known.style == style) != isSameStyle) continue;
            if (auto font = fontOf(namesOf(known.name), isAny)) return font;
        }
    const auto anyFile = [](const FontFile &) { return true; };
    if (auto font = first(anyFile, [](const FontFace &face) { return face.has(kKana); })) return font;
    return first(anyFile, isAny);
}

std::optional<FontCatalogue::Match> ListedFonts::find(const std::string &family)
{
    if (auto font = fontOf(namesOf(family), isAny)) return Match{std::move(*font), true};
    if (auto font = nearest(family)) return Match{std::move(*font), false};
    return std::nullopt;
}

std::vector<FontLocation> ListedFonts::withCharacter(char32_t character)
{
    const auto passes = [&](const FontFace &face) { return face.isRegular && face.has(character); };
    for (const std::string_view family : fallbackFamilies())
        if (auto font = fontOf(namesOf(family), passes)) return {std::move(*font)};
    std::vector<FontLocation> places;
    if (auto font = first([](const FontFile &) { return true; }, passes)) places.push_back(std::move(*font));
    return places;
}

} // namespace inin::viewer
