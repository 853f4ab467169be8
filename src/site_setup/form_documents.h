#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace inin::site {

/// What was done with one file of a site.
struct FileReport {
    enum class Done : std::uint8_t { written, same, kept, replaced };
    std::string name;
    Done done = Done::written;
    std::string copy{}; ///< of a replaced file: the name under which it was kept
};
/// A sentence in Japanese.
[[nodiscard]] std::string sentenceOf(const FileReport &report);

enum class Existing { keep, replace };

/// Writes this program's form documents to the site's folder for them (SYSTEM_SYS in "Massage.ini"). A document that exists is
/// kept, or replaced after a copy of it was made. Raises RuntimeError with a sentence when a file cannot be written, or when
/// the folder has no "Massage.ini".
[[nodiscard]] std::vector<FileReport> installForms(const std::filesystem::path &site, Existing existing);

} // namespace inin::site
