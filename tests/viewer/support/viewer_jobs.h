#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace inin::viewer::test {

[[nodiscard]] bool contains(const std::string &text, const std::string &part);

/// The forms of site/forms; the first is the standard form.
inline constexpr const char *kForms[] = {"委任状37_01.wfd", "委任状23.wfd", "委任状37_高松市.wfd"};
inline constexpr const char *kForm = kForms[0];

using Row = std::map<std::string, std::string>;
/// A letter with ordinary values.
[[nodiscard]] Row ordinaryRow();
/// The longest values of the suite's columns: addresses of 100 full-width characters, names of 25.
[[nodiscard]] Row longestRow();
/// Quotes, commas, a placeholder as a value, an invalid date, half-width kana, a replacement character.
[[nodiscard]] Row oddRow();

/// A letter file in the print program's format, code page 932.
[[nodiscard]] std::string csvOf(const std::vector<Row> &rows);
/// Writes a form of site/forms, "委任状.csv" and a print run's script into the folder. Returns the path of the script.
std::string writePrintJob(const std::filesystem::path &folder, const std::string &form, const std::vector<Row> &rows);

} // namespace inin::viewer::test
