#pragma once

#include "platform/locale.h"
#include "runtime/regional.h"
#include "site_check/finding.h"
#include "site_check/site_settings.h"

#include <filesystem>
#include <optional>
#include <string>

namespace inin::site {

/// Checks the settings, folders, programs, form documents and database of a site. Writes nothing but a
/// file in each folder that must be writable, which it removes.
[[nodiscard]] Findings checkSite(const std::filesystem::path &folder);

// The parts of checkSite().

/// Returns the branch if "BASEID" names one.
[[nodiscard]] std::optional<Branch> checkSettings(const std::filesystem::path &folder, Findings &findings);
void checkForms(const std::filesystem::path &folder, const Settings &settings, Findings &findings);
/// The menu program and the form tools.
void checkPrograms(const std::filesystem::path &folder, Findings &findings);
/// Without a branch only tables and columns are checked, not the rows.
void checkDatabase(const std::filesystem::path &folder, const std::optional<Branch> &branch, Findings &findings);

/// The system's code page, in which the programs read the settings.
void checkCodePage(Locale &system, Findings &findings);
/// The system's date format, which is the same for every site that is checked on this computer.
void checkShortDate(const Regional &regional, Findings &findings);
/// The user's copies of the site's files, which Windows keeps for programs without a manifest. `localData` is the user's
/// folder for the data of programs; empty on other systems.
void checkVirtualStore(const std::filesystem::path &folder, const std::string &localData, Findings &findings);

} // namespace inin::site
