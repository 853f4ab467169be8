#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace inin::viewer {

enum class JapaneseStyle : std::uint8_t { mincho, gothic };

/// A font family with Japanese characters, by its English and its Japanese name.
struct JapaneseFamily {
    JapaneseStyle style;
    std::string_view name, japaneseName;
};

/// The common families, the preferred ones of each style first. The first installed one replaces a missing family.
[[nodiscard]] std::span<const JapaneseFamily> japaneseFamilies();
/// The family of that name, ignoring ASCII case; null for an unknown name.
[[nodiscard]] const JapaneseFamily *japaneseFamily(std::string_view name);
/// The style that a family's name suggests. Forms are set in mincho, so that is the default.
[[nodiscard]] JapaneseStyle styleOfName(std::string_view family);

} // namespace inin::viewer
