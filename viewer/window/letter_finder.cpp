#include "viewer/window/letter_finder.h"

#include "viewer/window/open_letters.h"
#include "viewer/window/qt_text.h"

#include <algorithm>

namespace inin::viewer {

namespace {

struct NameShape {
    const char16_t *rare;
    const char16_t *common;
};
/// Character variants of registered names, and the common characters that users type.
constexpr NameShape kShapes[] = {
    {u"髙", u"高"}, {u"﨑", u"崎"}, {u"𠮷", u"吉"}, {u"濵", u"浜"}, {u"濱", u"浜"}, {u"德", u"徳"}, {u"邊", u"辺"},
    {u"邉", u"辺"}, {u"齋", u"斉"}, {u"齊", u"斉"}, {u"斎", u"斉"}, {u"澤", u"沢"}, {u"櫻", u"桜"}, {u"廣", u"広"},
};

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
    for (const NameShape &shape : kShapes)
        key.replace(QStringView(shape.rare).toString(), QStringView(shape.common).toString());
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

bool LetterFinder::holds(std::size_t letter, const QString &text)
{
    readLetters();
    const QString key = searchKey(text);
    return !key.isEmpty() && m_keys[letter].contains(key);
}

std::optional<std::size_t> LetterFinder::next(const QString &text, std::size_t from, Direction direction)
{
    const QString key = searchKey(text);
    if (key.isEmpty()) return std::nullopt;
    readLetters();
    const std::size_t count = m_keys.size();
    for (std::size_t step = 1; step <= count; ++step) {
        const std::size_t letter = (from + (direction == Direction::forward ? step : count - step)) % count;
        if (m_keys[letter].contains(key)) return letter;
    }
    return std::nullopt;
}

std::size_t LetterFinder::count(const QString &text)
{
    const QString key = searchKey(text);
    if (key.isEmpty()) return 0;
    readLetters();
    return static_cast<std::size_t>(
        std::ranges::count_if(m_keys, [&](const QString &letter) { return letter.contains(key); }));
}

} // namespace inin::viewer
