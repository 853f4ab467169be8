#include "suite_text/code_page_932.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

TEST_CASE("the command-line check reports the window's notices of script, form and fonts before the findings")
{
    const TempFolder folder;
    writeBytes(folder / "f.svg", svgPage("<script/><text x='9' y='9'>\U0010FFFD</text>"));
    writeBytes(folder / "d.csv", "\"a\"\r\n\"1\"\r\n");
    writeBytes(folder / "s.dat", encodeCp932("Hop,1\r\nFileName,\"f.svg\"\r\nSetDataText,\"d\",\"d.csv\"\r\n"));
    const Outcome outcome = runViewer(folder, "--check s.dat");
    CHECK(outcome.code == 0);
    CHECK(outcome.output == "コマンドファイルの1行目は、知らない命令なので読み飛ばしました：Hop,1\n"
                            "「f.svg」：スクリプトは実行しません。\n"
                            "「f.svg」：帳票の文字のうち、フォントにないものがあります：「\U0010FFFD」（U+10FFFD）\n"
                            "1通を点検しました。注意が必要な委任状はありません。\n");
}

TEST_CASE("the program reports a difference from the run record, in the check and when it writes a PDF")
{
    const TempFolder folder;
    const std::string script = writePrintJob(folder, kForm, {ordinaryRow()});
    folder.put("委任状.run",
               "PrintInin run 1\r\ncsv " + std::to_string(folder.bytes("委任状.csv").size()) + "\r\nletters 2\r\n");
    const std::string sentence = "委任状.csv」に書き出された委任状は2通ですが、読み込んだ行は1行です。"
                                 "データの中の改行などで委任状が増減したおそれがあります。"
                                 "印刷の前に内容を確認してください。\n";
    const Outcome check = runViewer(folder, "--check --today 2024-05-20 '" + script + "'");
    CHECK(check.code == 0);
    CHECK(contains(check.output, sentence));
    const Outcome pdf = runViewer(folder, "--pdf o.pdf '" + script + "'");
    CHECK(pdf.code == 0);
    CHECK(contains(pdf.errors, sentence));
    CHECK(folder.has("o.pdf"));
}

TEST_CASE("the check names a site's own cover form that has an unknown column, cannot be read or lacks characters")
{
    const TempFolder folder;
    const std::string script = writePrintJob(folder, kForm, {ordinaryRow()});
    const std::string command = "--check --today 2024-05-20 '" + script + "'";
    const std::string without = runViewer(folder, command).output;
    const std::string path = "「" + folder.path() + "\\束の表紙.wfd」：";
    const auto noticeOf = [&](const std::string &form) {
        folder.put("束の表紙.wfd", form);
        const Outcome outcome = runViewer(folder, command);
        CHECK(outcome.code == 0);
        REQUIRE(outcome.output.ends_with(without));
        return outcome.output.substr(0, outcome.output.size() - without.size());
    };
    CHECK(noticeOf(svgPage("<text x='10' y='10'>{{通数}}{{氏名1}}</text>")).empty());
    const std::string unknown = noticeOf(svgPage("<text x='10' y='10'>{{担当}}</text>"));
    CHECK(unknown.starts_with(path));
    CHECK(contains(unknown, "担当"));
    CHECK(noticeOf("<svg").starts_with(path));
    CHECK(noticeOf("WFD").starts_with(path));
    CHECK(noticeOf(svgPage("<text x='9' y='9'>\U0010FFFD</text>")) ==
          path + "帳票の文字のうち、フォントにないものがあります：「\U0010FFFD」（U+10FFFD）\n");
}
