#include "viewer/layout/fonts.h"

#include "runtime/runtime_error.h"
#include "viewer/layout/font.h"
#include "viewer/layout/font_catalogue.h"

#include <fmt/format.h>

#include <algorithm>

namespace inin::viewer {

namespace {

/// A generic family of CSS and the font that is preferred for it.
struct GenericFamily {
    std::string_view name;
    const char *font;
};
constexpr GenericFamily kGenericFamilies[] = {
    {"serif", "IPAexMincho"}, {"sans-serif", "IPAexGothic"}, {"monospace", "IPAexGothic"}};

} // namespace

Fonts::Fonts() : Fonts(makeFontCatalogue()) {}
Fonts::Fonts(std::unique_ptr<FontCatalogue> catalogue) : m_catalogue(std::move(catalogue)) {}
Fonts::~Fonts() = default;

const Font &Fonts::font(const std::string &family)
{
    const auto known = std::ranges::find(m_entries, family, &Entry::family);
    if (known != m_entries.end()) return *known->font;
    const auto *const generic = std::ranges::find(kGenericFamilies, family, &GenericFamily::name);
    const bool isGeneric = generic != std::end(kGenericFamilies);
    const auto found = m_catalogue->find(isGeneric ? generic->font : family);
    if (!found)
        throw RuntimeError(error_number::fileNotFound, "帳票に使えるフォントがこのコンピューターにありません。");
    if (!found->isExact && !isGeneric)
        m_notices.push_back(fmt::format("フォント「{}」がないので「{}」で表示します。", family, found->font.name));
    const Font &font = opened(found->font);
    m_entries.push_back({family, &font});
    return font;
}

void Fonts::forgetFamilies()
{
    m_entries.clear();
    m_notices.clear();
}

const Font &Fonts::opened(const FontLocation &place)
{
    const auto isThis = [&](const auto &open) { return open->path() == place.path && open->index() == place.index; };
    const auto known = std::ranges::find_if(m_fonts, isThis);
    if (known != m_fonts.end()) return **known;
    return *m_fonts.emplace_back(std::make_unique<Font>(place.path, place.index));
}

const Font *Fonts::fallbackFor(char32_t character)
{
    const auto [place, isNew] = m_fallbacks.try_emplace(character, nullptr);
    if (isNew) place->second = findFallback(character);
    return place->second;
}

const Font *Fonts::findFallback(char32_t character)
{
    for (const FontLocation &place : m_catalogue->withCharacter(character)) {
        try {
            const Font &font = opened(place);
            if (font.has(character)) return &font;
        } catch (const RuntimeError &) {
            // Skip a file of the catalogue that is broken or no longer exists.
            continue;
        }
    }
    return nullptr;
}

} // namespace inin::viewer
