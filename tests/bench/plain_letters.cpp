// The reference of bench_letters: writes the same text operators with the same subsets of the same fonts and does
// nothing else. It reads no form and no CSV and fits no text: positions and texts come ready from a file.

#include <fmt/format.h>
#include <hb-subset.h>
#include <hb.h>
#include <zlib.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

namespace {

struct PlainFont {
    explicit PlainFont(const std::string &path)
        : blob(hb_blob_create_from_file(path.c_str())), face(hb_face_create(blob, 0)), font(hb_font_create(face)),
          codes(0x10000)
    {
    }
    std::uint16_t codeOf(std::uint32_t character)
    {
        std::uint16_t &code = codes[character];
        if (code != 0) return code;
        hb_codepoint_t glyph = 0;
        hb_font_get_nominal_glyph(font, character, &glyph);
        glyphs.push_back(glyph);
        characters.push_back(character);
        return code = static_cast<std::uint16_t>(glyphs.size() - 1);
    }
    hb_blob_t *blob;
    hb_face_t *face;
    hb_font_t *font;
    std::vector<std::uint16_t> codes;
    std::vector<std::uint32_t> glyphs{0}, characters{0};
};

struct Place {
    std::size_t font = 0;
    double x = 0, y = 0, size = 0;
};

class Writer {
public:
    explicit Writer(const char *path) : m_out(path, std::ios::binary)
    {
        deflateInit(&m_deflater, 1);
        put("%PDF-1.5\n");
        reserve(3); // catalogue, pages, resources
    }

    void addFont(const std::string &path) { m_fonts.emplace_back(path); }

    void text(std::string &out, const Place &place, const std::string &utf8)
    {
        fmt::format_to(std::back_inserter(out), "/F{} {:.2f} Tf 1 0 0 1 {:.2f} {:.2f} Tm (", place.font, place.size,
                       place.x, place.y);
        for (std::size_t at = 0; at < utf8.size();) {
            const std::uint16_t code = m_fonts[place.font].codeOf(take(utf8, at));
            for (const char byte : {static_cast<char>(code >> 8), static_cast<char>(code & 0xFF)}) {
                if (byte == '(' || byte == ')' || byte == '\\' || byte == '\r') out += '\\';
                out += byte == '\r' ? 'r' : byte;
            }
        }
        out += ") Tj\n";
    }

    void page(const std::string &content)
    {
        const int number = reserve(2);
        stream(number, "", content);
        object(number + 1, fmt::format("<</Type/Page/Parent 2 0 R/Contents {} 0 R>>", number));
        m_pages.push_back(number + 1);
    }

    void finish(const std::string &shared)
    {
        const int form = reserve(1);
        stream(form, "/Type/XObject/Subtype/Form/BBox[0 0 595.28 841.89]/Resources 3 0 R", shared);
        std::string resources = fmt::format("<</XObject<</S {} 0 R>>/Font<<", form);
        for (std::size_t i = 0; i < m_fonts.size(); ++i) resources += fmt::format("/F{} {} 0 R", i, font(m_fonts[i]));
        object(3, resources + ">>>>");
        std::string kids;
        for (const int page : m_pages) kids += fmt::format("{} 0 R ", page);
        object(2, fmt::format("<</Type/Pages/Count {}/MediaBox[0 0 595.28 841.89]/Resources 3 0 R/Kids[{}]>>",
                              m_pages.size(), kids));
        object(1, "<</Type/Catalog/Pages 2 0 R>>");
        const std::size_t table = m_written;
        std::string lines = fmt::format("xref\n0 {}\n0000000000 65535 f \n", m_places.size() + 1);
        for (const std::size_t place : m_places) lines += fmt::format("{:010} 00000 n \n", place);
        put(lines +
            fmt::format("trailer\n<</Size {}/Root 1 0 R>>\nstartxref\n{}\n%%EOF\n", m_places.size() + 1, table));
    }

private:
    static std::uint32_t take(const std::string &text, std::size_t &at)
    {
        const auto byte = [&] { return static_cast<std::uint32_t>(static_cast<unsigned char>(text[at++])); };
        const std::uint32_t first = byte();
        if (first < 0x80) return first;
        const std::uint32_t second = byte() & 0x3F;
        if (first < 0xE0) return (first & 0x1F) << 6 | second;
        return (first & 0x0F) << 12 | second << 6 | (byte() & 0x3F);
    }
    int reserve(int count)
    {
        const int first = static_cast<int>(m_places.size()) + 1;
        m_places.resize(m_places.size() + static_cast<std::size_t>(count));
        return first;
    }
    void put(const std::string &bytes)
    {
        m_out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        m_written += bytes.size();
    }
    void object(int number, const std::string &body)
    {
        m_places[static_cast<std::size_t>(number - 1)] = m_written;
        put(fmt::format("{} 0 obj\n{}\nendobj\n", number, body));
    }
    void stream(int number, const std::string &entries, const std::string &content)
    {
        deflateReset(&m_deflater);
        m_room.resize(deflateBound(&m_deflater, content.size()));
        m_deflater.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(content.data()));
        m_deflater.avail_in = static_cast<uInt>(content.size());
        m_deflater.next_out = reinterpret_cast<Bytef *>(m_room.data());
        m_deflater.avail_out = static_cast<uInt>(m_room.size());
        deflate(&m_deflater, Z_FINISH);
        m_room.resize(m_room.size() - m_deflater.avail_out);
        object(number, fmt::format("<<{}/Filter/FlateDecode/Length {}>>stream\n", entries, m_room.size()) + m_room +
                           "\nendstream");
    }
    int font(const PlainFont &font)
    {
        hb_subset_input_t *input = hb_subset_input_create_or_fail();
        for (const std::uint32_t glyph : font.glyphs) hb_set_add(hb_subset_input_glyph_set(input), glyph);
        hb_subset_plan_t *plan = hb_subset_plan_create_or_fail(font.face, input);
        hb_blob_t *blob = hb_face_reference_blob(hb_subset_plan_execute_or_fail(plan));
        unsigned size = 0;
        const char *bytes = hb_blob_get_data(blob, &size);
        std::string map, widths, unicode = fmt::format("1 begincodespacerange<0000><FFFF>endcodespacerange\n");
        for (std::size_t i = 0; i < font.glyphs.size(); ++i) {
            const hb_codepoint_t place = hb_map_get(hb_subset_plan_old_to_new_glyph_mapping(plan), font.glyphs[i]);
            map += static_cast<char>(place >> 8);
            map += static_cast<char>(place & 0xFF);
            widths += fmt::format("{}[{:.2f}]", i,
                                  hb_font_get_glyph_h_advance(font.font, font.glyphs[i]) * 1000.0 /
                                      hb_face_get_upem(font.face));
            if (i > 0) unicode += fmt::format("1 beginbfchar<{:04X}><{:04X}>endbfchar\n", i, font.characters[i]);
        }
        const int first = reserve(6);
        stream(first, fmt::format("/Length1 {}", size), std::string(bytes, size));
        stream(first + 1, "", map);
        stream(first + 2, "",
               "/CIDInit/ProcSet findresource begin 12 dict begin begincmap\n" + unicode + "endcmap end end\n");
        object(first + 3,
               fmt::format("<</Type/FontDescriptor/FontName/AAAAAA+Plain/Flags 4/FontBBox[0 -120 1000 880]"
                           "/ItalicAngle 0/Ascent 880/Descent -120/CapHeight 880/StemV 80/FontFile2 {} 0 R>>",
                           first));
        object(first + 4, fmt::format("<</Type/Font/Subtype/CIDFontType2/BaseFont/AAAAAA+Plain/CIDSystemInfo<<"
                                      "/Registry(Adobe)/Ordering(Identity)/Supplement 0>>/FontDescriptor {} 0 R/W[{}]"
                                      "/CIDToGIDMap {} 0 R>>",
                                      first + 3, widths, first + 1));
        object(first + 5, fmt::format("<</Type/Font/Subtype/Type0/BaseFont/AAAAAA+Plain/Encoding/Identity-H"
                                      "/DescendantFonts[{} 0 R]/ToUnicode {} 0 R>>",
                                      first + 4, first + 2));
        return first + 5;
    }

    std::ofstream m_out;
    z_stream m_deflater{};
    std::string m_room;
    std::size_t m_written = 0;
    std::vector<std::size_t> m_places;
    std::vector<int> m_pages;
    std::vector<PlainFont> m_fonts;
};

} // namespace

/// plain_letters JOB OUT.pdf. Lines of the job: "F path" a font, "S font x y size text" a shared text, "V font x y
/// size" a field, "L text<TAB>text…" a letter.
int main(int argc, char **argv)
{
    if (argc != 3) return 2;
    std::ifstream job(argv[1]);
    Writer writer(argv[2]);
    std::vector<Place> fields;
    std::string shared = "BT\n", content, value;
    for (std::string line; std::getline(job, line);) {
        std::istringstream words(line.substr(2));
        Place place;
        if (line[0] == 'F') writer.addFont(line.substr(2));
        if (line[0] == 'S' || line[0] == 'V') words >> place.font >> place.x >> place.y >> place.size;
        if (line[0] == 'V') fields.push_back(place);
        if (line[0] == 'S' && std::getline(words >> std::ws, value)) writer.text(shared, place, value);
        if (line[0] != 'L') continue;
        content = "/S Do\nBT\n";
        std::size_t at = 2;
        for (const Place &field : fields) {
            const std::size_t end = std::min(line.find('\t', at), line.size());
            writer.text(content, field, line.substr(at, end - at));
            at = end + 1;
        }
        writer.page(content + "ET\n");
    }
    writer.finish(shared + "ET\n");
    return 0;
}
