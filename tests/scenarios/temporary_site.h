#pragma once

#include "scenarios/play.h"
#include "support/temp_folder.h"

#include <filesystem>
#include <string>

namespace inin {

/// A site on the disk, made anew for one play and removed behind it.
/// Of the folder sites/NAME: "folders.txt" names empty folders, "*.sql" is run into "site.db", "*.ini" is turned into
/// code page 932 with CR LF, everything else is copied as it is. The play's own changes come last.
class TemporarySite {
public:
    explicit TemporarySite(const Play &play);

    /// As the system reports it, and so as the program sees it.
    [[nodiscard]] const std::filesystem::path &folder() const { return m_folder.folder(); }
    /// A path of the suite inside the site, as this system writes it.
    [[nodiscard]] std::filesystem::path at(const std::string &suitePath) const;

private:
    void fill(const std::filesystem::path &source);
    void change(const Play &play) const;

    TempFolder m_folder;
};

/// A text with $APP for the site's folder, whose name stands there with either separator, in JSON doubled.
[[nodiscard]] std::string withoutFolder(const std::string &text, const TemporarySite &site);
/// UTF-8 lines as the suite's text files hold them.
[[nodiscard]] std::string suiteBytes(const std::string &utf8);

} // namespace inin
