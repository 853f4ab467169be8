#include "viewer/ledger/letter_identity.h"

#include "viewer/document/folded_name.h"
#include "viewer/io/fingerprint.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <map>
#include <unordered_map>

namespace inin::viewer {

namespace {

constexpr std::array<std::string_view, 4> kMonthlyColumns = {"対象開始日", "対象終了日", "最終施術日", "署名日"};

void addFolded(Fingerprint &print, std::string_view text)
{
    const std::u32string folded = foldedName(text);
    std::string bytes;
    for (const char32_t c : folded)
        for (unsigned shift = 0; shift < 24; shift += 8) bytes += static_cast<char>((c >> shift) & 0xFFU);
    print.add(bytes);
}

/// Computes the keys of consecutive letters.
class KeyMaker {
public:
    explicit KeyMaker(const RunTexts &texts)
        : m_texts(texts), m_insurer(texts.columnOf("保険者名")), m_patient(texts.columnOf("利用者氏名")),
          m_address(texts.columnOf("利用者住所"))
    {
        for (std::size_t column = 0; const std::string &name : texts.columns())
            (isMonthlyColumn(name) ? m_monthly : m_lasting).push_back(column++);
    }

    [[nodiscard]] LetterKey keyOf(std::size_t letter)
    {
        LetterKey key;
        if (const std::string_view patient = m_texts.value(letter, m_patient); !patient.empty())
            key.person = personOf(m_texts.value(letter, m_insurer), patient);
        Fingerprint address, print;
        addFolded(address, m_texts.value(letter, m_address));
        key.address = address.number();
        for (const std::size_t column : m_lasting) print.add(m_texts.value(letter, column));
        key.lasting = print.number();
        for (const std::size_t column : m_monthly) print.add(m_texts.value(letter, column));
        key.content = print.number();
        return key;
    }

private:
    std::uint64_t personOf(std::string_view insurer, std::string_view patient)
    {
        // Most letters have the insurer of the letter before.
        if (!m_hasInsurer || insurer != m_lastInsurer) {
            m_insurerPrint = Fingerprint();
            addFolded(m_insurerPrint, insurer);
            m_lastInsurer = insurer;
            m_hasInsurer = true;
        }
        Fingerprint person = m_insurerPrint;
        addFolded(person, patient);
        return std::max<std::uint64_t>(person.number(), 1);
    }

    const RunTexts &m_texts;
    std::optional<std::size_t> m_insurer, m_patient, m_address;
    std::vector<std::size_t> m_lasting, m_monthly; // numbers of columns
    bool m_hasInsurer = false;
    std::string_view m_lastInsurer;
    Fingerprint m_insurerPrint;
};

/// The letters of one insurer and patient in both runs that are not paired yet.
struct SamePerson {
    std::vector<std::size_t> before, now;
};

class LetterPairs {
public:
    LetterPairs(std::span<const LetterKey> before, std::span<const LetterKey> now)
        : m_before(before), m_now(now), m_pairs(now.size())
    {
    }

    void pairAll(SamePerson &person)
    {
        if (person.before.empty() || person.now.empty()) return;
        pairEqual(person, &LetterKey::content);
        pairEqual(person, &LetterKey::lasting);
        pairEqual(person, &LetterKey::address);
        for (std::size_t i = 0; i < std::min(person.before.size(), person.now.size()); ++i)
            m_pairs[person.now[i]] = person.before[i];
    }
    [[nodiscard]] std::vector<std::optional<std::size_t>> take() { return std::move(m_pairs); }

private:
    /// Pairs the letters with the same value, in their order.
    void pairEqual(SamePerson &person, std::uint64_t LetterKey::*part)
    {
        std::multimap<std::uint64_t, std::size_t> open; // equal values keep their order
        for (const std::size_t letter : person.before)
            if (m_before[letter].*part != 0) open.emplace(m_before[letter].*part, letter);
        if (open.empty()) return;
        std::vector<bool> isTaken(person.before.back() + 1);
        std::erase_if(person.now, [&](std::size_t letter) {
            const auto found = open.lower_bound(m_now[letter].*part);
            if (found == open.end() || found->first != m_now[letter].*part) return false;
            m_pairs[letter] = found->second;
            isTaken[found->second] = true;
            open.erase(found);
            return true;
        });
        std::erase_if(person.before, [&](std::size_t letter) { return isTaken[letter]; });
    }

    std::span<const LetterKey> m_before, m_now;
    std::vector<std::optional<std::size_t>> m_pairs;
};

} // namespace

bool isMonthlyColumn(std::string_view column)
{
    return std::ranges::find(kMonthlyColumns, column) != kMonthlyColumns.end();
}

std::vector<LetterKey> keysOf(const RunTexts &texts)
{
    std::vector<LetterKey> keys;
    keys.reserve(texts.size());
    KeyMaker maker(texts);
    for (std::size_t letter = 0; letter < texts.size(); ++letter) keys.push_back(maker.keyOf(letter));
    return keys;
}

std::vector<std::optional<std::size_t>> sameLettersBefore(std::span<const LetterKey> before,
                                                          std::span<const LetterKey> now)
{
    std::unordered_map<std::uint64_t, SamePerson> persons;
    persons.reserve(before.size());
    for (std::size_t letter = 0; letter < before.size(); ++letter)
        persons[before[letter].person].before.push_back(letter);
    for (std::size_t letter = 0; letter < now.size(); ++letter)
        if (const auto person = persons.find(now[letter].person); person != persons.end())
            person->second.now.push_back(letter);
    LetterPairs pairs(before, now);
    for (auto &person : persons) pairs.pairAll(person.second);
    return pairs.take();
}

} // namespace inin::viewer
