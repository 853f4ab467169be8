#include "suite_text/code_page_932.h"
#include "system/whole_file.h"
#include "viewer/document/combined_form.h"
#include "viewer/layout/fonts.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cstdlib>

#include <sys/stat.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;
namespace fs = std::filesystem;

namespace {

/// Replaces a part of a file, which must exist.
void change(const std::string &path, const std::string &from, const std::string &to)
{
    std::string bytes = bytesOf(path);
    const std::size_t place = bytes.find(from);
    REQUIRE(place != std::string::npos);
    writeBytes(path, bytes.replace(place, from.size(), to));
}

} // namespace

TEST_CASE("the selected letters are written as a PDF")
{
    TempFolder folder;
    const std::string script = writePrintJob(folder, kForm, std::vector<Row>(8, ordinaryRow()));

    const Outcome outcome = runViewer(folder, "--pdf out.pdf --letters 1-3,7 " + script);

    CHECK(outcome.code == 0);
    CHECK(outcome.errors.empty());
    CHECK(pagesOf(folder / "out.pdf").size() == 4);
}

TEST_CASE("--form fills a form with sample letters, without a site and on paper of the form's size")
{
    const TempFolder folder;
    folder.put("封筒.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='100mm' height='60mm' viewBox='0 0 100 60'>"
                           "<text x='9' y='20' style='font-size:5px'>{{利用者氏名}}　様</text></svg>");
    const Outcome outcome = runViewer(folder, "--form 封筒.svg --pdf o.pdf --letters 2-3");
    CHECK(outcome.code == 0);
    CHECK(outcome.errors.empty());
    const std::vector<std::string> pages = pagesOf(folder / "o.pdf");
    REQUIRE(pages.size() == 2);
    CHECK(packed(pages[0]) == "岡田ヨネ様");
    CHECK(contains(bytesOf(folder / "o.pdf"), "/MediaBox[0 0 283.46 170.08]"));
    const std::string checked = runViewer(folder, "--form 封筒.svg --check --today 2030-01-01").output;
    CHECK(contains(checked, "60通"));
    CHECK(!contains(checked, "離れた日付")); // the sample letters do not age
}

TEST_CASE("--form fills a cover form with the first page of each insurer's cover, under any name of the file")
{
    const TempFolder folder;
    const std::string rows =
        "<text x='9' y='20' style='font-size:3px'>{{保険者名}}、{{通数}}、{{束の番号}}／{{束の数}}、{{ページ}}／{{ページ数}}、"
        "{{番号1}}{{氏名1}}、{{番号2}}{{氏名2}}</text>";
    folder.put("下書き.svg", svgPage(rows));
    const Outcome outcome = runViewer(folder, "--form 下書き.svg --pdf o.pdf");
    CHECK(outcome.code == 0);
    CHECK(outcome.errors.empty());
    std::vector<std::string> pages = pagesOf(folder / "o.pdf");
    REQUIRE(pages.size() == 9); // the sample letters have nine insurers
    CHECK(packed(pages[0]) == "さぬき市国民健康保険、2、1／9、1／1、13森トメ、43加藤昭");
    // A form without a column of its own is known by the name of cover forms, and a wrong column is the only one reported.
    folder.put("束の表紙.wfd", svgPage("<text x='9' y='20'>{{保険者名}}</text>"));
    CHECK(contains(runViewer(folder, "--form 束の表紙.wfd --check").output, "9通"));
    folder.put("束の表紙.wfd", svgPage("<text x='9' y='20'>{{通数}}{{担当}}</text>"));
    CHECK(contains(runViewer(folder, "--form 束の表紙.wfd --check").errors,
                   "「束の表紙.wfd」：帳票の差し込み「{{担当}}」の列「担当」が CSV にありません。"));
    // A form with columns of letters is a form of letters.
    folder.put("手紙.svg", svgPage("<text x='9' y='20'>{{利用者氏名}}{{通数}}</text>"));
    CHECK(
        contains(runViewer(folder, "--form 手紙.svg --check").errors, "「{{通数}}」の列「通数」が CSV にありません。"));
}

TEST_CASE("--form reports an unusable form with its name")
{
    const TempFolder folder;
    folder.put("a.svg", svgPage("<text x='9' y='20'>{{担当者}}</text>"));
    folder.put("b.txt", "plain");
    const Outcome unknown = runViewer(folder, "--form a.svg --pdf o.pdf");
    CHECK(unknown.code == 1);
    CHECK(contains(unknown.errors, "「a.svg」：帳票の差し込み「{{担当者}}」の列「担当者」が CSV にありません。"));
    CHECK(contains(runViewer(folder, "--form b.txt --pdf o.pdf").errors, "「b.txt」：帳票（SVG）ではありません。"));
    CHECK(contains(runViewer(folder, "--form none.svg --check").errors, "none.svg"));
    CHECK(!folder.has("o.pdf"));
}

TEST_CASE("the script is found by either slash and in any case")
{
    TempFolder folder;
    fs::create_directory(folder.folder() / "TMP");
    fs::rename(writePrintJob(folder, kForm, {ordinaryRow()}), folder.folder() / "TMP" / "WfdCom.dat");
    CHECK(runViewer(folder, "--pdf out.pdf /c './tmp\\WFDCOM.DAT'").code == 0);
    CHECK(folder.has("out.pdf"));
}

TEST_CASE("a missing form, letter file or script is reported with its path")
{
    TempFolder folder;
    const std::string script = writePrintJob(folder, kForm, {ordinaryRow()});
    CHECK(contains(runViewer(folder, "--pdf o.pdf none.dat").errors, "ファイル「none.dat」が見つかりません。"));
    fs::rename(folder / "委任状.csv", folder / "x.csv");
    Outcome outcome = runViewer(folder, "--pdf o.pdf " + script);
    CHECK(outcome.code == 1);
    CHECK(contains(outcome.errors, "ファイル「" + folder.path() + "\\委任状.csv」が見つかりません。"));
    fs::rename(folder / "x.csv", folder / "委任状.csv");
    fs::remove(folder.folder() / kForm);
    outcome = runViewer(folder, "--pdf o.pdf " + script);
    CHECK(outcome.code == 1);
    CHECK(contains(outcome.errors, "ファイル「" + folder.path() + "\\委任状37_01.wfd」が見つかりません。"));
    CHECK_FALSE(folder.has("o.pdf"));
}

TEST_CASE("a script without a letter file and a letter file without rows are reported")
{
    TempFolder folder;
    const std::string script = writePrintJob(folder, kForm, {});
    CHECK(contains(runViewer(folder, "--pdf o.pdf " + script).errors,
                   "印刷する委任状がありません。CSV にデータの行がありません。"));
    writeBytes(script, encodeCp932("FileName,\"委任状37_01.wfd\"\r\n"));
    CHECK(contains(runViewer(folder, "--pdf o.pdf " + script).errors, "の CSV（SetDataText）がありません。"));
    writeBytes(script, "");
    CHECK(contains(runViewer(folder, "--pdf o.pdf " + script).errors, "帳票の名前（FileName）がありません。"));
}

TEST_CASE("a form that is not SVG gives a message and a listing of the rows")
{
    TempFolder folder;
    const std::string script = writePrintJob(folder, kForm, {ordinaryRow(), longestRow()});
    folder.put(kForm, std::string("WFD\0\x01\x02 binary", 13));

    const Outcome outcome = runViewer(folder, "--pdf out.pdf " + script);

    CHECK(outcome.code == 0);
    CHECK(contains(outcome.errors, "はこのプログラムの帳票（SVG）ではないため、各行の内容を一覧で表示します。"));
    const auto pages = pagesOf(folder / "out.pdf");
    REQUIRE(pages.size() == 2);
    for (const char *text : {"保険者名", "高松市", "世帯主電話", "087-000-0001", "金融機関名２", "2024/05/01"}) {
        CAPTURE(std::string(text));
        CHECK(contains(packed(pages[0]), text));
    }
    CHECK(contains(packed(pages[1]), longestRow().at("利用者住所")));
}

TEST_CASE("a missing column is refused with its name, and an additional column is accepted")
{
    TempFolder folder;
    const std::string script = writePrintJob(folder, kForm, {ordinaryRow()});
    const std::string csv = folder.bytes("委任状.csv");
    folder.put("委任状.csv", encodeCp932("\"保険者名\"\r\n\"高松市\"\r\n"));
    CHECK(contains(runViewer(folder, "--pdf o.pdf " + script).errors, "」が CSV にありません。"));
    std::string wider = decodeCp932(csv);
    wider.replace(wider.find("\r\n"), 2, ",\"備考\"\r\n");
    wider.replace(wider.rfind("\r\n"), 2, ",\"x\"\r\n");
    folder.put("委任状.csv", encodeCp932(wider));
    CHECK(runViewer(folder, "--pdf o.pdf " + script).code == 0);
    CHECK(contains(packed(pagesOf(folder / "o.pdf").at(0)), "髙橋花子"));
}

TEST_CASE("a letter file with another order of columns fills the same fields")
{
    TempFolder folder;
    folder.put("f.svg", svgPage("<text x='9' y='9'>甲{{a}}</text><text x='9' y='29'>乙{{b}}</text>"));
    const std::string script =
        "FileName,\"" + folder / "f.svg" + "\"\r\nSetDataText,\"d\",\"" + folder / "d.csv" + "\"\r\n";
    folder.put("s.dat", encodeCp932(script));
    for (const char *csv : {"\"a\",\"b\"\r\n\"1\",\"2\"\r\n", "\"b\",\"a\"\r\n\"2\",\"1\"\r\n"}) {
        folder.put("d.csv", csv);
        REQUIRE(runViewer(folder, "--pdf o.pdf s.dat").code == 0);
        CHECK(packed(pagesOf(folder / "o.pdf").at(0)) == "甲1乙2");
    }
}

TEST_CASE("a script that names itself as its letter file is reported and stays unchanged")
{
    TempFolder folder;
    const std::string script = writePrintJob(folder, kForm, {ordinaryRow()});
    change(script, encodeCp932("\\委任状.csv"), "\\WfdCom.dat");
    const std::string before = bytesOf(script);

    const Outcome outcome = runViewer(folder, "--pdf o.pdf " + script);

    CHECK(outcome.code == 1);
    CHECK(contains(outcome.errors, "先頭の行が見出し行ではありません。"));
    CHECK(bytesOf(script) == before);
}

TEST_CASE("a PDF that cannot be written leaves no file")
{
    TempFolder folder;
    const std::string script = writePrintJob(folder, kForm, {ordinaryRow()});
    fs::create_directory(folder.folder() / "folder.pdf");
    CHECK(runViewer(folder, "--pdf folder.pdf " + script).code == 1);
    CHECK(runViewer(folder, "--pdf missing/o.pdf " + script).code == 1);
    CHECK(contains(runViewer(folder, "--pdf /dev/full " + script).errors, "ファイル「/dev/full」に書き込めません。"));
    CHECK(folder.names() == std::vector<std::string>{"WfdCom.dat", "folder.pdf", "委任状.csv", "委任状37_01.wfd"});
}

TEST_CASE("a full disk leaves the older PDF and no partial file")
{
    TempFolder folder;
    const std::string script = writePrintJob(folder, kForm, std::vector<Row>(300, ordinaryRow()));
    folder.put("o.pdf", "old");
    // The user's file size limit simulates a full disk: a write fails in the middle.
    const std::string command =
        "cd '" + folder.path() + "' && (ulimit -f 100; '" ININ_FORMVIEWER "' --pdf o.pdf '" + script + "') 2>err.txt";

    CHECK(WEXITSTATUS(std::system(command.c_str())) == 1);

    CHECK(contains(folder.bytes("err.txt"), "o.pdf」に書き込めません。"));
    CHECK(folder.bytes("o.pdf") == "old");
    CHECK(folder.names() ==
          std::vector<std::string>{"WfdCom.dat", "err.txt", "o.pdf", "委任状.csv", "委任状37_01.wfd"});
}

TEST_CASE("a merge writes a combined form, whose letters the viewer prints in the order of the reports")
{
    TempFolder folder;
    const std::string &dir = folder.path();
    folder.put("1.svg", svgPage("<text x='9' y='9'>一{{1}}と{{2}}</text>"));
    folder.put("2.svg", svgPage("<text x='9' y='9'>二{{1}}と{{別.1}}</text>"));
    folder.put("1.csv", "\"a\",\"b\"\r\n\"c\",\"d\"\r\n");
    folder.put("2.csv", "\"e\",\"f\"\r\n");
    folder.put("3.csv", "\"g\",\"h\"\r\n");
    const std::string tail = "\",\",\", \"\"\"\", True\r\n";
    folder.put("WfdCom.dat",
               encodeCp932("setTitle,\"まとめ\"\r\nSetDataText,\"主\",\"" + dir + "\\1.csv" + tail + "setreport,\"" +
                           dir + "\\1.svg\"\r\nAddReport\r\nSetDataText,\"主\",\"" + dir + "\\2.csv" + tail +
                           "SetDataText,\"別\",\"" + dir + "\\3.csv" + tail + "setreport,\"" + dir + "\\2.svg\"\r\n"));

    REQUIRE(runViewer(folder, "'" + dir + "\\tmp.wfd' /c '" + dir + "\\WfdCom.dat'", "wfrimg10.exe").code == 0);
    folder.put("WfdCom.dat",
               encodeCp932("Title,\"まとめ\"\r\nFileName,\"" + dir + "\\tmp.wfd\"\r\nPrintOutFromDialog\r\n"));
    REQUIRE(runViewer(folder, "--pdf o.pdf WfdCom.dat").code == 0);

    const auto pages = pagesOf(folder / "o.pdf");
    REQUIRE(pages.size() == 3);
    CHECK(packed(pages[0]) == "一aとb");
    CHECK(packed(pages[1]) == "一cとd");
    CHECK(packed(pages[2]) == "二eとg");
}

TEST_CASE("a merger's script without reports is reported and writes no file")
{
    TempFolder folder;
    folder.put("s.dat", encodeCp932("Title,\"まとめ\"\r\nFileName,\"\"\r\n"));
    const Outcome outcome = runViewer(folder, "tmp.wfd /c s.dat", "wfrimg10.exe");
    CHECK(outcome.code == 1);
    CHECK(contains(outcome.errors, "結合する帳票（setreport）がありません。"));
    CHECK(folder.names() == std::vector<std::string>{"s.dat"});
}

TEST_CASE("a combined form keeps paths with quotes and angle brackets, and cannot contain itself")
{
    const std::vector<ReportOrder> reports = {{"/a<b>&\"c\".wfd", {{"名", "/d&.csv", false}}}, {"/e.wfd", {}}};
    const std::string text = combinedFormText(reports);
    CHECK(isCombinedForm(text));
    const auto back = readCombinedForm(text);
    REQUIRE(back.size() == 2);
    CHECK(back[0].form == "/a<b>&\"c\".wfd");
    CHECK(back[0].data[0].path == "/d&.csv");
    CHECK_FALSE(back[0].data[0].hasTitles);

    TempFolder folder;
    folder.put("tmp.wfd", combinedFormText({{folder / "tmp.wfd", {}}}));
    folder.put("s.dat", encodeCp932("FileName,\"" + folder / "tmp.wfd" + "\"\r\n"));
    CHECK(contains(runViewer(folder, "--pdf o.pdf s.dat").errors, "結合した帳票の中に結合した帳票は置けません。"));
}

TEST_CASE("an item value replaces the text of its name, and one without a text is reported")
{
    TempFolder folder;
    folder.put("f.svg", svgPage("<text id='件名' x='9' y='9'>元の文</text>"));
    folder.put("d.csv", "\"a\"\r\n\"1\"\r\n");
    writeBytes(
        folder / "s.dat",
        encodeCp932("FileName,\"" + folder / "f.svg" + "\"\r\nSetDataText,\"d\",\"" + folder / "d.csv" +
                    "\"\r\nSetItemValue,\"帳票.頭.件名\",\"{{a}}新しい文\"\r\nSetItemValue,\"帳票.無い\",\"x\"\r\n"));
    const Outcome outcome = runViewer(folder, "--pdf o.pdf s.dat");
    REQUIRE(outcome.code == 0);
    CHECK(outcome.errors == "帳票に項目「帳票.無い」がありません。\n");
    CHECK(packed(pagesOf(folder / "o.pdf").at(0)) == "{{a}}新しい文");
}

TEST_CASE("an unknown line of a script is reported, and the letters are printed")
{
    TempFolder folder;
    const std::string script = writePrintJob(folder, kForm, {ordinaryRow()});
    writeBytes(script, "Hello,\"x\"\r\n" + bytesOf(script));
    const Outcome outcome = runViewer(folder, "--pdf o.pdf " + script);
    CHECK(outcome.code == 0);
    CHECK(outcome.errors == "コマンドファイルの1行目は、知らない命令なので読み飛ばしました：Hello,\"x\"\n");
}

TEST_CASE("only fonts of the folder in ININ_FONTS are used")
{
    TempFolder folder;
    const std::string script = writePrintJob(folder, kForm, {ordinaryRow()});
    fs::create_directory(folder.folder() / "fonts");
    fs::copy_file(Fonts().font("IPAexMincho").path(), folder.folder() / "fonts" / "one.ttf");
    REQUIRE(setenv("ININ_FONTS", (folder / "fonts").c_str(), 1) == 0);
    const Outcome one = runViewer(folder, "--pdf one.pdf " + script);
    fs::remove(folder.folder() / "fonts" / "one.ttf");
    const Outcome none = runViewer(folder, "--pdf none.pdf " + script);
    unsetenv("ININ_FONTS");

    CHECK(one.code == 0);
    CHECK(one.errors == "フォント「IPAexGothic」がないので「IPAex明朝」で表示します。\n");
    CHECK_FALSE(contains(folder.bytes("one.pdf"), "Gothic"));
    CHECK(none.code == 1);
    CHECK(contains(none.errors, "帳票に使えるフォントがこのコンピューターにありません。"));
    CHECK_FALSE(folder.has("none.pdf"));
}

TEST_CASE("a new PDF is readable by its owner only, and a replacement keeps the rights of the older PDF")
{
    TempFolder folder;
    const std::string script = writePrintJob(folder, kForm, {ordinaryRow()});
    const auto rights = [&] { return static_cast<mode_t>(fs::status(folder / "o.pdf").permissions()); };
    REQUIRE(runViewer(folder, "--pdf o.pdf " + script).code == 0);
    CHECK(rights() == 0600);
    for (const mode_t kept : {0644U, 0660U, 0400U}) {
        fs::permissions(folder / "o.pdf", static_cast<fs::perms>(kept));
        REQUIRE(runViewer(folder, "--pdf o.pdf " + script).code == 0);
        CHECK(rights() == kept);
    }
}

TEST_CASE("the name of a PDF is used exactly: another case or a final dot is another file")
{
    TempFolder folder;
    const std::string script = writePrintJob(folder, kForm, {ordinaryRow()});
    folder.put("Letters.PDF", "old");
    folder.put("y", "old");
    REQUIRE(runViewer(folder, "--pdf letters.pdf " + script).code == 0);
    REQUIRE(runViewer(folder, "--pdf y. " + script).code == 0);
    CHECK(folder.bytes("Letters.PDF") == "old");
    CHECK(folder.bytes("y") == "old");
    CHECK(pagesOf(folder / "letters.pdf").size() == 1);
    CHECK(pagesOf(folder / "y.").size() == 1);
}

TEST_CASE("a form of another namespace is refused instead of giving blank pages")
{
    TempFolder folder;
    const std::string script = writePrintJob(folder, kForm, {ordinaryRow()});
    change(folder / kForm, "http://www.w3.org/2000/svg", "http://www.example.invalid/svg");
    const Outcome outcome = runViewer(folder, "--pdf o.pdf " + script);
    CHECK(outcome.code == 1);
    CHECK(contains(outcome.errors, "SVG の文書ではありません。"));
    CHECK_FALSE(folder.has("o.pdf"));
}

TEST_CASE("a character in a form's own text that no font has is reported")
{
    TempFolder folder;
    folder.put("f.svg", svgPage("<text x='9' y='9'>𠮷\U0010FFFD</text>"));
    folder.put("d.csv", "\"a\"\r\n\"1\"\r\n");
    folder.put("s.dat", encodeCp932("FileName,\"f.svg\"\r\nSetDataText,\"d\",\"d.csv\"\r\n"));
    const Outcome outcome = runViewer(folder, "--pdf o.pdf s.dat");
    CHECK(outcome.code == 0);
    CHECK(outcome.errors == "「f.svg」：帳票の文字のうち、フォントにないものがあります：「\U0010FFFD」（U+10FFFD）\n");
}
