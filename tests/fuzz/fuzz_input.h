#pragma once

#include "runtime/runtime_error.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace inin::fuzz {

/// Aborts when a property is violated; libFuzzer then saves the input.
inline void require(bool holds, std::string_view property)
{
    if (holds) return;
    std::fprintf(stderr, "broken: %.*s\n", static_cast<int>(property.size()), property.data());
    std::abort();
}

/// Splits the input of a reader that needs several texts: each part but the last one ends at `separator`.
inline std::string_view takePart(std::string_view &rest, char separator = '\n')
{
    const std::size_t end = std::min(rest.find(separator), rest.size());
    const std::string_view part = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return part;
}

/// The first byte of an input selects one of several small readers, from '0' on.
inline std::size_t takeChoice(std::string_view &rest, std::size_t choices)
{
    if (rest.empty()) return 0;
    const auto choice = static_cast<unsigned char>(rest.front() - '0');
    rest.remove_prefix(1);
    return choice % choices;
}

using Check = void (*)(std::string_view input);

/// Runs the check that the first byte selects. A reader may refuse any input with a RuntimeError; every other
/// exception is a finding.
template <std::size_t Count> int runChoice(const Check (&checks)[Count], const std::uint8_t *data, std::size_t size)
{
    std::string_view input(static_cast<const char *>(static_cast<const void *>(data)), size);
    const std::size_t choice = takeChoice(input, Count);
    try {
        checks[choice](input);
    } catch (const RuntimeError &) {
        return 0;
    }
    return 0;
}

} // namespace inin::fuzz
