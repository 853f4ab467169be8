#include "viewer/window/letter_finder.h"

#include "suite_text/name_variants.h"
#include "viewer/window/open_letters.h"
#include "viewer/window/qt_text.h"

#include <algorithm>
#include <numeric>

namespace inin::viewer {

namespace {

constexpr char16_t kFirstHiragana = u'ぁ', kLastHiragana = u'ゖ';
constexpr char16_t kToKatakana = u'ァ' - u'ぁ';
/// Separates two values, so that no match crosses them.
constexpr QChar kBetween = u'\n';

} // namespace

QString searchKey(const QString &text)
{
    QString key = text.normalized(QString::NormalizationForm_KC).toCaseFolded();
    key.removeIf([](QChar letter) { return letter.isSpace(); });
    for (QChar &letter : key)
        if (letter >= kFirstHiragana && letter <= kLastHiragana) letter = QChar(letter.unicode() + kToKatakana);
    for (const NameVariant &variant : kNameVariants)
        key.replace(QString::fromUcs4(&variant.rare, 1), QString::fromUcs4(&variant.common, 1));
    return key;
}

void LetterFinder::readLetters()
{
    if (!m_keys.empty()) return;
    m_keys.reserve(m_letters.set.size());
    for (const LetterReport &report : m_letters.set.reports) {
        // Most values equal those of the row before, and then so do their keys.
        std::vector<std::pair<std::string_view, QString>> last(report.columns.size());
        for (std::size_t row = 0; row < report.letters.size(); ++row) {
            QString key = searchKey(qtText(report.letters.rawText(row)));
            for (std::size_t column = 0; column < last.size(); ++column) {
                const std::string_view value = report.value(row, column);
                if (value != last[column].first) last[column] = {value, searchKey(qtText(value))};
                key += kBetween + last[column].second;
            }
            m_keys.push_back(std::move(key));
        }
    }
}

std::vector<bool> LetterFinder::find(const QString &text)
{
    std::vector<bool> found(m_letters.set.size());
    const QString key = searchKey(text);
    if (key.isEmpty()) return found;
    readLetters();
    std::transform(m_keys.begin(), m_keys.end(), found.begin(),
                   [&](const QString &letter) { return letter.contains(key); });
    return found;
}

std::optional<std::size_t> nextWanted(const std::vector<std::size_t> &order, std::size_t from, Direction direction,
                                      const std::vector<bool> &wanted)
{
    const std::size_t count = order.size();
    const auto at = static_cast<std::size_t>(std::ranges::find(order, from) - order.begin());
    // A letter that is not listed has its place before the first one, or after the last one when going backwards.
    const bool isListed = at < count;
    for (std::size_t step = isListed ? 1 : 0; step < count + (isListed ? 1 : 0); ++step) {
        const std::size_t forward = (isListed ? at + step : step) % count;
        const std::size_t backward = (isListed ? at + count - step : count - 1 - step) % count;
        const std::size_t letter = order[direction == Direction::forward ? forward : backward];
        if (wanted[letter]) return letter;
    }
    if (count == wanted.size()) return std::nullopt;
    std::vector<std::size_t> all(wanted.size());
    std::iota(all.begin(), all.end(), std::size_t{0});
    return nextWanted(all, from, direction, wanted);
}

} // namespace inin::viewer
