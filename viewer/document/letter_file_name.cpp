#include "viewer/document/letter_file_name.h"

#include "runtime/runtime_error.h"
#include "runtime/text.h"
#include "runtime/utf8.h"
#include "viewer/form/date_pattern.h"

#include <fmt/format.h>

#include <algorithm>

namespace inin::viewer {

namespace {

constexpr std::string_view kNumber = "番号";
/// Bytes of a name without its extension and the number of a duplicate: file systems allow 255.
constexpr std::size_t kLongest = 200;
constexpr std::string_view kRefused = "/\\:*?\"<>|";

bool isKnown(const LetterSet &set, const std::string &column)
{
    return column == kNumber || std::ranges::all_of(set.reports, [&](const LetterReport &report) {
               return std::ranges::find(report.columns, column) != report.columns.end();
           });
}

std::string fileNameOf(std::string_view text)
{
    std::string name;
    for (const char letter : text) {
        const bool isControl = static_cast<unsigned char>(letter) < 0x20 || letter == 0x7F;
        name += isControl || kRefused.find(letter) != kRefused.npos ? '_' : letter;
    }
    name.resize(characterStart(name, std::min(name.size(), kLongest)));
    // Some systems drop blanks and dots at a name's end, and hide names that begin with a dot.
    while (!name.empty() && (name.back() == ' ' || name.back() == '.')) name.pop_back();
    name.erase(0, name.find_first_not_of(" ."));
    return name;
}

} // namespace

LetterFileNames::LetterFileNames(const LetterSet &set, std::string_view pattern, std::string_view ending)
    : m_set(set), m_pieces(readPieces(pattern)), m_ending(ending)
{
    for (const TextPiece &piece : m_pieces)
        if (piece.isField() && !isKnown(set, piece.column))
            throw RuntimeError(
                error_number::noSuchField,
                fmt::format("ファイル名の「{{{{{0}}}}}」の列「{0}」が CSV にありません。", piece.column));
}

std::string LetterFileNames::textOf(std::size_t letter) const
{
    const LetterSet::Place place = m_set.placeOf(letter);
    const LetterReport &report = m_set.reports[place.report];
    // As many digits as the last number has, so that the names sort in the order of the letters.
    const std::size_t digits = std::to_string(m_set.size()).size();
    std::string text;
    for (const TextPiece &piece : m_pieces) {
        if (!piece.isField()) {
            text += piece.literal;
            continue;
        }
        if (piece.column == kNumber) {
            text += fmt::format("{:0{}}", letter + 1, digits);
            continue;
        }
        const auto column = std::ranges::find(report.columns, piece.column) - report.columns.begin();
        const std::string_view value = report.value(place.row, static_cast<std::size_t>(column));
        const auto written = piece.pattern.empty() ? std::nullopt : formattedDate(value, piece.pattern);
        text += value.empty() ? piece.whenBlank : written ? *written : std::string(value);
    }
    return text;
}

std::string LetterFileNames::nameOf(std::size_t letter)
{
    std::string name = fileNameOf(textOf(letter));
    if (name.empty()) name = std::to_string(letter + 1);
    std::string free = name;
    for (int twin = 2; !m_given.insert(asciiLower(free)).second; ++twin) free = fmt::format("{} ({})", name, twin);
    return free + m_ending;
}

} // namespace inin::viewer
