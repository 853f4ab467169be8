#include "suite_text/code_page_932.h"
#include "viewer/document/combined_form.h"
#include "viewer/document/letter_opener.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

TEST_CASE("the viewer waits for a combined form that the merger is still writing")
{
    const TempFolder folder;
    (void)writePrintJob(folder, "委任状23.wfd", {ordinaryRow(), ordinaryRow()});
    const std::string form = folder / "委任状23.wfd", csv = folder / "委任状.csv";
    const std::string merged = folder / "merged.wfd", script = folder / "s.dat";
    writeBytes(script, encodeCp932("FileName,\"" + merged + "\"\r\nShowWindow\r\n"));
    int pauses = 0;
    const LetterSet set = openScript(script, [&] {
        if (++pauses == 3) writeBytes(merged, combinedFormText({{form, {{"委任状", csv, true}}}}));
    });
    CHECK(set.size() == 2);
    CHECK(pauses == 3);
}
