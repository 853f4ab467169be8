#include "viewer/returns/returned_text.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <iterator>

namespace inin::viewer {

namespace {

std::ptrdiff_t countOf(const ReturnedPages &pages, CodeResult result)
{
    return std::ranges::count_if(pages.pages(),
                                 [=](const ReturnedPage &page) { return page.returned.result == result; });
}

std::ptrdiff_t toLookAt(const ReturnedPages &pages)
{
    return std::ranges::count_if(pages.pages(), &ReturnedPage::needsAttention);
}

std::string join(const std::string &a, const std::string &b)
{
    return a.empty() || b.empty() ? a + b : a + "　" + b;
}

} // namespace

std::string returnedLine(const ReturnedPage &page)
{
    const std::string letter = join(page.code, join(page.returned.insurer, page.returned.patient));
    return fmt::format("{} {}ページ：{}{}", page.file, page.page, wordsOf(page.returned.result).sentence,
                       letter.empty() ? "" : "（" + letter + "）");
}

std::string returnedSummary(const ReturnedPages &pages)
{
    std::string text =
        fmt::format("返送済みにした委任状 {}通、すでに返送済み {}通、確かめるページ {}",
                    countOf(pages, CodeResult::marked), countOf(pages, CodeResult::already), toLookAt(pages));
    if (!pages.unread().empty()) text += fmt::format("、読めないファイル {}", pages.unread().size());
    return text;
}

std::string returnedText(const ReturnedPages &pages, const std::string &notice)
{
    std::string text;
    for (const ReturnedPage &page : pages.pages()) text += returnedLine(page) + "\n";
    for (const UnreadFile &file : pages.unread()) text += file.sentence + "\n";
    text += returnedSummary(pages) + "\n";
    return notice.empty() ? text : text + notice + "\n";
}

std::string returnedJson(const ReturnedPages &pages, const std::string &notice)
{
    nlohmann::ordered_json json = {{"marked", countOf(pages, CodeResult::marked)},
                                   {"already", countOf(pages, CodeResult::already)},
                                   {"toLookAt", toLookAt(pages)},
                                   {"pages", nlohmann::ordered_json::array()},
                                   {"unreadFiles", nlohmann::ordered_json::array()},
                                   {"notice", notice}};
    for (const ReturnedPage &page : pages.pages())
        json["pages"].push_back({{"file", page.file},
                                 {"page", page.page},
                                 {"result", wordsOf(page.returned.result).name},
                                 {"code", page.code},
                                 {"insurer", page.returned.insurer},
                                 {"patient", page.returned.patient}});
    for (const UnreadFile &file : pages.unread())
        json["unreadFiles"].push_back({{"file", file.file}, {"sentence", file.sentence}});
    return json.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n";
}

} // namespace inin::viewer
