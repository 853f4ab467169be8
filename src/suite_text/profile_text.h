#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace inin {

// The platform's profile functions on the bytes of a file: the result of reading `bytes`, and their content after a
// write. All texts are in code page 932. A null argument means a null pointer in the platform's call.

using ProfileBytes = std::optional<std::string_view>;

/// True for a name without a folder, which means a folder of the system, never the current one.
[[nodiscard]] bool isBareProfileName(std::string_view file);

/// The value as the call copies it to a buffer of `size` bytes, without the final NUL. Without a section: the names of
/// all sections; without a key: the names of the section's keys; each ended by a NUL.
[[nodiscard]] std::string profileString(std::string_view bytes, ProfileBytes section, ProfileBytes key,
                                        std::string_view defaultValue, std::size_t size);
/// The leading integer of the value, wrapped to 32 bits; the default if the key is missing.
[[nodiscard]] std::int32_t profileInt(std::string_view bytes, ProfileBytes section, ProfileBytes key,
                                      std::int32_t defaultValue);
/// The file's bytes after a write, otherwise unchanged. Nothing if the platform refuses the call.
[[nodiscard]] std::optional<std::string> profileWrite(std::string_view bytes, ProfileBytes section, ProfileBytes key,
                                                      ProfileBytes value);

} // namespace inin
