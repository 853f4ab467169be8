#pragma once

#include "support/sample_size.h"

#include <doctest/doctest.h>
#include <rapidcheck.h>

#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

namespace inin::test {

/// Checks a property, which states its claims by RC_ASSERT, on `runs` random inputs, fewer under the sanitizers. A failing input is made smaller as
/// long as it still fails, and then shown. The inputs are the same in every run; RC_PARAMS="seed=7 max_success=10000" in
/// the environment chooses others.
template <class Property> void checkProperty(int runs, Property &&property)
{
    rc::detail::TestParams params;
    params.seed = 20240501;
    params.maxSuccess = sampleSize(runs);
    if (std::getenv("RC_PARAMS") != nullptr) params = rc::detail::configuration().testParams;
    const auto result = rc::detail::checkTestable(std::forward<Property>(property), rc::detail::TestMetadata{}, params);
    std::ostringstream message;
    rc::detail::printResultMessage(result, message);
    CHECK_MESSAGE(result.template is<rc::detail::SuccessResult>(), message.str());
}

/// A random number from `least` to `most`.
inline int anyNumber(int least, int most)
{
    return *rc::gen::inRange(least, most + 1);
}

inline bool oneIn(int count)
{
    return anyNumber(1, count) == count;
}

/// A random text of up to eight of these parts.
inline std::string anyText(const std::vector<std::string> &parts)
{
    std::string text;
    for (int length = anyNumber(0, 8); length > 0; --length) text += *rc::gen::elementOf(parts);
    return text;
}

} // namespace inin::test
