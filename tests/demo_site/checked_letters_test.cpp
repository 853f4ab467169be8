#include "demo_site/site_play.h"
#include "viewer/check/letter_check.h"
#include "viewer/document/letter_opener.h"
#include "viewer/document/sample_letters.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <string>
#include <vector>

using namespace inin;
using namespace inin::test;
using namespace inin::viewer;

TEST_CASE("the check of a demo site's letters finds the three patients without an address")
{
    const SitePlay play("print-month.jsonl", "2024-05-20 10:00:00");
    const LetterSet set = openScript((play.at("TMP") / "WfdCom.dat").string());
    Fonts fonts;
    LetterRenderer renderer(set, fonts);
    const LetterTable &letters = set.reports.front().letters;
    std::vector<std::string> patients;
    for (const viewer::Finding &finding : checkLetters(renderer, DateSerial(2024, 5, 20)))
        if (finding.cause == Cause::noPatientAddress)
            patients.emplace_back(letters.value(finding.letter, letters.columnOf("利用者氏名").value()));
    CHECK(patients == std::vector<std::string>{"香川　和子", "藤原　ヨネ", "遠藤　明美"});
}

// To renew site/sample_letters.csv after a change of the demo data, store the first 61 lines of this play's letters in it.
TEST_CASE("the sample letters of a form are the first sixty of a demo site's month")
{
    const SitePlay play("print-month.jsonl", "2024-05-20 10:00:00");
    CHECK(play.csv().starts_with(sampleLetters()));
    CHECK(std::ranges::count(sampleLetters(), '\n') == 1 + 60);
}
