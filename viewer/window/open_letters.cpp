#include "viewer/window/open_letters.h"

#include <utility>

namespace inin::viewer {

OpenLetters::OpenLetters(LetterSet letters)
    : set(std::move(letters)), renderer(set, fonts), pictures(renderer, glyphs), names(set), ticks(set.size())
{
    collectNotices();
}

void OpenLetters::readFormsAgain()
{
    LetterSet changed = withFormsReadAgain(set);
    fonts.forgetFamilies();
    LetterRenderer::Layouts layouts = renderer.layOut(changed);
    set = std::move(changed); // the reports, to whose forms the layouts refer, keep their addresses
    renderer.setLayouts(std::move(layouts));
    pictures.clearAll();
    collectNotices();
}

void OpenLetters::collectNotices()
{
    notices = set.notices;
    notices.insert(notices.end(), fonts.notices().begin(), fonts.notices().end());
    for (const std::vector<std::string> &more : {renderer.formNotices(), renderer.coverNotices()})
        notices.insert(notices.end(), more.begin(), more.end());
}

ArrangedLetters OpenLetters::arrange(std::vector<std::size_t> letters, LetterArrangement arrangement)
{
    arrangement.hasCovers = arrangement.hasCovers && letters.size() > 1;
    ArrangedLetters arranged = arrangeLetters(set, std::move(letters), arrangement);
    renderer.setCovers(std::exchange(arranged.covers, std::nullopt));
    return arranged;
}

} // namespace inin::viewer
