#include "viewer/layout/font.h"
#include "viewer/layout/font_catalogue.h"
#include "viewer/layout/fonts.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

#include <cstdint>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

/// The path of a test font on this machine.
std::string fontPath(const std::string &family)
{
    static Fonts fonts;
    return fonts.font(family).path();
}

FontFile listed(const std::string &family, const std::string &listedAs)
{
    return {fontPath(family), listedAs};
}

std::uint32_t number(const std::string &bytes, std::size_t place, std::size_t size)
{
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < size; ++i) value = value << 8U | static_cast<unsigned char>(bytes[place + i]);
    return value;
}

std::string fourBytes(std::size_t value)
{
    std::string bytes;
    for (const unsigned shift : {24U, 16U, 8U, 0U}) bytes += static_cast<char>(value >> shift & 0xFFU);
    return bytes;
}

/// Joins two font files to a collection: a directory, then both fonts with their table offsets adjusted.
std::string collectionOf(const std::vector<std::string> &fonts)
{
    constexpr std::size_t kDirectory = 12, kRecord = 16, kPlace = 8;
    std::string head = "ttcf" + fourBytes(0x00010000) + fourBytes(fonts.size()), body;
    const std::size_t begin = head.size() + 4 * fonts.size();
    for (std::string font : fonts) {
        const std::size_t base = begin + body.size();
        const std::size_t tables = number(font, 4, 2);
        for (std::size_t i = 0; i < tables; ++i) {
            const std::size_t place = kDirectory + i * kRecord + kPlace;
            font.replace(place, 4, fourBytes(number(font, place, 4) + base));
        }
        head += fourBytes(base);
        body += font;
        body.resize((body.size() + 3) / 4 * 4);
    }
    return head + body;
}

} // namespace

TEST_CASE("a font is found by its listed name in either language and any case")
{
    ListedFonts fonts({listed("IPAexGothic", "IPAexゴシック"), listed("IPAexMincho", "IPAex明朝")});
    for (const char *name : {"IPAexMincho", "IPAex明朝", "ipaexmincho"}) {
        CAPTURE(std::string(name));
        const auto found = fonts.find(name);
        REQUIRE(found);
        CHECK(found->isExact);
        CHECK(found->font.path == fontPath("IPAexMincho"));
    }
}

TEST_CASE("an unlisted file and an unknown family are found by the names in the files")
{
    ListedFonts fonts(
        {listed("IPAexGothic", "IPAexゴシック"), listed("IPAexMincho", ""), listed("DejaVu Serif", "X & Y")});
    CHECK(fonts.find("IPAexMincho")->font.path == fontPath("IPAexMincho"));
    CHECK(fonts.find("DejaVu Serif")->font.path == fontPath("DejaVu Serif"));
    CHECK(fonts.find("DejaVu Serif")->isExact);
}

TEST_CASE("a missing family is replaced by one of its style and reported as a substitute")
{
    ListedFonts fonts({listed("DejaVu Sans", "DejaVu Sans"), listed("IPAexGothic", "IPAexGothic"),
                       listed("IPAexMincho", "IPAexMincho")});
    struct Case {
        const char *asked, *found;
    };
    for (const Case &each : {Case{"MS Mincho", "IPAexMincho"},
                             {"ＭＳ 明朝", "IPAexMincho"},
                             {"Yu Gothic UI", "IPAexGothic"},
                             {"メイリオ", "IPAexGothic"},
                             {"Times New Roman", "IPAexMincho"},
                             {"Arial", "IPAexGothic"}}) {
        CAPTURE(std::string(each.asked));
        const auto match = fonts.find(each.asked);
        REQUIRE(match);
        CHECK_FALSE(match->isExact);
        CHECK(match->font.path == fontPath(each.found));
    }
}

TEST_CASE("without a family of the same style, the other style is used, then any font, and then none")
{
    ListedFonts gothicOnly({listed("DejaVu Sans", "DejaVu Sans"), listed("IPAexGothic", "IPAexGothic")});
    CHECK(gothicOnly.find("IPAexMincho")->font.path == fontPath("IPAexGothic"));
    ListedFonts latinOnly({listed("DejaVu Sans", "DejaVu Sans")});
    CHECK(latinOnly.find("IPAexMincho")->font.path == fontPath("DejaVu Sans"));
    CHECK_FALSE(ListedFonts({}).find("IPAexMincho"));
}

TEST_CASE("damaged files, missing files and files that are not fonts are skipped")
{
    TempFolder folder;
    folder.put("a.ttf", "no font");
    folder.put("b.ttf", "");
    folder.put("c.ttf", bytesOf(fontPath("IPAexMincho")).substr(0, 300));
    ListedFonts fonts({{folder / "a.ttf", "IPAexMincho"},
                       {folder / "b.ttf", "IPAexMincho"},
                       {folder / "c.ttf", "IPAexMincho"},
                       {folder / "missing.ttf", "IPAexMincho"},
                       listed("IPAexMincho", "IPAexMincho")});
    CHECK(fonts.find("IPAexMincho")->font.path == fontPath("IPAexMincho"));
}

TEST_CASE("a font of a collection is found with its index and has its own glyphs")
{
    TempFolder folder;
    const std::string path = folder / "two.ttc";
    writeBytes(path, collectionOf({bytesOf(fontPath("IPAexGothic")), bytesOf(fontPath("DejaVu Serif"))}));
    auto catalogue = std::make_unique<ListedFonts>(std::vector<FontFile>{{path, "IPAexGothic & DejaVu Serif"}});
    CHECK(catalogue->find("IPAexGothic")->font.index == 0);
    CHECK(catalogue->find("DejaVu Serif")->font.index == 1);

    Fonts fonts(std::move(catalogue));
    CHECK(fonts.font("DejaVu Serif").postScriptName() == "DejaVuSerif");
    CHECK_FALSE(fonts.font("DejaVu Serif").has(U'あ'));
    CHECK(fonts.font("IPAexGothic").has(U'あ'));
    CHECK(fonts.notices().empty());
}

TEST_CASE("the font of family registers is the first fallback for a rare character")
{
    ListedFonts fonts(
        {listed("IPAexMincho", "IPAexMincho"), listed("DejaVu Sans", ""), listed("IPAmjMincho", "IPAmj明朝")});
    REQUIRE(fonts.withCharacter(U'𠮷').size() == 1);
    CHECK(fonts.withCharacter(U'𠮷').front().path == fontPath("IPAmjMincho"));
    CHECK(fonts.withCharacter(U'ﬁ').front().path == fontPath("DejaVu Sans"));
    CHECK(fonts.withCharacter(U'\U0010FFFD').empty());
}

TEST_CASE("the font files of a folder are sorted by name, and a missing folder has none")
{
    TempFolder folder;
    for (const char *name : {"b.TTF", "a.ttc", "c.otf", "readme.txt", "ttf"}) folder.put(name, "x");
    const auto files = fontFilesIn(folder.path());
    REQUIRE(files.size() == 3);
    CHECK(files[0].path.ends_with("a.ttc"));
    CHECK(files[1].path.ends_with("b.TTF"));
    CHECK(files[2].path.ends_with("c.otf"));
    CHECK(files[0].listedAs.empty());
    CHECK(fontFilesIn(folder / "none").empty());
}
