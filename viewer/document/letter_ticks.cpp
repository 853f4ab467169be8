#include "viewer/document/letter_ticks.h"

#include "viewer/document/letter_numbers.h"
#include "viewer/form/placeholder.h"

namespace inin::viewer {

void LetterTicks::set(std::size_t letter, bool ticked)
{
    if (m_ticked[letter] == ticked) return;
    m_ticked[letter] = ticked;
    m_count = ticked ? m_count + 1 : m_count - 1;
}

void LetterTicks::setAll(bool ticked)
{
    m_ticked.assign(m_ticked.size(), ticked);
    m_count = ticked ? m_ticked.size() : 0;
}

void LetterTicks::setText(std::string_view text)
{
    const std::vector<std::size_t> letters =
        isBlankText(text) ? std::vector<std::size_t>() : readLetterList(text, m_ticked.size());
    setAll(false);
    for (const std::size_t letter : letters) set(letter, true);
}

std::string LetterTicks::text() const
{
    return letterListText(letters());
}

std::vector<std::size_t> LetterTicks::letters() const
{
    std::vector<std::size_t> letters;
    letters.reserve(m_count);
    for (std::size_t i = 0; i < m_ticked.size(); ++i)
        if (m_ticked[i]) letters.push_back(i);
    return letters;
}

} // namespace inin::viewer
