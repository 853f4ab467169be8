#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

#include <algorithm>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;
namespace fs = std::filesystem;

TEST_CASE("the selected letters are written as pictures together with the PDF")
{
    TempFolder folder;
    std::vector<Row> rows(8, ordinaryRow());
    const std::string script = writePrintJob(folder, kForm, rows);

    const Outcome outcome = runViewer(folder, "--pdf out.pdf --png pictures --dpi 40 --letters 1-3,7 " + script);

    CHECK(outcome.code == 0);
    CHECK(outcome.errors.empty());
    CHECK(pagesOf(folder / "out.pdf").size() == 4);
    std::vector<std::string> names;
    for (const auto &entry : fs::directory_iterator(folder.folder() / "pictures"))
        names.push_back(entry.path().filename().string());
    std::ranges::sort(names);
    CHECK(names == std::vector<std::string>{"001.png", "002.png", "003.png", "007.png"});
    CHECK(folder.bytes("pictures/001.png").starts_with("\x89PNG"));
}

TEST_CASE("each page of a letter is a picture of its own")
{
    TempFolder folder;
    const std::string script = writePrintJob(folder, kForm, std::vector<Row>(3, ordinaryRow()));
    folder.put(kForm, "<svg xmlns='http://www.w3.org/2000/svg' "
                      "xmlns:inkscape='http://www.inkscape.org/namespaces/inkscape' width='210mm' height='297mm' "
                      "viewBox='0 0 210 297'><inkscape:page width='210' height='297'/><inkscape:page x='220' "
                      "width='210' height='297'/><text x='20' y='30'>{{利用者氏名}}</text></svg>");

    REQUIRE(runViewer(folder, "--png p --dpi 40 --letters 3,1 " + script).code == 0);

    for (const char *name : {"p/001-1.png", "p/001-2.png", "p/003-1.png", "p/003-2.png"}) CHECK(folder.has(name));
    CHECK(!folder.has("p/001.png"));
}

TEST_CASE("pictures are written into the folder with exactly the given name, readable by their owner only")
{
    TempFolder folder;
    const std::string script = writePrintJob(folder, kForm, {ordinaryRow()});
    fs::create_directory(folder.folder() / "Pictures");
    REQUIRE(runViewer(folder, "--png pictures --dpi 40 " + script).code == 0);
    CHECK(fs::is_empty(folder.folder() / "Pictures"));
    CHECK(fs::status(folder / "pictures/001.png").permissions() == (fs::perms::owner_read | fs::perms::owner_write));
}

TEST_CASE("pictures that cannot be written are reported, and no partial file is left")
{
    TempFolder folder;
    const std::string script = writePrintJob(folder, kForm, {ordinaryRow()});
    folder.put("taken", "x");
    const Outcome outcome = runViewer(folder, "--png taken " + script);
    CHECK(outcome.code == 1);
    CHECK(contains(outcome.errors, "taken」を作成できません。"));
    fs::create_directories(folder.folder() / "pictures" / "001.png");
    CHECK(runViewer(folder, "--png pictures " + script).code == 1);
    CHECK(std::distance(fs::directory_iterator(folder.folder() / "pictures"), {}) == 1);
    CHECK(folder.bytes("taken") == "x");
}
