#pragma once

#include "demo_site/scratch_site.h"
#include "site_check/site_check.h"
#include "suite_text/code_page_932.h"
#include "system/file_path.h"

#include <doctest/doctest.h>

#include <string>
#include <vector>

namespace inin::test {

using Sentences = std::vector<std::string>;

inline Sentences sentencesOf(const site::Findings &findings)
{
    Sentences sentences;
    for (const site::Finding &finding : findings) sentences.push_back(finding.sentence);
    return sentences;
}

/// A demo site without irregularities that has been printed once: a check finds nothing.
struct SoundSite {
    TempFolder folder;
    SoundSite()
    {
        site::makeSite(path(), {150, 1, std::chrono::year{2024} / 5}, site::Overwrite::anyFolder);
        execute(database(), "UPDATE RIYOUSHA SET nDairiID = 11 WHERE nDairiID > 9000");
        writeBytes(path() / "DATA" / inin::pathOf("印刷設定.ini"), encodeCp932("[委任状]\r\n対象期間=1\r\n"));
    }
    [[nodiscard]] const std::filesystem::path &path() const { return folder.folder(); }
    [[nodiscard]] std::filesystem::path database() const { return path() / "demo.db"; }
    /// Replaces a part of a settings file.
    void change(const char *file, const std::string &from, const std::string &to) const
    {
        std::string text = decodeCp932(bytesOf(path() / file));
        const std::size_t place = text.find(from);
        REQUIRE(place != std::string::npos);
        writeBytes(path() / file, encodeCp932(text.replace(place, from.size(), to)));
    }
    [[nodiscard]] site::Findings findings() const { return site::checkSite(path()); }
    [[nodiscard]] Sentences check() const { return sentencesOf(findings()); }
};

} // namespace inin::test
