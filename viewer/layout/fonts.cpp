#include "viewer/layout/fonts.h"

#include "runtime/runtime_error.h"
#include "runtime/text.h"
#include "viewer/layout/font.h"

#include <fmt/format.h>
#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <optional>

namespace inin::viewer {

namespace {

struct FreePattern {
    void operator()(FcPattern *pattern) const { FcPatternDestroy(pattern); }
};
struct FreeConfig {
    void operator()(FcConfig *config) const { FcConfigDestroy(config); }
};
struct FreeSet {
    void operator()(FcFontSet *set) const { FcFontSetDestroy(set); }
};
using PatternHandle = std::unique_ptr<FcPattern, FreePattern>;
using SetHandle = std::unique_ptr<FcFontSet, FreeSet>;

/// Families that any font may answer to, with the one that is asked for first.
struct Generic {
    std::string_view name;
    const char *first;
};
constexpr Generic kGenerics[] = {{"serif", "IPAexMincho"}, {"sans-serif", "IPAexGothic"}, {"monospace", "IPAexGothic"}};

const FcChar8 *bytes(const char *text)
{
    return reinterpret_cast<const FcChar8 *>(text);
}

std::string textOf(FcPattern *pattern, const char *property, int index = 0)
{
    FcChar8 *text = nullptr;
    if (FcPatternGetString(pattern, property, index, &text) != FcResultMatch) return {};
    return reinterpret_cast<const char *>(text);
}

bool hasTrueTypeOutlines(FcPattern *pattern)
{
    return textOf(pattern, FC_FONTFORMAT) == "TrueType";
}

bool answersTo(FcPattern *pattern, const std::string &family)
{
    for (int i = 0;; ++i) {
        const std::string name = textOf(pattern, FC_FAMILY, i);
        if (name.empty()) return false;
        if (equalsIgnoringAsciiCase(name, family)) return true;
    }
}

struct Found {
    std::string path, name;
    int index = 0;
    bool isAsked = false;
};

Found describe(FcPattern *pattern, const std::string &family)
{
    Found found{textOf(pattern, FC_FILE), textOf(pattern, FC_FAMILY), 0, answersTo(pattern, family)};
    FcPatternGetInteger(pattern, FC_INDEX, 0, &found.index);
    return found;
}

/// The nearest font of a family that can write Japanese.
std::optional<Found> findFont(FcConfig *config, const std::string &family)
{
    const PatternHandle pattern(FcPatternCreate());
    FcPatternAddString(pattern.get(), FC_FAMILY, bytes(family.c_str()));
    FcPatternAddString(pattern.get(), FC_LANG, bytes("ja"));
    FcConfigSubstitute(config, pattern.get(), FcMatchPattern);
    FcDefaultSubstitute(pattern.get());
    FcResult result = FcResultNoMatch;
    // The best match is mostly what is wanted, and costs a part of all fonts in order.
    const PatternHandle best(FcFontMatch(config, pattern.get(), &result));
    if (best && hasTrueTypeOutlines(best.get())) return describe(best.get(), family);
    const SetHandle set(FcFontSort(config, pattern.get(), FcFalse, nullptr, &result));
    if (!set) return std::nullopt;
    for (int i = 0; i < set->nfont; ++i)
        if (hasTrueTypeOutlines(set->fonts[i])) return describe(set->fonts[i], family);
    return std::nullopt;
}

} // namespace

struct Fonts::Catalogue {
    std::unique_ptr<FcConfig, FreeConfig> config{FcInitLoadConfigAndFonts()};
};

Fonts::Fonts() : m_catalogue(std::make_unique<Catalogue>()) {}
Fonts::~Fonts() = default;

const Font &Fonts::font(const std::string &family)
{
    const auto known = std::ranges::find(m_entries, family, &Entry::family);
    if (known != m_entries.end()) return *known->font;
    const auto *const generic = std::ranges::find(kGenerics, family, &Generic::name);
    const bool isGeneric = generic != std::end(kGenerics);
    const auto found = findFont(m_catalogue->config.get(), isGeneric ? generic->first : family);
    if (!found) throw RuntimeError(error_number::fileNotFound, "帳票に使える書体がこのコンピューターにありません。");
    if (!found->isAsked && !isGeneric)
        m_notices.push_back(fmt::format("書体「{}」がないので「{}」で表示します。", family, found->name));
    auto font = std::ranges::find(m_fonts, found->path, [](const auto &open) { return open->path(); });
    if (font == m_fonts.end()) font = m_fonts.insert(font, std::make_unique<Font>(found->path, found->index));
    m_entries.push_back({family, font->get()});
    return **font;
}

} // namespace inin::viewer
