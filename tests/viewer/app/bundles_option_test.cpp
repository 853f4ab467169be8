#include "viewer/app/options.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

#include <cstdlib>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

std::vector<Row> lettersOf(const std::vector<std::string> &insurers)
{
    std::vector<Row> rows;
    for (const std::string &insurer : insurers) {
        Row row = ordinaryRow();
        row["保険者名"] = insurer;
        row["利用者氏名"] = "甲" + std::to_string(rows.size() + 1);
        rows.push_back(row);
    }
    return rows;
}

std::vector<std::string> packedPages(const TempFolder &folder, const std::string &options,
                                     const std::vector<std::string> &insurers)
{
    const std::string script = writePrintJob(folder, kForm, lettersOf(insurers));
    const Outcome outcome = runViewer(folder, "--pdf o.pdf " + options + " " + script);
    CHECK(outcome.errors == "");
    REQUIRE(outcome.code == 0);
    std::vector<std::string> pages = pagesOf(folder / "o.pdf");
    for (std::string &page : pages) page = packed(page);
    return pages;
}

} // namespace

TEST_CASE("a PDF by insurer with covers has a cover with count and names before the letters of each insurer")
{
    const TempFolder folder;
    const auto pages = packedPages(folder, "--order insurer --bundles", {"高松市", "丸亀市", "高松市"});
    REQUIRE(pages.size() == 5);
    CHECK(contains(pages[0], "束の表紙"));
    CHECK(contains(pages[0], "丸亀市"));
    CHECK(contains(pages[0], "1通"));
    CHECK(contains(pages[1], "甲2"));
    CHECK(contains(pages[2], "高松市"));
    CHECK(contains(pages[2], "2通"));
    CHECK(contains(pages[2], "甲1"));
    CHECK(contains(pages[2], "甲3"));
    CHECK(contains(pages[2], "署名"));
    CHECK(contains(pages[3], "甲1"));
    CHECK(contains(pages[4], "甲3"));
}

TEST_CASE("covers have no entry in the outline of a PDF, and are in a PDF without tags and in one for archives too")
{
    const TempFolder folder;
    for (const char *purpose : {"", "--untagged", "--archive"}) {
        CAPTURE(purpose);
        const auto pages =
            packedPages(folder, std::string("--order insurer --bundles ") + purpose, {"高松市", "丸亀市", "高松市"});
        REQUIRE(pages.size() == 5);
        CHECK(contains(pages[0], "束の表紙"));
        const std::string command =
            "pdftohtml -xml -i -stdout '" + (folder / "o.pdf") + "' > '" + (folder / "o.xml") + "'";
        REQUIRE(std::system(command.c_str()) == 0);
        const std::string xml = folder.bytes("o.xml");
        const std::size_t outline = xml.find("<outline>");
        if (std::string(purpose) == "--untagged") {
            CHECK(outline == std::string::npos);
            continue;
        }
        REQUIRE(outline != std::string::npos);
        const std::string entries = xml.substr(outline);
        std::size_t items = 0;
        for (std::size_t at = 0; (at = entries.find("<item", at)) != std::string::npos; ++at) ++items;
        CHECK(items == 5); // two insurers and three patients
        CHECK(!contains(entries, "表紙"));
    }
}

TEST_CASE("a PDF by insurer without covers has the letters only, and without the options their own order")
{
    const TempFolder folder;
    const auto sorted = packedPages(folder, "--order insurer", {"高松市", "丸亀市"});
    REQUIRE(sorted.size() == 2);
    CHECK(contains(sorted[0], "甲2"));
    const auto extracted = packedPages(folder, "", {"高松市", "丸亀市"});
    REQUIRE(extracted.size() == 2);
    CHECK(contains(extracted[0], "甲1"));
}

TEST_CASE("an unknown order, and order or covers without a PDF, are refused")
{
    const auto isRefused = [](const std::vector<std::string> &words) {
        return std::holds_alternative<BadCommandLine>(readViewerCommand(words));
    };
    CHECK(isRefused({"formviewer", "--pdf", "o.pdf", "--order", "age", "s.dat"}));
    CHECK(isRefused({"formviewer", "--order", "insurer", "s.dat"}));
    CHECK(isRefused({"formviewer", "--png", "d", "--bundles", "s.dat"}));
    CHECK(!isRefused({"formviewer", "--pdf", "o.pdf", "--order", "name", "--bundles", "s.dat"}));
}

TEST_CASE("a cover form that names an unknown column is refused with its name, and an older PDF stays")
{
    const TempFolder folder;
    const std::string script = writePrintJob(folder, kForm, lettersOf({"高松市"}));
    folder.put("束の表紙.wfd", svgPage("<text x='10' y='10'>{{担当}}</text>"));
    folder.put("o.pdf", "older");
    const Outcome outcome = runViewer(folder, "--pdf o.pdf --bundles " + script);
    CHECK(outcome.code == 1);
    CHECK(contains(outcome.errors, "束の表紙.wfd"));
    CHECK(contains(outcome.errors, "担当"));
    CHECK(folder.bytes("o.pdf") == "older");
}
