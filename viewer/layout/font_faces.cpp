#include "viewer/layout/font_faces.h"

#include "runtime/text.h"
#include "viewer/io/mapped_file.h"

#include <algorithm>
#include <memory>

namespace inin::viewer {

namespace {

constexpr hb_ot_name_id_t kTypographicFamily = HB_OT_NAME_ID_TYPOGRAPHIC_FAMILY;

/// A table of a font file; its numbers are big-endian.
class FontTable {
public:
    FontTable(hb_face_t *face, const char *tag) : m_blob(hb_face_reference_table(face, hb_tag_from_string(tag, -1)))
    {
        m_bytes = hb_blob_get_data(m_blob.get(), &m_size);
    }
    [[nodiscard]] bool exists() const { return m_size > 0; }
    /// 0 beyond the end.
    [[nodiscard]] unsigned twoBytes(unsigned place) const
    {
        if (place + 2 > m_size) return 0;
        return byteAt(place) << 8U | byteAt(place + 1);
    }

private:
    [[nodiscard]] unsigned byteAt(unsigned place) const { return static_cast<unsigned char>(m_bytes[place]); }

    BlobHandle m_blob;
    const char *m_bytes = nullptr;
    unsigned m_size = 0;
};

bool has(hb_face_t *face, const char *tag)
{
    return FontTable(face, tag).exists();
}

std::string nameOf(hb_face_t *face, const hb_ot_name_entry_t &entry)
{
    unsigned size = hb_ot_name_get_utf8(face, entry.name_id, entry.language, nullptr, nullptr) + 1;
    std::string name(size, '\0');
    hb_ot_name_get_utf8(face, entry.name_id, entry.language, &size, name.data());
    name.resize(size);
    return name;
}

std::vector<std::string> familiesOf(hb_face_t *face)
{
    std::vector<std::string> families;
    unsigned count = 0;
    const hb_ot_name_entry_t *const entries = hb_ot_name_list_names(face, &count);
    for (unsigned i = 0; i < count; ++i) {
        if (entries[i].name_id != HB_OT_NAME_ID_FONT_FAMILY && entries[i].name_id != kTypographicFamily) continue;
        const bool isJapanese = std::string_view(hb_language_to_string(entries[i].language)).starts_with("ja");
        families.insert(isJapanese ? families.begin() : families.end(), nameOf(face, entries[i]));
    }
    return families;
}

/// Reads usWeightClass and the bits ITALIC and OBLIQUE of fsSelection in the table OS/2.
bool isRegularFace(hb_face_t *face)
{
    constexpr unsigned kWeightPlace = 4, kSelectionPlace = 62, kItalic = 1U, kOblique = 1U << 9U;
    constexpr unsigned kLight = 300, kDemiBold = 600;
    const FontTable style(face, "OS/2");
    const unsigned weight = style.exists() ? style.twoBytes(kWeightPlace) : 400;
    const bool isSlanted = (style.twoBytes(kSelectionPlace) & (kItalic | kOblique)) != 0;
    const char *const kOtherKinds[] = {"COLR", "CBDT", "sbix", "fvar"};
    return weight > kLight && weight < kDemiBold && !isSlanted &&
           std::ranges::none_of(kOtherKinds, [&](const char *tag) { return has(face, tag); });
}

} // namespace

bool FontFace::hasFamily(const std::string &family) const
{
    return std::ranges::any_of(families,
                               [&](const std::string &name) { return equalsIgnoringAsciiCase(name, family); });
}

bool FontFace::has(char32_t character) const
{
    const FontHandle font(hb_font_create(face.get()));
    hb_codepoint_t glyph = 0;
    return hb_font_get_nominal_glyph(font.get(), character, &glyph) != 0;
}

BlobHandle openFontFile(const std::string &systemPath)
{
    auto file = std::make_unique<MappedFile>(systemPath);
    const std::string_view bytes = file->bytes();
    if (bytes.empty()) return nullptr;
    return BlobHandle(
        hb_blob_create(bytes.data(), static_cast<unsigned>(bytes.size()), HB_MEMORY_MODE_READONLY, file.release(),
                       [](void *last) { std::unique_ptr<MappedFile>(static_cast<MappedFile *>(last)).reset(); }));
}

std::vector<FontFace> readFontFaces(const std::string &systemPath)
{
    const BlobHandle blob = openFontFile(systemPath);
    std::vector<FontFace> faces;
    const unsigned count = blob ? hb_face_count(blob.get()) : 0;
    for (unsigned index = 0; index < count; ++index) {
        FaceHandle face(hb_face_create(blob.get(), index));
        if (hb_face_get_glyph_count(face.get()) == 0) continue;
        FontFace found{nullptr, static_cast<int>(index), familiesOf(face.get()), has(face.get(), "glyf"),
                       isRegularFace(face.get())};
        found.face = std::move(face);
        faces.push_back(std::move(found));
    }
    return faces;
}

} // namespace inin::viewer
