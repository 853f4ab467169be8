#include "viewer/document/letter_file_name.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

using namespace inin::viewer;
using namespace inin::viewer::test;

TEST_CASE(
    "leading and trailing blanks and dots are removed from a name, because some systems drop them or hide the file")
{
    struct Case {
        const char *patient, *name;
    };
    for (const Case &row :
         {Case{"甲 ", "甲.pdf"}, Case{"甲. .", "甲.pdf"}, Case{" .甲", "甲.pdf"}, Case{"甲.乙", "甲.乙.pdf"}}) {
        CAPTURE(row.patient);
        Row letter = ordinaryRow();
        letter["利用者氏名"] = row.patient;
        const LetterSet set = lettersOn(svgPage(""), {letter});
        CHECK(LetterFileNames(set, "{{利用者氏名}}", ".pdf").nameOf(0) == row.name);
    }
}
