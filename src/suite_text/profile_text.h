#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace inin {

// The platform's profile rules on the bytes of one file, without a file: what is read from `bytes`, and what a write
// makes of them. All texts are code page 932. A null argument is a null pointer of the platform's call.

using ProfileBytes = std::optional<std::string_view>;

/// A name without a folder means a folder of the system's own, never the current one.
[[nodiscard]] bool isBareProfileName(std::string_view file);

/// The value as the call would put it into a buffer of `size` bytes, without the closing NUL. Without a section the
/// names of all sections, without a key the names of the section's keys, each ended by a NUL.
[[nodiscard]] std::string profileString(std::string_view bytes, ProfileBytes section, ProfileBytes key,
                                        std::string_view defaultValue, std::size_t size);
/// The leading whole number of the value, wrapped to 32 bits; the default where the key is missing.
[[nodiscard]] std::int32_t profileInt(std::string_view bytes, ProfileBytes section, ProfileBytes key,
                                      std::int32_t defaultValue);
/// The file's bytes after a write; nothing else of the file changes. Nothing when the platform refuses the call.
[[nodiscard]] std::optional<std::string> profileWrite(std::string_view bytes, ProfileBytes section, ProfileBytes key,
                                                      ProfileBytes value);

} // namespace inin
