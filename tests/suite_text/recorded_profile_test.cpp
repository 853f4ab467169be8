#include "suite_text/profile_text.h"
#include "suite_text/profile_vectors.h"

#include <algorithm>

#include <doctest/doctest.h>

using namespace inin;

namespace {

/// Runs a step on bytes.
std::string played(const ProfileStep &step, std::optional<std::string> &file)
{
    const std::string before = file.value_or("");
    if (step.call == ProfileStep::Call::number) return std::to_string(profileInt(before, step.section, step.key, 0));
    if (step.call == ProfileStep::Call::text) return profileString(before, step.section, step.key, "", step.size);
    const auto after = profileWrite(before, step.section, step.key, step.value);
    if (after && (file || !after->empty())) file = after;
    return after ? "1" : "0";
}

} // namespace

TEST_CASE("every recorded profile call has the platform's result on the bytes")
{
    std::size_t count = 0;
    for (const ProfileCase &one : recordedProfileCases()) {
        if (!isAboutTheBytes(one) || one.id == kMendedCase) continue;
        ++count;
        INFO(one.id, " ", one.name);
        auto file = one.file;
        for (const ProfileStep &step : one.steps) {
            CHECK(played(step, file) == recordedResult(step));
            if (step.givesFile) CHECK(file == step.fileAfter);
        }
    }
    CHECK(count == 193);
}

TEST_CASE("each special case is in the recording")
{
    const auto cases = recordedProfileCases();
    for (const char *decided : {kMendedCase, kHeldOpenCase, kBareNameCase}) {
        INFO(decided);
        CHECK(std::ranges::count(cases, decided, &ProfileCase::id) == 1);
    }
}
