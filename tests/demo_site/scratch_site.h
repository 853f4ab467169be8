#pragma once

#include "demo_site/site_maker.h"
#include "support/temp_folder.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace inin::test {

/// The first column of each row, as text; NULL is "NULL".
[[nodiscard]] std::vector<std::string> query(const std::filesystem::path &database, const std::string &sql);
[[nodiscard]] std::int64_t countOf(const std::filesystem::path &database, const std::string &sql);
void execute(const std::filesystem::path &database, const std::string &sql);

/// May 2024, three hundred patients, seed 1.
[[nodiscard]] site::SiteOrder ordinaryOrder();

/// A site of that order, made once for all tests that only read it.
[[nodiscard]] const std::filesystem::path &sharedSite();
[[nodiscard]] std::filesystem::path sharedDatabase();

} // namespace inin::test
