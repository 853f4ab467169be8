#include "runtime/runtime_error.h"
#include "suite_text/code_page_932.h"
#include "support/sample_size.h"
#include "viewer/document/combined_form.h"
#include "viewer/form/svg_reader.h"
#include "viewer/letters/csv_reader.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

#include <random>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

/// Changes, removes or duplicates a few bytes of a file.
std::string damaged(std::string bytes, std::mt19937 &dice)
{
    for (unsigned count = 1 + dice() % 4; count > 0 && !bytes.empty(); --count) {
        const std::size_t place = dice() % bytes.size(),
                          size = std::min<std::size_t>(dice() % 40, bytes.size() - place);
        switch (dice() % 3) {
        case 0:
            bytes[place] = static_cast<char>(dice());
            break;
        case 1:
            bytes.erase(place, size);
            break;
        default:
            bytes.insert(place, bytes.substr(place, size));
            break;
        }
    }
    return bytes;
}

class Nothing : public PagePainter {
public:
    void paint(const PictureCommand &) override {}
    void paint(const PathCommand &) override {}
    void paint(const GlyphRun &run) override { glyphs += run.glyphs.size(); }
    std::size_t glyphs = 0;
};

} // namespace

TEST_CASE("a damaged form is either drawn or refused with a sentence")
{
    const std::string form = bytesOf(std::string(ININ_SITE) + "/forms/委任状23.wfd");
    std::mt19937 dice(11);
    Fonts fonts;
    int drawn = 0, refused = 0;
    for (int round = 0; round < sampleSize(400); ++round) {
        try {
            LetterSet set = lettersOn(form, {ordinaryRow(), longestRow()});
            set.reports[0].form = readSvg(damaged(form, dice));
            LetterRenderer renderer(set, fonts);
            Nothing painter;
            renderer.layoutOf(0).paintShared(painter);
            for (std::size_t letter = 0; letter < 2; ++letter) renderer.paintFields(letter, painter);
            ++drawn;
        } catch (const RuntimeError &error) {
            CHECK_FALSE(error.description().empty());
            ++refused;
        }
    }
    CHECK(drawn > sampleSize(40));
    CHECK(refused > sampleSize(40));
}

TEST_CASE("a letter file truncated anywhere gives complete rows and at most one marked row")
{
    const std::string csv = csvOf({ordinaryRow(), oddRow(), longestRow()});
    const LetterTable whole = readLetters(csv, TitleRow::first);
    for (std::size_t size = csv.find("\r\n") + 2; size <= csv.size(); ++size) {
        const LetterTable table = readLetters(csv.substr(0, size), TitleRow::first);
        for (std::size_t row = 0; row < table.size(); ++row) {
            const bool isLast = row + 1 == table.size();
            REQUIRE((table.fault(row) == RowFault::none || isLast));
            for (std::size_t column = 0; column < 20 && table.fault(row) == RowFault::none; ++column)
                REQUIRE(table.value(row, column) == whole.value(row, column));
        }
    }
}

TEST_CASE("a damaged script is read to its end")
{
    const std::string script =
        encodeCp932("FileName,\"C:\\SYS\\委任状37_01.wfd\"\r\nTitle,\"委任状\"\r\n"
                    "SetDataText,\"委任状\",\"C:\\TMP\\委任状.csv\",\",\", \"\"\"\", True\r\n"
                    "PrintOffsetX, 5\r\nSetItemValue,\"a.b\",\"c\"\r\nPrintPaper, A4\r\nPrintOut\r\n");
    std::mt19937 dice(13);
    int unnoticed = 0;
    for (int round = 0; round < 2'000; ++round)
        if (readCommandScript(damaged(script, dice)).notices.empty()) ++unnoticed;
    CHECK(unnoticed < 2'000);
}

TEST_CASE("a damaged combined form is either read or refused")
{
    const std::string text = combinedFormText({{"/a.wfd", {{"b", "/c.csv", true}}}});
    std::mt19937 dice(14);
    int refused = 0;
    for (int round = 0; round < 500; ++round) {
        try {
            static_cast<void>(readCombinedForm(damaged(text, dice)));
        } catch (const RuntimeError &) {
            ++refused;
        }
    }
    CHECK(refused > 100);
}
