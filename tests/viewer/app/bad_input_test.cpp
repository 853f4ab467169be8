// Damaged, huge and hostile input for the whole program.
#include "suite_text/code_page_932.h"
#include "viewer/letters/csv_reader.h"
#include "viewer/pdf/letters_pdf.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

#include <numeric>

#include <sys/stat.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;
namespace fs = std::filesystem;

namespace {

/// A letter file with these column names and one ordinary letter.
std::string csvWith(const std::vector<std::string> &titles)
{
    std::string first, second;
    for (const std::string &title : titles) {
        const Row row = ordinaryRow();
        first += (first.empty() ? "\"" : ",\"") + title + "\"";
        second += (second.empty() ? "\"" : ",\"") + (row.contains(title) ? row.at(title) : "x") + "\"";
    }
    return encodeCp932(first + "\r\n" + second + "\r\n");
}

/// Writes a print job of one ordinary letter on the given form.
std::string writeJobWith(const TempFolder &folder, const std::string &form)
{
    std::string script = writePrintJob(folder, kForm, {ordinaryRow()});
    folder.put(kForm, form);
    return script;
}

} // namespace

TEST_CASE("a letter file without a column that the form needs is refused with the column's name")
{
    TempFolder folder;
    const std::string script = writePrintJob(folder, kForm, {});
    const std::string form = folder.bytes(kForm);
    int refused = 0;
    for (const std::string &missing : programTitles()) {
        std::vector<std::string> titles = programTitles();
        std::erase(titles, missing);
        REQUIRE(titles.size() == 19);
        folder.put("委任状.csv", csvWith(titles));
        const Outcome outcome = runViewer(folder, "--pdf o.pdf " + script);
        CAPTURE(missing);
        if (contains(form, "{{" + missing)) {
            ++refused;
            CHECK(outcome.code == 1);
            CHECK(contains(outcome.errors, "列「" + missing + "」が CSV にありません。"));
        } else {
            CHECK(outcome.code == 0);
        }
    }
    CHECK(refused >= 18);
    CHECK_FALSE(contains(form, "{{金融機関名２"));
}

TEST_CASE("a row with a value too few or too many is shown as unreadable, and the other rows as letters")
{
    TempFolder folder;
    const std::string script = writePrintJob(folder, kForm, {ordinaryRow(), ordinaryRow(), ordinaryRow()});
    std::string csv = folder.bytes("委任状.csv");
    const std::size_t second = csv.find("\r\n", csv.find("\r\n") + 2) + 2;
    csv.replace(csv.rfind(",\""), csv.size(), "\r\n");
    csv.insert(second, "\"more\",");
    folder.put("委任状.csv", csv);

    const Outcome outcome = runViewer(folder, "--pdf o.pdf " + script);

    CHECK(outcome.code == 0);
    CHECK(outcome.errors == "2番：列の数が見出し行より多い行です。\n3番：列の数が見出し行より少ない行です。\n");
    const auto pages = pagesOf(folder / "o.pdf");
    REQUIRE(pages.size() == 3);
    CHECK(contains(packed(pages[0]), "髙橋花子"));
    for (const std::size_t page : {1U, 2U}) CHECK(contains(packed(pages[page]), "この行は確実に読み取れない"));
}

TEST_CASE("a letter file without its header row is refused")
{
    TempFolder folder;
    const std::string script = writePrintJob(folder, kForm, {ordinaryRow(), longestRow()});
    const std::string csv = folder.bytes("委任状.csv");
    folder.put("委任状.csv", csv.substr(csv.find("\r\n") + 2));

    const Outcome outcome = runViewer(folder, "--pdf o.pdf " + script);

    CHECK(outcome.code == 1);
    CHECK_FALSE(folder.has("o.pdf"));
    // The first row is read as the header row. The duplicate value in an ordinary letter is a duplicate column name.
    CHECK(contains(outcome.errors, "見出し行に列「"));
}

TEST_CASE("32,767 letters give 32,767 pages")
{
    TempFolder folder;
    const LetterSet set =
        lettersOn(svgPage("<text x='9' y='9'>{{保険者名}}</text>"), std::vector<Row>(32'767, ordinaryRow()));
    Fonts fonts;
    LetterRenderer renderer(set, fonts);
    std::vector<std::size_t> letters(set.size());
    std::iota(letters.begin(), letters.end(), std::size_t{0});

    REQUIRE(writeLettersPdf(folder / "o.pdf", renderer, letters));

    CHECK(contains(folder.bytes("o.pdf"), "/Count 32767/"));
}

TEST_CASE("a NUL, a field of a megabyte and a truncated last line are reported, and the other letters are printed")
{
    TempFolder folder;
    Row nul = ordinaryRow(), megabyte = ordinaryRow();
    nul["利用者氏名"] = "髙橋#花子";
    for (int i = 0; i < 500'000; ++i) megabyte["利用者氏名"] += "ア";
    const std::string script = writePrintJob(folder, kForm, {nul, megabyte, ordinaryRow(), ordinaryRow()});
    std::string csv = folder.bytes("委任状.csv");
    csv[csv.find('#')] = '\0';
    folder.put("委任状.csv", csv.substr(0, csv.size() - 30));

    const Outcome outcome = runViewer(folder, "--pdf o.pdf " + script);

    CHECK(outcome.code == 0);
    CHECK(contains(outcome.errors, "2番 利用者氏名：枠に入りきらないため、途中で切りました。\n"));
    CHECK(contains(outcome.errors, "4番：行が途中で切れています。\n"));
    CHECK(contains(outcome.errors, "委任状.csv」は途中で切れているため、委任状が足りないおそれがあります。"));
    const auto pages = pagesOf(folder / "o.pdf");
    REQUIRE(pages.size() == 4);
    CHECK(contains(packed(pages[0]), "髙橋\uFFFD花子"));
    CHECK(contains(packed(pages[2]), "髙橋花子"));
}

TEST_CASE("a file that a form refers to is never opened")
{
    TempFolder folder;
    // Opening a pipe without a writer would block forever.
    const std::string pipe = folder / "pipe";
    REQUIRE(mkfifo(pipe.c_str(), 0600) == 0);
    std::string form = svgPage("<style>@import url('PIPE'); @font-face{font-family:x;src:url('PIPE')}</style>"
                               "<image href='PIPE' width='9' height='9'/><image xlink:href='file://PIPE'"
                               " xmlns:xlink='http://www.w3.org/1999/xlink' width='9' height='9'/>"
                               "<use href='PIPE#a'/><script href='PIPE'/><g style='filter:url(PIPE#f)'>"
                               "<text x='9' y='9' style=\"font-family:url('PIPE')\">本文</text></g>"
                               "<include href='PIPE' xmlns='http://www.w3.org/2001/XInclude'/>");
    form = "<?xml version='1.0'?><?xml-stylesheet href='PIPE'?><!DOCTYPE svg SYSTEM 'PIPE'>" + form;
    for (std::size_t at = form.find("PIPE"); at != std::string::npos; at = form.find("PIPE")) form.replace(at, 4, pipe);
    const std::string script = writeJobWith(folder, form);
    const std::string command =
        "cd '" + folder.path() + "' && timeout 20 '" ININ_FORMVIEWER "' --pdf o.pdf '" + script + "' 2>err.txt";

    CHECK(WEXITSTATUS(std::system(command.c_str())) == 0);

    CHECK(contains(folder.bytes("err.txt"), "帳票のフォルダーの外にあるファイルは読み込みません。"));
    CHECK(contains(folder.bytes("err.txt"), "URL や絶対パスの画像は読み込みません。"));
    CHECK(contains(folder.bytes("err.txt"), "スクリプトは実行しません。"));
    CHECK(packed(pagesOf(folder / "o.pdf").at(0)) == "本文");
}

TEST_CASE("a form with entities, a million elements or an unknown column is refused and gives no PDF")
{
    std::string many;
    for (int i = 0; i < 1'000'000; ++i) many += "<g/>";
    std::string laughs = "<!DOCTYPE svg [<!ENTITY a 'ha'>";
    for (char c = 'b'; c < 'k'; ++c) {
        laughs += std::string("<!ENTITY ") + c + " '";
        for (int i = 0; i < 10; ++i) laughs += std::string("&") + static_cast<char>(c - 1) + ";";
        laughs += "'>";
    }
    struct Case {
        std::string form, sentence;
    };
    const Case cases[] = {
        {laughs + "]>" + svgPage("<text>&j;</text>"), "実体宣言「a」のあるファイルは開きません。"},
        {svgPage(many), "要素が多すぎます（20000個まで）。"},
        {svgPage("<text>{{誰も知らない列}}</text>"), "列「誰も知らない列」が CSV にありません。"},
        {svgPage("<text>{{利用者氏名</text>"), "{{"},
    };
    for (const Case &each : cases) {
        TempFolder folder;
        const Outcome outcome = runViewer(folder, "--pdf o.pdf " + writeJobWith(folder, each.form));
        CAPTURE(each.sentence);
        CHECK(outcome.code == 1);
        CHECK(contains(outcome.errors, each.sentence));
        CHECK_FALSE(folder.has("o.pdf"));
    }
}

TEST_CASE("a form, a letter file and a script that are too large are refused without being read")
{
    constexpr std::uintmax_t kHuge = std::uintmax_t{1} << 36;
    for (const char *name : {kForm, "委任状.csv", "WfdCom.dat"}) {
        TempFolder folder;
        const std::string script = writePrintJob(folder, kForm, {ordinaryRow()});
        fs::resize_file(folder / name, kHuge); // a sparse file needs no disk space
        const Outcome outcome = runViewer(folder, "--pdf o.pdf " + script);
        CAPTURE(std::string(name));
        CHECK(outcome.code == 1);
        CHECK(contains(outcome.errors, name));
        CHECK(contains(outcome.errors, "は大きすぎます。"));
    }
}
