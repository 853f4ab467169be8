#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace inin::viewer {

enum class JapaneseStyle : std::uint8_t { mincho, gothic };

/// A family that can write Japanese letters, by its names in English and Japanese.
struct JapaneseFamily {
    JapaneseStyle style;
    std::string_view name, japaneseName;
};

/// Those that form documents name and machines have, of each style the best first. The first that is there stands in for a
/// family that is not.
[[nodiscard]] std::span<const JapaneseFamily> japaneseFamilies();
/// The family of that name, whatever the case; null for any other.
[[nodiscard]] const JapaneseFamily *japaneseFamily(std::string_view name);
/// What style a family is by its name. Letters are set in mincho, so a name that says nothing is mincho.
[[nodiscard]] JapaneseStyle styleOfName(std::string_view family);

} // namespace inin::viewer
