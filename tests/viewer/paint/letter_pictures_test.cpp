#include "viewer/letters/csv_reader.h"
#include "viewer/paint/letter_pictures.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

constexpr double kPointsPerInch = 72;

std::vector<Row> rowsOfAllKinds()
{
    std::vector<Row> rows{ordinaryRow(), longestRow(), oddRow(), Row{}};
    for (int i = 0; i < 6; ++i) {
        rows.push_back(ordinaryRow());
        rows.back()["利用者氏名"] = "甲" + std::to_string(i);
    }
    return rows;
}

struct CachedPictures {
    TempFolder folder;
    LetterSet set;
    Fonts fonts;
    LetterRenderer renderer{set, fonts};
    QtGlyphs glyphs;
    LetterPictures pictures{renderer, glyphs};
    explicit CachedPictures(const char *form = kForm) : set(openScript(writePrintJob(folder, form, rowsOfAllKinds())))
    {
    }
    void checkAgainstWhole(std::size_t letter, double dotsPerInch)
    {
        CAPTURE(letter);
        CAPTURE(dotsPerInch);
        pictures.setScale(dotsPerInch / kPointsPerInch);
        CHECK(pictures.of(letter) == pageImage(renderer, letter, dotsPerInch, glyphs));
    }
};

} // namespace

TEST_CASE("a cached picture has the same pixels as a letter painted as a whole, for each form and scale")
{
    for (const char *form : kForms) {
        CachedPictures world(form);
        for (const double dots : {31.7, 96.0, 150.0})
            for (std::size_t letter = 0; letter < 5; ++letter) world.checkAgainstWhole(letter, dots);
    }
}

TEST_CASE("pages that are shown again have the same pictures")
{
    CachedPictures world;
    for (const std::size_t letter : {0U, 1U, 0U, 9U, 8U, 7U, 6U, 5U, 0U, 1U}) world.checkAgainstWhole(letter, 72);
}

TEST_CASE("letters with offsets of the script are painted at the right positions")
{
    CachedPictures world;
    world.set.offsetX = 35;
    world.set.offsetY = -20;
    for (std::size_t letter = 0; letter < 3; ++letter) world.checkAgainstWhole(letter, 100);
}

TEST_CASE("an unreadable row is painted on its own page among the others")
{
    CachedPictures world;
    const std::string csv = csvOf({ordinaryRow()}) + "\"a\",\"b\"\r\n" + csvOf({longestRow()});
    world.set.reports[0].letters = readLetters(csv, TitleRow::first);
    for (std::size_t letter = 0; letter < world.set.size(); ++letter) world.checkAgainstWhole(letter, 72);
}

TEST_CASE("the most recent pages are cached, and a new scale clears the cache")
{
    CachedPictures world;
    world.pictures.setScale(1);
    for (std::size_t letter = 0; letter < 4; ++letter) (void)world.pictures.of(letter);
    (void)world.pictures.of(0);
    (void)world.pictures.of(4);
    CHECK(world.pictures.has(0));
    CHECK(!world.pictures.has(1));
    CHECK(world.pictures.has(4));
    world.pictures.setScale(1.5);
    CHECK(!world.pictures.has(4));
}

TEST_CASE("pictures are cached up to 300 dots per inch")
{
    CachedPictures world;
    CHECK(world.pictures.isWorthwhile(0, 300 / kPointsPerInch));
    CHECK(!world.pictures.isWorthwhile(0, 600 / kPointsPerInch));
}
