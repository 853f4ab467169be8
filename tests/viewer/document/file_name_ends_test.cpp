#include "viewer/document/letter_file_name.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

using namespace inin::viewer;
using namespace inin::viewer::test;

TEST_CASE("blanks and dots at the ends of a name are left out, for some systems drop them and others hide the file")
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
