#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

TEST_CASE("the problems of letters that are written as PDF and as pictures are reported once")
{
    const TempFolder folder;
    Row row = ordinaryRow();
    std::string longAddress;
    for (int i = 0; i < 400; ++i) longAddress += "町";
    row["利用者住所"] = longAddress;
    const std::string script = writePrintJob(folder, "委任状37_01.wfd", {row});
    const Outcome outcome = runViewer(folder, "--pdf o.pdf --png pictures '" + script + "'");
    CHECK(outcome.code == 0);
    CHECK(outcome.errors == "1番 利用者住所：枠に入りきらないため、途中で切りました。\n");
}
