#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace inin {

/// The platform's three profile calls. Texts are UTF-8 here and code page 932 in the file. A missing argument means the
/// platform's null pointer: all sections, all keys, or deletion.
class Profile {
public:
    using Text = std::optional<std::string>;

    Profile() = default;
    Profile(const Profile &) = delete;
    Profile &operator=(const Profile &) = delete;
    virtual ~Profile() = default;

    /// The leading integer of the value; the default for a missing key, 0 for a non-numeric value.
    virtual std::int32_t GetPrivateProfileInt(const Text &section, const Text &key, std::int32_t defaultValue,
                                              const std::string &file) = 0;
    /// The platform's result in a buffer of `size` bytes, up to the terminating NUL.
    virtual std::string GetPrivateProfileString(const Text &section, const Text &key, const std::string &defaultValue,
                                                std::size_t size, const std::string &file) = 0;
    /// Non-zero on success, 0 on failure.
    virtual std::int32_t WritePrivateProfileString(const Text &section, const Text &key, const Text &value,
                                                   const std::string &file) = 0;
};

} // namespace inin
