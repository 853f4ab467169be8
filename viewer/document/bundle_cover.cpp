#include "viewer/document/bundle_cover.h"

#include "system/file_path.h"
#include "system/whole_file.h"
#include "viewer/document/form_file.h"
#include "viewer/form/cover_columns.h"
#include "viewer/form/svg_reader.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace inin::viewer {

namespace {

LetterReport builtInCovers()
{
    LetterReport report;
    report.formPath = kCoverFormName;
    report.form = readSvg(builtInCoverForm());
    report.columns = coverColumns(report.form);
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
    report.columns = coverColumns(report.form);
    return report;
}

LetterReport addCovers(const LetterSet &set, const LetterNames &names, std::vector<LetterBundle> &bundles)
{
    std::optional<LetterReport> own = siteCovers(set);
    LetterReport report = own ? std::move(*own) : builtInCovers();
    CoverPages pages(set, names, coverNames(report.form));
    for (std::size_t i = 0; i < bundles.size(); ++i) pages.add(bundles[i], i + 1, bundles.size());
    report.letters = tableOf(report.columns, pages.rows());
    return report;
}

bool isCoverForm(const LetterReport &report)
{
    if (report.formFileName() == kCoverFormName) return true;
    const std::vector<std::string> covers = coverColumns(report.form);
    const auto isIn = [](const std::vector<std::string> &columns, const std::string &column) {
        return std::ranges::find(columns, column) != columns.end();
    };
    bool isCover = false;
    for (const std::string &column : namedColumns(report.form)) {
        const bool coversHaveIt = isIn(covers, column), lettersHaveIt = isIn(report.columns, column);
        if (lettersHaveIt && !coversHaveIt) return false;
        isCover = isCover || (coversHaveIt && !lettersHaveIt);
    }
    return isCover;
}

void replaceByCovers(LetterSet &samples)
{
    LetterReport &report = samples.reports.front();
    std::vector<std::size_t> letters(samples.size());
    std::iota(letters.begin(), letters.end(), std::size_t{0});
    std::vector<LetterBundle> bundles = arrangeLetters(samples, std::move(letters), {LetterSort::insurer}).bundles;
    const LetterNames names(samples);
    CoverPages pages(samples, names, coverNames(report.form));
    std::vector<std::vector<std::string>> firstPages;
    for (std::size_t i = 0; i < bundles.size(); ++i) {
        const std::size_t first = pages.rows().size();
        pages.add(bundles[i], i + 1, bundles.size());
        firstPages.push_back(pages.rows()[first]);
    }
    report.columns = coverColumns(report.form);
    report.letters = tableOf(report.columns, firstPages);
}

} // namespace inin::viewer
