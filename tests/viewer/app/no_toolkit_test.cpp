// The program in a build without the toolkit.
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer::test;

TEST_CASE("a program without a toolkit refuses windows and pictures with a sentence and leaves no files")
{
    TempFolder folder;
    const std::string script = writePrintJob(folder, kForm, {ordinaryRow()});
    const Outcome window = runViewer(folder, "/c " + script);
    CHECK(window.code == 2);
    CHECK(window.errors == "formviewer: このプログラムには画面がないので、--pdf か --check を指定してください。\n");
    const Outcome pictures = runViewer(folder, "--png pictures " + script);
    CHECK(pictures.code == 1);
    CHECK(pictures.errors == "formviewer: このプログラムは PNG ファイルを書き出せません。\n");
    CHECK(folder.names() == std::vector<std::string>{"WfdCom.dat", "委任状.csv", "委任状37_01.wfd"});
}
