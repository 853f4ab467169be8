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

/// Who stands in for a font that lacks a character, in this order: the first has the characters of family registers.
constexpr const char *kStandIns[] = {"IPAmjMincho", "IPAexMincho", "IPAexGothic", "DejaVu Serif", "DejaVu Sans"};

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

bool isTrue(FcPattern *pattern, const char *property)
{
    FcBool value = FcFalse;
    return FcPatternGetBool(pattern, property, 0, &value) == FcResultMatch && value == FcTrue;
}

/// Upright, of ordinary weight, with outlines of one colour.
bool isOrdinary(FcPattern *pattern)
{
    int weight = FC_WEIGHT_REGULAR, slant = FC_SLANT_ROMAN;
    FcPatternGetInteger(pattern, FC_WEIGHT, 0, &weight);
    FcPatternGetInteger(pattern, FC_SLANT, 0, &slant);
    return weight > FC_WEIGHT_LIGHT && weight < FC_WEIGHT_DEMIBOLD && slant == FC_SLANT_ROMAN &&
           isTrue(pattern, FC_OUTLINE) && !isTrue(pattern, FC_COLOR) && !isTrue(pattern, FC_VARIABLE);
}

bool hasCharacter(FcPattern *pattern, char32_t character)
{
    FcCharSet *characters = nullptr;
    return FcPatternGetCharSet(pattern, FC_CHARSET, 0, &characters) == FcResultMatch &&
           FcCharSetHasChar(characters, character) == FcTrue;
}

std::size_t rankOf(FcPattern *pattern)
{
    const auto *const found =
        std::ranges::find_if(kStandIns, [&](const char *family) { return answersTo(pattern, family); });
    return static_cast<std::size_t>(found - std::begin(kStandIns));
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

    /// The fonts that may stand in for another, the nearest first; gathered when one is first needed.
    const std::vector<FcPattern *> &standIns()
    {
        FcFontSet *const all = FcConfigGetFonts(config.get(), FcSetSystem);
        if (!ranked.empty() || all == nullptr) return ranked;
        ranked.assign(all->fonts, all->fonts + all->nfont);
        std::erase_if(ranked, [](FcPattern *font) { return !hasTrueTypeOutlines(font) || !isOrdinary(font); });
        // By path where the rank is the same: the machine's order of folders must not change a letter.
        std::ranges::sort(ranked, {}, [](FcPattern *font) { return std::pair(rankOf(font), textOf(font, FC_FILE)); });
        return ranked;
    }
    std::vector<FcPattern *> ranked;
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
    const Font &font = opened(found->path, found->index);
    m_entries.push_back({family, &font});
    return font;
}

const Font &Fonts::opened(const std::string &path, int index)
{
    const auto isThis = [&](const auto &open) { return open->path() == path && open->index() == index; };
    const auto known = std::ranges::find_if(m_fonts, isThis);
    if (known != m_fonts.end()) return **known;
    return *m_fonts.emplace_back(std::make_unique<Font>(path, index));
}

const Font *Fonts::fontWith(char32_t character)
{
    const auto [place, isNew] = m_standIns.try_emplace(character, nullptr);
    if (isNew) place->second = findFontWith(character);
    return place->second;
}

const Font *Fonts::findFontWith(char32_t character)
{
    for (FcPattern *const pattern : m_catalogue->standIns()) {
        if (!hasCharacter(pattern, character)) continue;
        const Found found = describe(pattern, {});
        try {
            const Font &font = opened(found.path, found.index);
            if (font.has(character)) return &font;
        } catch (const RuntimeError &) {
            // A file that the catalogue knows and that is broken or gone by now stands in for nothing.
            continue;
        }
    }
    return nullptr;
}

} // namespace inin::viewer
