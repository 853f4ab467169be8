#include "viewer/layout/font.h"

#include "runtime/runtime_error.h"
#include "viewer/layout/font_faces.h"
#include "viewer/layout/glyph_outline.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>

namespace inin::viewer {

namespace {

constexpr std::size_t kPage = 256;
constexpr std::size_t kPages = kClusterBase / kPage;
/// Scripts whose characters have no forms that depend on their neighbours, except by the font's own tables.
constexpr hb_script_t kSimpleScripts[] = {HB_SCRIPT_COMMON,   HB_SCRIPT_LATIN, HB_SCRIPT_HAN,     HB_SCRIPT_HIRAGANA,
                                          HB_SCRIPT_KATAKANA, HB_SCRIPT_GREEK, HB_SCRIPT_CYRILLIC};
/// The features that a shaper applies by default.
constexpr hb_tag_t kFeatures[] = {
    HB_TAG('r', 'v', 'r', 'n'), HB_TAG('l', 'o', 'c', 'l'), HB_TAG('c', 'c', 'm', 'p'), HB_TAG('r', 'l', 'i', 'g'),
    HB_TAG('r', 'c', 'l', 't'), HB_TAG('c', 'a', 'l', 't'), HB_TAG('c', 'l', 'i', 'g'), HB_TAG('l', 'i', 'g', 'a'),
    HB_TAG('k', 'e', 'r', 'n'), HB_TAG('d', 'i', 's', 't'), HB_TAG('m', 'a', 'r', 'k'), HB_TAG('m', 'k', 'm', 'k'),
    HB_TAG('c', 'u', 'r', 's'), HB_TAG('a', 'b', 'v', 'm'), HB_TAG('b', 'l', 'w', 'm'), HB_TAG_NONE};

/// Collects the glyphs that the font's layout tables may replace or move.
void collectLayoutGlyphs(hb_face_t *face, hb_set_t *glyphs)
{
    for (const hb_tag_t table : {HB_OT_TAG_GSUB, HB_OT_TAG_GPOS}) {
        const SetHandle lookups(hb_set_create());
        hb_ot_layout_collect_lookups(face, table, nullptr, nullptr, kFeatures, lookups.get());
        for (hb_codepoint_t lookup = HB_SET_VALUE_INVALID; hb_set_next(lookups.get(), &lookup);)
            hb_ot_layout_lookup_collect_glyphs(face, table, lookup, nullptr, glyphs, nullptr, nullptr);
    }
}

bool isContextFree(char32_t character)
{
    hb_unicode_funcs_t *const unicode = hb_unicode_funcs_get_default();
    const hb_unicode_general_category_t category = hb_unicode_general_category(unicode, character);
    constexpr hb_unicode_general_category_t kShaped[] = {
        HB_UNICODE_GENERAL_CATEGORY_CONTROL,        HB_UNICODE_GENERAL_CATEGORY_FORMAT,
        HB_UNICODE_GENERAL_CATEGORY_UNASSIGNED,     HB_UNICODE_GENERAL_CATEGORY_PRIVATE_USE,
        HB_UNICODE_GENERAL_CATEGORY_SURROGATE,      HB_UNICODE_GENERAL_CATEGORY_SPACING_MARK,
        HB_UNICODE_GENERAL_CATEGORY_ENCLOSING_MARK, HB_UNICODE_GENERAL_CATEGORY_NON_SPACING_MARK};
    return std::ranges::find(kShaped, category) == std::end(kShaped) &&
           std::ranges::find(kSimpleScripts, hb_unicode_script(unicode, character)) != std::end(kSimpleScripts);
}

} // namespace

struct Font::Faces {
    FaceHandle face;
    FontHandle font;
    BufferHandle buffer;
    DrawHandle draw;
    SetHandle layoutGlyphs;
    double scale = 1; ///< from font units to thousandths of the size
    std::array<std::unique_ptr<std::array<CharacterEntry, kPage>>, kPages> characters;
    std::vector<std::u32string> clusters;
    std::map<std::u32string, std::uint32_t, std::less<>> clusterNumbers;
};

Font::Font(std::string path, int index) : m_path(std::move(path)), m_index(index), m_faces(std::make_unique<Faces>())
{
    const BlobHandle blob = openFontFile(m_path);
    if (blob) m_faces->face.reset(hb_face_create(blob.get(), static_cast<unsigned>(index)));
    if (!m_faces->face || hb_face_get_glyph_count(m_faces->face.get()) == 0)
        throw RuntimeError(error_number::fileNotFound, fmt::format("フォントのファイル「{}」を読めません。", m_path));
    m_faces->font.reset(hb_font_create(m_faces->face.get()));
    m_faces->buffer.reset(hb_buffer_create());
    m_faces->draw = makeOutlineFunctions();
    m_faces->layoutGlyphs.reset(hb_set_create());
    collectLayoutGlyphs(m_faces->face.get(), m_faces->layoutGlyphs.get());
    m_faces->scale = 1000.0 / hb_face_get_upem(m_faces->face.get());
    hb_font_extents_t extents{};
    hb_font_get_h_extents(m_faces->font.get(), &extents);
    m_ascent = extents.ascender * m_faces->scale;
    m_descent = extents.descender * m_faces->scale;
}

Font::~Font() = default;

std::string Font::postScriptName() const
{
    std::array<char, 128> name{};
    auto size = static_cast<unsigned>(name.size());
    hb_ot_name_get_utf8(m_faces->face.get(), HB_OT_NAME_ID_POSTSCRIPT_NAME, HB_LANGUAGE_INVALID, &size, name.data());
    return name.data();
}

std::uint32_t Font::glyphCount() const
{
    return hb_face_get_glyph_count(m_faces->face.get());
}

float Font::advanceOf(std::uint32_t glyph) const
{
    return static_cast<float>(hb_font_get_glyph_h_advance(m_faces->font.get(), glyph) * m_faces->scale);
}

Font::CharacterEntry Font::lookUp(char32_t character) const
{
    CharacterEntry result{Kind::needsShaping, 0, 0};
    hb_codepoint_t glyph = 0;
    if (!hb_font_get_nominal_glyph(m_faces->font.get(), character, &glyph)) return result;
    result.glyph = glyph;
    if (!isContextFree(character) || hb_set_has(m_faces->layoutGlyphs.get(), glyph)) return result;
    return {Kind::plain, advanceOf(glyph), glyph};
}

const Font::CharacterEntry &Font::entryOf(char32_t character) const
{
    auto &page = m_faces->characters[std::min<std::size_t>(character, kClusterBase - 1) / kPage];
    if (!page) page = std::make_unique<std::array<CharacterEntry, kPage>>();
    CharacterEntry &entry = (*page)[character % kPage];
    if (entry.kind == Kind::unknown) entry = lookUp(character);
    return entry;
}

void Font::shape(std::u32string_view text, std::vector<ShapedGlyph> &glyphs, std::vector<char32_t> &missing) const
{
    const std::size_t before = glyphs.size();
    glyphs.resize(before + text.size());
    float x = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const CharacterEntry &entry = entryOf(text[i]);
        if (entry.kind != Kind::plain) {
            glyphs.resize(before);
            shapeWhole(text, glyphs, missing);
            return;
        }
        glyphs[before + i] = {entry.glyph, text[i], x, entry.advance};
        x += entry.advance;
    }
}

std::uint32_t Font::textOf(std::u32string_view cluster) const
{
    if (cluster.size() == 1) return cluster.front();
    const auto found = m_faces->clusterNumbers.find(cluster);
    if (found != m_faces->clusterNumbers.end()) return found->second;
    const auto number = kClusterBase + static_cast<std::uint32_t>(m_faces->clusters.size());
    m_faces->clusters.emplace_back(cluster);
    m_faces->clusterNumbers.emplace(cluster, number);
    return number;
}

void Font::shapeInto(std::u32string_view text, bool isDown) const
{
    hb_buffer_t *const buffer = m_faces->buffer.get();
    hb_buffer_clear_contents(buffer);
    const auto *const characters = reinterpret_cast<const std::uint32_t *>(text.data());
    hb_buffer_add_utf32(buffer, characters, static_cast<int>(text.size()), 0, static_cast<int>(text.size()));
    hb_buffer_set_direction(buffer, isDown ? HB_DIRECTION_TTB : HB_DIRECTION_LTR);
    hb_buffer_set_language(buffer, hb_language_from_string("ja", -1));
    hb_buffer_guess_segment_properties(buffer);
    hb_shape(m_faces->font.get(), buffer, nullptr, 0);
}

/// Appends the glyphs of the buffer. `place` sets the position of each from the shaper's and advances the pen.
template <class Place>
void Font::appendShaped(std::u32string_view text, std::vector<ShapedGlyph> &glyphs, std::vector<char32_t> &missing,
                        const Place &place) const
{
    unsigned count = 0;
    const hb_glyph_info_t *const infos = hb_buffer_get_glyph_infos(m_faces->buffer.get(), &count);
    const hb_glyph_position_t *const places = hb_buffer_get_glyph_positions(m_faces->buffer.get(), &count);
    double pen = 0;
    for (unsigned i = 0; i < count; ++i) {
        const std::size_t begin = infos[i].cluster;
        const bool isFirst = i == 0 || infos[i - 1].cluster != infos[i].cluster;
        unsigned next = i + 1;
        while (next < count && infos[next].cluster == infos[i].cluster) ++next;
        const std::size_t end = next < count ? infos[next].cluster : text.size();
        const auto cluster = text.substr(begin, end - begin);
        if (infos[i].codepoint == 0 && isFirst) missing.insert(missing.end(), cluster.begin(), cluster.end());
        ShapedGlyph glyph{infos[i].codepoint, isFirst ? textOf(cluster) : 0};
        place(places[i], pen, glyph);
        glyphs.push_back(glyph);
    }
}

void Font::shapeWhole(std::u32string_view text, std::vector<ShapedGlyph> &glyphs, std::vector<char32_t> &missing) const
{
    shapeInto(text, false);
    appendShaped(text, glyphs, missing, [&](const hb_glyph_position_t &at, double &pen, ShapedGlyph &glyph) {
        const double advance = at.x_advance * m_faces->scale;
        glyph.x = static_cast<float>(pen + at.x_offset * m_faces->scale);
        glyph.advance = static_cast<float>(advance);
        pen += advance;
    });
}

void Font::shapeVertical(std::u32string_view text, std::vector<ShapedGlyph> &glyphs,
                         std::vector<char32_t> &missing) const
{
    shapeInto(text, true);
    // The shaper's y grows upwards.
    appendShaped(text, glyphs, missing, [&](const hb_glyph_position_t &at, double &pen, ShapedGlyph &glyph) {
        const double advance = -at.y_advance * m_faces->scale;
        glyph.x = static_cast<float>(pen);
        glyph.advance = static_cast<float>(advance);
        glyph.offsetX = static_cast<float>(at.x_offset * m_faces->scale);
        glyph.offsetY = static_cast<float>(-at.y_offset * m_faces->scale);
        pen += advance;
    });
}

bool Font::hasVerticalForm(char32_t character) const
{
    shapeInto({&character, 1}, true);
    unsigned count = 0;
    const hb_glyph_info_t *const infos = hb_buffer_get_glyph_infos(m_faces->buffer.get(), &count);
    return count == 1 && infos[0].codepoint != entryOf(character).glyph;
}

std::u32string Font::charactersOf(std::uint32_t text) const
{
    if (text == 0) return {};
    if (text < kClusterBase) return {static_cast<char32_t>(text)};
    return m_faces->clusters.at(text - kClusterBase);
}

Path Font::outlineOf(std::uint32_t glyph) const
{
    return glyphOutline(m_faces->font.get(), glyph, m_faces->draw.get(), m_faces->scale / 1000);
}

Font::Subset Font::subsetOf(std::span<const std::uint32_t> glyphs) const
{
    const SubsetInputHandle input(hb_subset_input_create_or_fail());
    if (!input) throw RuntimeError(error_number::outOfMemory);
    hb_set_t *const wanted = hb_subset_input_glyph_set(input.get());
    for (const std::uint32_t glyph : glyphs) hb_set_add(wanted, glyph);
    // A PDF needs outlines and metrics only; the text is already shaped.
    hb_subset_input_set_flags(input.get(), HB_SUBSET_FLAGS_NO_HINTING | HB_SUBSET_FLAGS_NOTDEF_OUTLINE);
    hb_set_t *const dropped = hb_subset_input_set(input.get(), HB_SUBSET_SETS_DROP_TABLE_TAG);
    for (const char *const table : {"GSUB", "GPOS", "GDEF", "OS/2", "cmap", "name", "post", "vhea", "vmtx", "VORG"})
        hb_set_add(dropped, hb_tag_from_string(table, -1));
    const PlanHandle plan(hb_subset_plan_create_or_fail(m_faces->face.get(), input.get()));
    const FaceHandle reduced(plan ? hb_subset_plan_execute_or_fail(plan.get()) : nullptr);
    if (!reduced)
        throw RuntimeError(error_number::invalidCall,
                           fmt::format("フォント「{}」を埋め込めません。", postScriptName()));
    const BlobHandle blob(hb_face_reference_blob(reduced.get()));
    unsigned size = 0;
    const char *const bytes = hb_blob_get_data(blob.get(), &size);
    Subset subset{{bytes, size}, {}};
    const hb_map_t *const places = hb_subset_plan_old_to_new_glyph_mapping(plan.get());
    for (const std::uint32_t glyph : glyphs) {
        const hb_codepoint_t place = hb_map_get(places, glyph);
        subset.newGlyphs.push_back(place == HB_MAP_VALUE_INVALID ? 0 : place);
    }
    return subset;
}

} // namespace inin::viewer
