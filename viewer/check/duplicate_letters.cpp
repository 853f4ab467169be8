#include "viewer/check/duplicate_letters.h"

#include "suite_text/japanese_text.h"

#include <algorithm>
#include <numeric>
#include <string>
#include <string_view>

namespace inin::viewer {

namespace {

std::vector<std::size_t> readableRows(const LetterTable &table)
{
    std::vector<std::size_t> rows(table.size());
    std::iota(rows.begin(), rows.end(), std::size_t{0});
    std::erase_if(rows, [&](std::size_t row) { return table.fault(row) != RowFault::none; });
    return rows;
}

/// Sorts the rows by `before` and returns the runs of two and more equivalent rows.
template <class Before> std::vector<LetterGroup> runsOf(std::vector<std::size_t> rows, const Before &before)
{
    std::ranges::stable_sort(rows, before);
    std::vector<LetterGroup> groups;
    for (auto begin = rows.begin(); begin != rows.end();) {
        const auto end = std::find_if(begin, rows.end(), [&](std::size_t row) { return before(*begin, row); });
        if (end - begin > 1) groups.emplace_back(begin, end);
        begin = end;
    }
    return groups;
}

auto comesBefore(const LetterTable &table)
{
    return [&table](std::size_t a, std::size_t b) {
        // Start at the last column: the first ones are the same in all rows of a printing run.
        for (std::size_t column = table.columns().size(); column-- > 0;) {
            const int order = table.value(a, column).compare(table.value(b, column));
            if (order != 0) return order < 0;
        }
        return false;
    };
}

/// Appends a text in one width and one kind of kana, without blanks.
void appendFolded(std::u32string &out, std::string_view text)
{
    std::u32string folded;
    foldJapanese(text, folded); // full-width blanks become half-width ones
    std::erase(folded, U' ');
    out += folded;
}

} // namespace

std::vector<LetterGroup> sameLetters(const LetterTable &table)
{
    return runsOf(readableRows(table), comesBefore(table));
}

std::vector<LetterGroup> samePersons(const LetterTable &table)
{
    const auto name = table.columnOf("利用者氏名"), address = table.columnOf("利用者住所");
    if (!name || !address) return {};
    std::vector<std::size_t> rows = readableRows(table);
    std::vector<std::u32string> persons(table.size());
    for (const std::size_t row : rows) {
        appendFolded(persons[row], table.value(row, *name));
        if (persons[row].empty()) continue;
        persons[row] += U'\n';
        appendFolded(persons[row], table.value(row, *address));
    }
    std::erase_if(rows, [&](std::size_t row) { return persons[row].empty(); });
    std::vector<LetterGroup> groups =
        runsOf(std::move(rows), [&](std::size_t a, std::size_t b) { return persons[a] < persons[b]; });
    const auto before = comesBefore(table);
    std::erase_if(groups, [&](const LetterGroup &group) {
        return std::ranges::none_of(
            group, [&](std::size_t row) { return before(row, group.front()) || before(group.front(), row); });
    });
    return groups;
}

} // namespace inin::viewer
