#pragma once

#include "demo_site/scratch_site.h"
#include "system/file_path.h"

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

namespace inin::test {

/// A scenario of site/scenarios/, played on a demo site of its own of May 2024. Programs are recorded, not started.
class SitePlay {
public:
    SitePlay(const std::string &scenario, const std::string &now);

    [[nodiscard]] int result() const { return m_result; }
    [[nodiscard]] std::string errors() const { return m_errors.str(); }
    [[nodiscard]] bool reports(const std::string &text) const;
    /// The transcript's lines that contain this text, in order.
    [[nodiscard]] std::vector<std::string> linesWith(const std::string &text) const;
    [[nodiscard]] std::string csv() const { return bytesOf(at("TMP") / pathOf("委任状.csv")); }
    [[nodiscard]] std::filesystem::path at(const std::string &name) const { return m_folder.folder() / name; }

private:
    TempFolder m_folder;
    CurrentFolder m_before; ///< the program changes to the site's folder
    std::ostringstream m_transcript;
    std::ostringstream m_errors;
    int m_result = 0;
};

} // namespace inin::test
