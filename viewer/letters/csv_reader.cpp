#include "viewer/letters/csv_reader.h"

#include "runtime/runtime_error.h"
#include "suite_text/code_page_932.h"

#include <algorithm>
#include <array>

namespace inin::viewer {

namespace {

constexpr std::string_view kSeparator = "\",\"";

/// A line of the file; the last one may have no line end.
struct Line {
    std::string_view text;
    bool hasEnd = false;
};

Line takeLine(std::string_view &rest)
{
    const std::size_t end = rest.find('\n');
    Line line{rest.substr(0, end), end != std::string_view::npos};
    rest.remove_prefix(line.hasEnd ? end + 1 : rest.size());
    if (line.text.ends_with('\r')) line.text.remove_suffix(1);
    return line;
}

/// Finds the separators in a row, overlapping ones too: `",","` contains two, of which only one is used.
void findSeparators(std::string_view inner, std::vector<std::size_t> &places)
{
    places.clear();
    for (std::size_t at = inner.find(kSeparator); at != std::string_view::npos; at = inner.find(kSeparator, at + 1))
        places.push_back(at);
}

/// Separators overlap in chains, two bytes apart. In a chain of odd length the largest selection without overlaps is
/// every other separator and is unique; a chain of even length allows several.
bool leavesChoice(const std::vector<std::size_t> &places)
{
    std::size_t chain = 1;
    for (std::size_t i = 1; i <= places.size(); ++i) {
        const bool goesOn = i < places.size() && places[i] - places[i - 1] < kSeparator.size();
        if (!goesOn && chain % 2 == 0) return true;
        chain = goesOn ? chain + 1 : 1;
    }
    return false;
}

/// Selects as many separators without overlaps as possible.
void dropOverlaps(const std::vector<std::size_t> &places, std::vector<std::size_t> &chosen)
{
    chosen.clear();
    std::size_t free = 0;
    for (const std::size_t place : places) {
        if (place < free) continue;
        chosen.push_back(place);
        free = place + kSeparator.size();
    }
}

/// Whether exactly one selection of these separators splits the row into `columns` fields, and why not.
RowFault judge(const std::vector<std::size_t> &all, std::size_t chosen, std::size_t columns)
{
    if (chosen + 1 < columns) return RowFault::tooFewColumns;
    // One separator too many may be part of a value, and it is unknown which.
    if (chosen + 1 > columns) return RowFault::tooManyColumns;
    return leavesChoice(all) ? RowFault::ambiguous : RowFault::none;
}

/// The fields of a row with a unique split.
void splitAt(std::string_view inner, const std::vector<std::size_t> &places, std::vector<std::string_view> &fields)
{
    fields.clear();
    std::size_t begin = 0;
    for (const std::size_t place : places) {
        fields.push_back(inner.substr(begin, place - begin));
        begin = place + kSeparator.size();
    }
    fields.push_back(inner.substr(begin));
}

bool isQuoted(std::string_view text)
{
    return text.size() >= 2 && text.starts_with('"') && text.ends_with('"');
}

/// A NUL cannot be printed; show it as an undecodable character.
std::string decoded(std::string_view bytes)
{
    constexpr std::string_view kLost = "\xEF\xBF\xBD";
    std::string text = decodeCp932(bytes);
    if (text.find('\0') == std::string::npos) return text;
    std::string out;
    for (const char c : text) {
        if (c == '\0')
            out += kLost;
        else
            out += c;
    }
    return out;
}

std::string_view innerOf(const Line &line)
{
    return line.text.substr(1, line.text.size() - 2);
}

/// Parses the rows of a text into views of it.
class RowReader {
public:
    RowReader(LetterRows &rows, std::size_t columns) : m_rows(rows), m_columns(columns) {}

    void read()
    {
        for (std::string_view rest = m_rows.text(); !rest.empty();) {
            const Line line = takeLine(rest);
            if (!line.text.empty()) readRow(line);
        }
    }

private:
    void readRow(const Line &line)
    {
        const RowFault fault = faultOf(line);
        if (fault != RowFault::none) {
            m_rows.addFaultyRow(fault, line.text);
            return;
        }
        splitAt(innerOf(line), m_chosen, m_fields);
        m_rows.addRow(m_fields);
    }

    RowFault faultOf(const Line &line)
    {
        if (!isQuoted(line.text)) return line.hasEnd ? RowFault::notQuoted : RowFault::cutOff;
        // A last line without a line end may have lost the rest of its last value, even if it ends with a quote.
        if (!line.hasEnd) return RowFault::cutOff;
        findSeparators(innerOf(line), m_places);
        dropOverlaps(m_places, m_chosen);
        return judge(m_places, m_chosen.size(), m_columns);
    }

    LetterRows &m_rows;
    std::size_t m_columns;
    std::vector<std::size_t> m_places, m_chosen;
    std::vector<std::string_view> m_fields;
};

LetterRows readLines(std::string_view bytes, std::size_t columns)
{
    LetterRows rows(columns, decoded(bytes));
    RowReader(rows, columns).read();
    return rows;
}

/// Finds the rows among the bytes from `begin` on. The second byte of a character is never a line end.
void findRows(UnreadRows &rows, std::size_t begin)
{
    const std::string_view whole = rows.bytes;
    for (std::string_view rest = whole.substr(begin); !rest.empty();) {
        const std::size_t place = whole.size() - rest.size();
        if (takeLine(rest).text.empty()) continue;
        if (rows.rows++ % UnreadRows::kBlock == 0) rows.blocks.push_back(place);
    }
}

[[noreturn]] void fail(const char *sentence)
{
    throw RuntimeError(error_number::invalidCall, sentence);
}

std::vector<std::string> titledColumns(const Line &first)
{
    if (!first.hasEnd && first.text.starts_with('"')) fail("見出し行が途中で切れています。");
    if (!isQuoted(first.text)) fail("先頭の行が見出し行ではありません。各列を引用符で囲んだ行が必要です。");
    std::vector<std::size_t> places, chosen;
    findSeparators(innerOf(first), places);
    if (leavesChoice(places)) fail("見出し行の列の区切りを決められません。");
    dropOverlaps(places, chosen);
    std::vector<std::string_view> fields;
    splitAt(innerOf(first), chosen, fields);
    return {fields.begin(), fields.end()};
}

/// The column names of a file without titles, from its first row.
std::vector<std::string> numberedColumns(const Line &first)
{
    std::vector<std::size_t> places, chosen;
    if (isQuoted(first.text)) findSeparators(innerOf(first), places);
    dropOverlaps(places, chosen);
    if (chosen.size() + 1 == programTitles().size()) return programTitles();
    std::vector<std::string> columns;
    for (std::size_t i = 0; i <= chosen.size(); ++i) columns.push_back(std::to_string(i + 1));
    return columns;
}

} // namespace

const std::vector<std::string> &programTitles()
{
    static const std::vector<std::string> titles = {
        "対象開始日", "対象終了日",   "保険者名",   "利用者氏名", "利用者住所",   "会社名称",   "会社住所",
        "代表者名",   "会社電話番号", "金融機関名", "口座番号",   "口座名義",     "最終施術日", "保険者地区名",
        "保険種別",   "世帯主名",     "世帯主電話", "世帯主住所", "金融機関名２", "署名日",
    };
    return titles;
}

LetterTable readLetters(std::string bytes, TitleRow titles)
{
    if (bytes.empty()) fail("ファイルが空です。");
    std::string_view rest = bytes;
    const Line line = takeLine(rest);
    const std::string text = decoded(line.text);
    const Line first{text, line.hasEnd};
    std::vector<std::string> columns = titles == TitleRow::first ? titledColumns(first) : numberedColumns(first);
    const std::size_t begin = titles == TitleRow::first ? bytes.size() - rest.size() : 0;
    UnreadRows rows{std::move(bytes), 0, {}, readLines};
    findRows(rows, begin);
    return {std::move(columns), std::move(rows)};
}

} // namespace inin::viewer
