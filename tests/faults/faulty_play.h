#pragma once

#include "faults/fault_plan.h"
#include "scenarios/script_driver.h"

#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <string>

namespace inin {

/// The files of a folder by their relative paths, and its folders without content.
using FolderContent = std::map<std::string, std::optional<std::string>>;
[[nodiscard]] FolderContent contentOf(const std::filesystem::path &folder);

/// A play that is repeated with faults on the same site, and the rules that hold whatever fails.
class FaultyPlay {
public:
    /// Prepares the site and plays twice without a fault.
    explicit FaultyPlay(const std::string &file);

    /// Brings the site back to its state before the first play.
    void restoreSite();
    [[nodiscard]] PlayRecord play();
    [[nodiscard]] PlayRecord playWith(FaultPlan &portFaults);

    /// The first rule that a run with a fault has broken; empty for none. The program ends by itself or with a report,
    /// shows only texts that the rules allow, reveals no password, starts the form tool only with finished files, leaves each file as it was,
    /// finished or recognizably unfinished, and no other file or open descriptor.
    [[nodiscard]] std::string brokenRule(const PlayRecord &record) const;
    /// The part of brokenRule() that holds after a killed process too.
    [[nodiscard]] std::string brokenFileRule() const;

    [[nodiscard]] FolderContent files() const { return contentOf(m_site.folder()); }
    /// True if the files are those after the play without a fault, or after a repeated one, which may begin with other
    /// conditions because the first one stored its own.
    [[nodiscard]] bool hasUsualFiles() const { return files() == m_usualFiles || files() == m_filesOfRepetition; }
    [[nodiscard]] const std::string &name() const { return m_play.file; }

private:
    [[nodiscard]] bool areOutputsFinished() const;
    /// The text of a file that the play has written; empty without one.
    [[nodiscard]] std::string newText(const std::string &name) const;

    Play m_play;
    TemporarySite m_site;
    FolderContent m_before, m_usualFiles, m_filesOfRepetition;
    std::set<std::string> m_usualTexts;  ///< of boxes
    bool m_endsInTemporaryFolder = true; ///< the outputs of the usual run are in the ordinary folder
    std::string m_unfinishedStart;       ///< a start of the form tool with unfinished files
    std::size_t m_descriptors = 0;       ///< open ones before the play
};

} // namespace inin
