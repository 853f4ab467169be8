#include "viewer/window/open_letters.h"

#include "viewer/document/mark_text.h"

#include <fmt/format.h>

namespace inin::viewer {

OpenLetters::OpenLetters(const std::string &scriptPath)
    : set(openScript(scriptPath)), press(set, fonts), pictures(press, glyphs), names(set), ticks(set.size()),
      notices(set.notices)
{
    notices.insert(notices.end(), fonts.notices().begin(), fonts.notices().end());
    std::size_t first = 0;
    for (const LetterReport &report : set.reports) {
        if (report.letters.size() == 0) continue;
        const std::vector<char32_t> &missing = press.layoutOf(first).missingInForm();
        const bool isForm = report.letters.fault(0) == RowFault::none;
        if (isForm && !missing.empty())
            notices.push_back(
                fmt::format("帳票「{}」の文字で書体にないもの：{}", report.formPath, charactersText(missing)));
        first += report.letters.size();
    }
}

} // namespace inin::viewer
