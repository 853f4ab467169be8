#include "viewer/layout/font_catalogue.h"

#include "runtime/text.h"

#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <new>

namespace inin::viewer {

namespace {

struct FontconfigDeleter {
    void operator()(FcPattern *pattern) const { FcPatternDestroy(pattern); }
    void operator()(FcConfig *config) const { FcConfigDestroy(config); }
    void operator()(FcFontSet *set) const { FcFontSetDestroy(set); }
};
using PatternHandle = std::unique_ptr<FcPattern, FontconfigDeleter>;
using FontSetHandle = std::unique_ptr<FcFontSet, FontconfigDeleter>;
using ConfigHandle = std::unique_ptr<FcConfig, FontconfigDeleter>;

/// The preferred fallback fonts in order. The first has the characters of family registers.
constexpr const char *kFallbacks[] = {"IPAmjMincho", "IPAexMincho", "IPAexGothic", "DejaVu Serif", "DejaVu Sans"};

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

bool hasFamily(FcPattern *pattern, const std::string &family)
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

/// Not slanted, of regular weight, neither a colour font nor a variable font.
bool isRegular(FcPattern *pattern)
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
        std::ranges::find_if(kFallbacks, [&](const char *family) { return hasFamily(pattern, family); });
    return static_cast<std::size_t>(found - std::begin(kFallbacks));
}

FontLocation placeOf(FcPattern *pattern)
{
    FontLocation place{textOf(pattern, FC_FILE), 0, textOf(pattern, FC_FAMILY)};
    FcPatternGetInteger(pattern, FC_INDEX, 0, &place.index);
    return place;
}

/// The fonts that fontconfig knows, in a configuration of its own.
class FontconfigFonts : public FontCatalogue {
public:
    /// The closest font by fontconfig's rules if it has the style of the family. Fontconfig would replace a missing gothic
    /// by a mincho that has more Japanese characters.
    std::optional<Match> find(const std::string &family) override
    {
        auto match = nearest(family);
        const JapaneseStyle style = styleOfName(family);
        if (!match || match->isExact || styleOfName(match->font.name) == style) return match;
        for (const JapaneseFamily &known : japaneseFamilies()) {
            if (known.style != style) continue;
            const auto other = nearest(std::string(known.name));
            if (other && other->isExact) return Match{other->font, false};
        }
        return match;
    }

    std::vector<FontLocation> withCharacter(char32_t character) override
    {
        std::vector<FontLocation> places;
        for (FcPattern *const font : fallbacks())
            if (hasCharacter(font, character)) places.push_back(placeOf(font));
        return places;
    }

private:
    std::optional<Match> nearest(const std::string &family)
    {
        const PatternHandle pattern(FcPatternCreate());
        // These calls fail only if memory runs out. A pattern without its family would match any font.
        if (!pattern || FcPatternAddString(pattern.get(), FC_FAMILY, bytes(family.c_str())) == FcFalse ||
            FcPatternAddString(pattern.get(), FC_LANG, bytes("ja")) == FcFalse ||
            FcConfigSubstitute(m_config.get(), pattern.get(), FcMatchPattern) == FcFalse)
            throw std::bad_alloc();
        FcDefaultSubstitute(pattern.get());
        FcResult result = FcResultNoMatch;
        const auto match = [&](FcPattern *font) { return Match{placeOf(font), hasFamily(font, family)}; };
        // The best match is usually suitable and much cheaper than sorting all fonts.
        const PatternHandle best(FcFontMatch(m_config.get(), pattern.get(), &result));
        if (best && hasTrueTypeOutlines(best.get())) return match(best.get());
        const FontSetHandle set(FcFontSort(m_config.get(), pattern.get(), FcFalse, nullptr, &result));
        for (int i = 0; set && i < set->nfont; ++i)
            if (hasTrueTypeOutlines(set->fonts[i])) return match(set->fonts[i]);
        return std::nullopt;
    }

    /// All fallback fonts, the preferred ones first; collected on first use.
    const std::vector<FcPattern *> &fallbacks()
    {
        FcFontSet *const all = FcConfigGetFonts(m_config.get(), FcSetSystem);
        if (!m_ranked.empty() || all == nullptr) return m_ranked;
        m_ranked.assign(all->fonts, all->fonts + all->nfont);
        std::erase_if(m_ranked, [](FcPattern *font) { return !hasTrueTypeOutlines(font) || !isRegular(font); });
        // Fonts of the same rank by path: the output must not depend on the machine's order of folders.
        std::ranges::sort(m_ranked, {}, [](FcPattern *font) { return std::pair(rankOf(font), textOf(font, FC_FILE)); });
        return m_ranked;
    }

    ConfigHandle m_config{FcInitLoadConfigAndFonts()};
    std::vector<FcPattern *> m_ranked;
};

} // namespace

std::unique_ptr<FontCatalogue> makeSystemFontCatalogue()
{
    return std::make_unique<FontconfigFonts>();
}

} // namespace inin::viewer
