#pragma once

#include "viewer/returns/returned_pages.h"

#include <string>

namespace inin::viewer {

/// "scan.pdf 3ページ：返送済みにしました。（123456-0000001-42　高松市　山田太郎）"
[[nodiscard]] std::string returnedLine(const ReturnedPage &page);
/// "12ページ：返送済みにした委任状 10通、すでに返送済み 1通、確かめるページ 1"
[[nodiscard]] std::string returnedSummary(const ReturnedPages &pages);
/// The lines of all pages and files, then the summary, and the ledger's notice if there is one.
[[nodiscard]] std::string returnedText(const ReturnedPages &pages, const std::string &notice);
[[nodiscard]] std::string returnedJson(const ReturnedPages &pages, const std::string &notice);

} // namespace inin::viewer
