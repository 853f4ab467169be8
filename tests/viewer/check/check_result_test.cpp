#include "viewer/check/check_result.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;

namespace {

/// A finding of the cause in each of the first `letters` letters.
std::vector<Finding> findingsIn(std::size_t letters, Cause cause, const std::string &detail = {})
{
    std::vector<Finding> findings;
    for (std::size_t i = 0; i < letters; ++i) findings.push_back({cause, i, detail});
    return findings;
}

CauseSet setOf(Cause cause)
{
    CauseSet causes;
    causes.set(static_cast<std::size_t>(cause));
    return causes;
}

} // namespace

TEST_CASE("a cause that holds for nine of ten letters is one note for the run and marks no letter")
{
    const CheckResult result = resultOf(findingsIn(9, Cause::signatureOutside, "署名日 2024/06/01"), 10, {});
    CHECK(result.findings.empty());
    REQUIRE(result.runNotes.size() == 1);
    CHECK(result.runNotes[0].cause == Cause::signatureOutside);
    CHECK(result.runNotes[0].letters == 9);
    CHECK(result.runNotes[0].of == 10);
    CHECK(result.runNotes[0].detail == "署名日 2024/06/01");
}

TEST_CASE("a cause that holds for fewer letters, or for all of a small run, marks each letter")
{
    CHECK(resultOf(findingsIn(89, Cause::noHolder), 100, {}).findings.size() == 89);
    CHECK(resultOf(findingsIn(90, Cause::noHolder), 100, {}).findings.empty());
    CHECK(resultOf(findingsIn(9, Cause::noHolder), 9, {}).findings.size() == 9);
    CHECK(resultOf(findingsIn(10, Cause::noHolder), 10, {}).findings.empty());
}

TEST_CASE("the share counts letters, not findings")
{
    std::vector<Finding> findings = findingsIn(8, Cause::lostCharacter, "会社住所：?");
    for (Finding &finding : findingsIn(8, Cause::lostCharacter, "代表者名：?")) findings.push_back(std::move(finding));
    CHECK(resultOf(findings, 10, {}).findings.size() == 16);
}

TEST_CASE("a note for the run has no detail when its letters differ")
{
    std::vector<Finding> findings = findingsIn(10, Cause::lastDayOutside, "最終施術日 24/04/30");
    findings[3].detail = "最終施術日 24/04/29";
    CHECK(resultOf(findings, 10, {}).runNotes.front().detail.empty());
}

TEST_CASE("a cause that is switched off is neither a note nor a finding, and the others stay")
{
    std::vector<Finding> findings = findingsIn(10, Cause::signatureOutside);
    findings.push_back({Cause::shrunk, 3, {}});
    const CheckResult result = resultOf(findings, 10, setOf(Cause::signatureOutside));
    CHECK(result.runNotes.empty());
    REQUIRE(result.findings.size() == 1);
    CHECK(result.findings[0].cause == Cause::shrunk);
    CHECK(resultOf(findings, 10, setOf(Cause::shrunk)).findings.empty());
}

TEST_CASE("the letters with a finding are counted once")
{
    CHECK(lettersIn({{Cause::noHolder, 1, {}}, {Cause::shrunk, 1, {}}, {Cause::shrunk, 4, {}}}) == 2);
}
