#pragma once

#include "platform/database.h"
#include "site_check/finding.h"

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>

namespace inin::site {

// The settings of a site as its programs read them.

/// The entries of "Massage.ini" without sections: the value follows the first "=" of the first line with the key.
using Settings = std::map<std::string, std::string>;

struct Branch {
    int code = 0;
    int subCode = 0;
};

/// The bytes of a file, found by its name in any case; nothing if it cannot be read.
[[nodiscard]] std::optional<std::string> readSiteFile(const std::filesystem::path &path);
[[nodiscard]] bool isThere(const std::filesystem::path &path);
/// Joins a folder and a value of "Massage.ini" as the program does, without a separator.
[[nodiscard]] std::filesystem::path joined(const std::filesystem::path &folder, const std::string &value);

// Each adds a finding and returns nothing if the settings are missing or wrong.

[[nodiscard]] std::optional<Settings> readSettings(const std::filesystem::path &folder, Findings &findings);
/// The value of "BASEID" as the branch.
[[nodiscard]] std::optional<Branch> branchOf(const Settings &settings, Findings &findings);
/// The connection string in "adodb.ini".
[[nodiscard]] std::optional<std::string> connectionText(const std::filesystem::path &folder, Findings &findings);
[[nodiscard]] std::optional<std::string> valueOf(const Settings &settings, const std::string &key, Findings &findings);

/// The form document that "帳票Format.ini" sets for every letter; empty if it sets none.
[[nodiscard]] std::string formOfFormatFile(const std::filesystem::path &folder, const Settings &settings);

/// Resolves the path of an embedded database: relative to the site's folder, which is the program's current folder.
[[nodiscard]] std::string dataSourceOf(const std::filesystem::path &folder, const std::string &path);

/// An open database of a site.
struct SiteDatabase {
    std::unique_ptr<Database> database;
    std::unique_ptr<Connection> connection;
};
/// Opens the database of a connection string; RuntimeError with the provider's text if that fails.
[[nodiscard]] SiteDatabase openSiteDatabase(const std::filesystem::path &folder, const std::string &connectionText);

} // namespace inin::site
