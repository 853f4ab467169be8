#include "adapters/suite_text/code_page_932.h"
#include "viewer/viewer_world.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

TEST_CASE("the program's check tells what the window tells of script, form and fonts before it tells of letters")
{
    const TempFolder folder;
    writeBytes(folder / "f.svg", svgPage("<script/><text x='9' y='9'>\U0010FFFD</text>"));
    writeBytes(folder / "d.csv", "\"a\"\r\n\"1\"\r\n");
    writeBytes(folder / "s.dat", encodeCp932("Hop,1\r\nFileName,\"f.svg\"\r\nSetDataText,\"d\",\"d.csv\"\r\n"));
    const Outcome outcome = runViewer(folder, "--check s.dat");
    CHECK(outcome.code == 0);
    CHECK(outcome.output == "コマンドファイルの1行目は、知らない命令なので読み飛ばしました：Hop,1\n"
                            "「f.svg」：スクリプトは実行しません。\n"
                            "「f.svg」：帳票の文字のうち、書体にないものがあります：「\U0010FFFD」（U+10FFFD）\n"
                            "1通を点検しました。注意が必要な委任状はありません。\n");
}
