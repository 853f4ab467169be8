#include "viewer/app/check_letters.h"

#include "system/local_time.h"
#include "system/program_edges.h"
#include "viewer/app/write_letters.h"
#include "viewer/check/check_text.h"
#include "viewer/document/letter_numbers.h"
#include "viewer/io/system_edges.h"

#include <algorithm>
#include <cstdio>

namespace inin::viewer {

std::size_t printCheckReport(const ViewCommand &command)
{
    const LetterSet set = openedLetters(command);
    Fonts fonts;
    LetterRenderer renderer(set, fonts);
    std::vector<std::size_t> letters = readLetterList(command.letters, set.size());
    std::ranges::sort(letters);
    CheckResult result =
        resultOf(checkLetters(renderer, command.today.value_or(presentDay())), set.size(), command.withoutChecks);
    CheckReport report{letters.size(), set.notices, std::move(result.findings), std::move(result.runNotes),
                       command.withoutChecks};
    for (const std::vector<std::string> &more : {fonts.notices(), renderer.formNotices(), renderer.coverNotices()})
        report.notices.insert(report.notices.end(), more.begin(), more.end());
    // All letters are checked, even if only some are requested: a duplicate may be among the others.
    std::erase_if(report.findings,
                  [&](const Finding &finding) { return !std::ranges::binary_search(letters, finding.letter); });
    const LetterNames names(set);
    const std::string text = command.json ? checkJson(report, names) : checkText(report, names);
    printText(stdout, text); // a failure is detected when the program ends
    return lettersIn(report.findings);
}

} // namespace inin::viewer
