#include "viewer/document/bundle_cover.h"

#include "system/file_path.h"
#include "system/whole_file.h"
#include "viewer/document/form_file.h"
#include "viewer/form/svg_reader.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <utility>
#include <variant>

namespace inin::viewer {

namespace {

constexpr std::string_view kNameColumn = "氏名", kNumberColumn = "番号";
constexpr std::size_t kMostNames = 1000; ///< on one page

/// The number in the name of a column, such as 12 in 氏名12; 0 if it is another column.
std::size_t numberIn(std::string_view column, std::string_view name)
{
    if (!column.starts_with(name)) return 0;
    column.remove_prefix(name.size());
    std::size_t number = 0;
    const auto [end, error] = std::from_chars(column.data(), column.data() + column.size(), number);
    return error == std::errc() && end == column.data() + column.size() && number <= kMostNames ? number : 0;
}

/// How many names a page of the form lists.
std::size_t namesOn(const FormDocument &form)
{
    std::size_t most = 0;
    for (const DrawCommand &command : form.commands)
        if (const auto *const text = std::get_if<TextCommand>(&command))
            for (const TextPiece &piece : text->pieces) most = std::max(most, numberIn(piece.column, kNameColumn));
    return most;
}

std::vector<std::string> columnsOf(std::size_t names)
{
    std::vector<std::string> columns = {"表題",     "保険者名", "保険者地区名", "通数",
                                        "束の番号", "束の数",   "ページ",       "ページ数"};
    for (std::size_t i = 1; i <= names; ++i) {
        columns.push_back(fmt::format("{}{}", kNumberColumn, i));
        columns.push_back(fmt::format("{}{}", kNameColumn, i));
    }
    return columns;
}

LetterReport builtInCovers()
{
    LetterReport report;
    report.formPath = kCoverFormName;
    report.form = readSvg(builtInCoverForm());
    report.columns = columnsOf(namesOn(report.form));
    return report;
}

std::string nameOf(const LetterNames &names, std::size_t letter)
{
    const std::string_view patient = names.patient(letter);
    return patient.empty() ? "（氏名なし）" : std::string(patient);
}

class CoverPages {
public:
    CoverPages(const LetterSet &set, const LetterNames &names, std::size_t onPage)
        : m_set(set), m_names(names), m_onPage(onPage)
    {
    }

    void add(LetterBundle &bundle, std::size_t number, std::size_t bundles)
    {
        const std::size_t count = bundle.letters.size();
        const std::size_t pages = m_onPage == 0 ? 1 : (count + m_onPage - 1) / m_onPage;
        for (std::size_t page = 0; page < pages; ++page) {
            bundle.covers.push_back(m_set.size() + m_rows.size());
            std::vector<std::string> &row = m_rows.emplace_back();
            row = {m_set.shownTitle(),       insurersText(m_names, bundle), districtsText(m_names, bundle),
                   std::to_string(count),    std::to_string(number),        std::to_string(bundles),
                   std::to_string(page + 1), std::to_string(pages)};
            addNames(row, bundle.letters, page * m_onPage);
        }
    }
    [[nodiscard]] const std::vector<std::vector<std::string>> &rows() const { return m_rows; }

private:
    void addNames(std::vector<std::string> &row, const std::vector<std::size_t> &letters, std::size_t first) const
    {
        for (std::size_t i = first; i < first + m_onPage; ++i) {
            row.push_back(i < letters.size() ? std::to_string(letters[i] + 1) : std::string());
            row.push_back(i < letters.size() ? nameOf(m_names, letters[i]) : std::string());
        }
    }

    const LetterSet &m_set;
    const LetterNames &m_names;
    std::size_t m_onPage;
    std::vector<std::vector<std::string>> m_rows;
};

} // namespace

std::optional<LetterReport> siteCovers(const LetterSet &set)
{
    const std::string &beside = set.reports.front().formPath;
    LetterReport report;
    report.formPath = beside.substr(0, beside.find_last_of("/\\") + 1) + kCoverFormName;
    if (fileInfo(systemPath(report.formPath)).kind == FileInfo::Kind::missing) return std::nullopt;
    std::vector<StampedFile> pictures;
    report.form = readFormFile(report.formPath, readWholeFile(report.formPath, kLargestForm), pictures);
    report.columns = columnsOf(namesOn(report.form));
    return report;
}

LetterReport addCovers(const LetterSet &set, const LetterNames &names, std::vector<LetterBundle> &bundles)
{
    std::optional<LetterReport> own = siteCovers(set);
    LetterReport report = own ? std::move(*own) : builtInCovers();
    CoverPages pages(set, names, namesOn(report.form));
    for (std::size_t i = 0; i < bundles.size(); ++i) pages.add(bundles[i], i + 1, bundles.size());
    report.letters = tableOf(report.columns, pages.rows());
    return report;
}

} // namespace inin::viewer
