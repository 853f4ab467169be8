#pragma once

#include "scenarios/play.h"
#include "support/temp_folder.h"

#include <filesystem>
#include <string>

namespace inin {

/// A site on the disk, created for one play and deleted after it. In the folder sites/NAME, "folders.txt" names empty
/// folders, "*.sql" is run in "site.db", "*.ini" is converted to code page 932 with CR LF, and everything else is
/// copied. The play's own changes are applied last.
class TemporarySite {
public:
    explicit TemporarySite(const Play &play);

    /// As reported by the system, and so as seen by the program.
    [[nodiscard]] const std::filesystem::path &folder() const { return m_folder.folder(); }
    /// A path of the suite inside the site, in this system's notation.
    [[nodiscard]] std::filesystem::path at(const std::string &suitePath) const;

private:
    void fill(const std::filesystem::path &source);
    void change(const Play &play) const;

    TempFolder m_folder;
};

/// Replaces the site's folder by $APP, with either separator, also with doubled backslashes as in JSON.
[[nodiscard]] std::string withoutFolder(const std::string &text, const TemporarySite &site);
/// Converts UTF-8 lines to the format of the suite's text files.
[[nodiscard]] std::string suiteBytes(const std::string &utf8);

} // namespace inin
