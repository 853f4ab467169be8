#include "viewer/check/check_result.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace inin::viewer {

std::size_t lettersIn(const std::vector<Finding> &findings)
{
    std::vector<std::size_t> letters;
    letters.reserve(findings.size());
    for (const Finding &finding : findings) letters.push_back(finding.letter);
    std::ranges::sort(letters);
    return static_cast<std::size_t>(std::unique(letters.begin(), letters.end()) - letters.begin());
}

CheckResult resultOf(std::vector<Finding> findings, std::size_t lettersOfRun, const CauseSet &switchedOff)
{
    CheckResult result;
    for (auto begin = findings.begin(); begin != findings.end();) {
        const Cause cause = begin->cause;
        const auto end = std::find_if(begin, findings.end(), [&](const Finding &f) { return f.cause != cause; });
        std::vector<Finding> ofCause(std::make_move_iterator(begin), std::make_move_iterator(end));
        begin = end;
        if (switchedOff.test(static_cast<std::size_t>(cause))) continue;
        const std::size_t letters = lettersIn(ofCause);
        if (lettersOfRun < kFewestLettersOfRun || letters * 100 < lettersOfRun * kRunNotePercent) {
            std::ranges::move(ofCause, std::back_inserter(result.findings));
            continue;
        }
        const std::string &detail = ofCause.front().detail;
        const bool isSame = std::ranges::all_of(ofCause, [&](const Finding &f) { return f.detail == detail; });
        result.runNotes.push_back({cause, letters, lettersOfRun, isSame ? detail : std::string()});
    }
    return result;
}

} // namespace inin::viewer
