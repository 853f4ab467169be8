#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace inin::viewer::test {

[[nodiscard]] bool contains(const std::string &text, const std::string &part);

/// The forms of site/forms; the first is that of most sites.
inline constexpr const char *kForms[] = {"委任状37_01.wfd", "委任状23.wfd", "委任状37_高松市.wfd"};
inline constexpr const char *kForm = kForms[0];

using Row = std::map<std::string, std::string>;
/// A letter with nothing odd in it.
[[nodiscard]] Row ordinaryRow();
/// Every text as long as the suite's columns let it be: addresses of 100 full-width characters, names of 25.
[[nodiscard]] Row longestRow();
/// Quotes, commas, a placeholder as a value, no date where one belongs, half-width kana, a lost character.
[[nodiscard]] Row oddRow();

/// A letter file as the program writes it, code page 932.
[[nodiscard]] std::string csvOf(const std::vector<Row> &rows);
/// A script of the print run for a form of site/forms and "委任状.csv" in the folder, both written there.
std::string writePrintJob(const std::filesystem::path &folder, const std::string &form, const std::vector<Row> &rows);

} // namespace inin::viewer::test
