#include "viewer/window/open_letters.h"

#include <utility>

namespace inin::viewer {

OpenLetters::OpenLetters(const std::string &scriptPath)
    : set(openScript(scriptPath)), renderer(set, fonts), pictures(renderer, glyphs), names(set), ticks(set.size()),
      notices(set.notices)
{
    notices.insert(notices.end(), fonts.notices().begin(), fonts.notices().end());
    const std::vector<std::string> ofForms = renderer.formNotices();
    notices.insert(notices.end(), ofForms.begin(), ofForms.end());
}

ArrangedLetters OpenLetters::arrange(std::vector<std::size_t> letters, const LetterArrangement &arrangement)
{
    ArrangedLetters arranged = arrangeLetters(set, std::move(letters), arrangement);
    renderer.setCovers(std::exchange(arranged.covers, std::nullopt));
    return arranged;
}

} // namespace inin::viewer
