#include "viewer/document/letter_set.h"

#include "runtime/runtime_error.h"
#include "system/whole_file.h"
#include "transfer/run_record.h"
#include "viewer/document/combined_form.h"
#include "viewer/document/form_file.h"
#include "viewer/document/form_notices.h"
#include "viewer/document/paper_size.h"
#include "viewer/form/form_document.h"
#include "viewer/form/svg_reader.h"
#include "viewer/io/fingerprint.h"
#include "viewer/letters/csv_reader.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>

namespace inin::viewer {

namespace {

constexpr std::size_t kLargestScript = std::size_t{1} << 22;
constexpr std::size_t kLargestLetterFile = std::size_t{1} << 30;
constexpr int kMaxReports = 100;

/// Prefixes an error inside a file with the file's path.
template <class Body> auto naming(const std::string &path, Body &&body)
try {
    return body();
} catch (const RuntimeError &error) {
    throw RuntimeError(error.number(), fmt::format("「{}」：{}", path, error.description()));
}

std::string cutOffText(const std::string &path)
{
    return fmt::format(
        "「{}」は途中で切れているため、委任状が足りないおそれがあります。条件の画面から出力し直してください。", path);
}

/// A sentence when the run record of a letter file of this size has another number of letters.
std::optional<std::string> countDifference(const std::string &path, std::size_t fileSize, std::size_t rows)
{
    std::string text;
    try {
        text = readWholeFile(runRecordPath(path), kLargestRunRecord);
    } catch (const RuntimeError &) {
        return std::nullopt; // most letter files have no record, and an unreadable one is ignored
    }
    const std::optional<RunRecord> run = readRunRecord(text);
    if (!run || run->fileSize != fileSize || run->letters == rows) return std::nullopt;
    return fmt::format(
        "「{}」に書き出された委任状は{}通ですが、読み込んだ行は{}行です。データの中の改行などで委任状が増減した"
        "おそれがあります。印刷の前に内容を確認してください。",
        path, run->letters, rows);
}

class Opener {
public:
    explicit Opener(const Pause &pause) : m_pause(pause) {}

    LetterSet open(const CommandScript &script)
    {
        m_set.title = script.title;
        m_set.notices = script.notices;
        m_set.paper = script.paper;
        m_set.usesFormPaper = !script.namesPaper;
        m_set.ending = script.ending;
        m_set.offsetX = script.offsetX;
        m_set.offsetY = script.offsetY;
        for (const ReportOrder &order : script.reports) openReport(order, CombinedForms::allowed);
        applyItems(script.items);
        for (const LetterReport &report : m_set.reports)
            for (std::string &notice : noticesAboutForm(m_set, report)) m_set.notices.push_back(std::move(notice));
        if (m_set.size() == 0)
            throw RuntimeError(error_number::invalidCall, "印刷する委任状がありません。CSV にデータの行がありません。");
        return std::move(m_set);
    }

private:
    enum class CombinedForms { allowed, refused };

    void openReport(const ReportOrder &order, CombinedForms combined)
    {
        if (order.form.empty())
            throw RuntimeError(error_number::invalidCall, "コマンドファイルに帳票の名前（FileName）がありません。");
        // A combined form is written by a merge that started just before the viewer and may still be running.
        const std::string bytes = order.data.empty() ? waitForFile(order.form, kLargestForm, m_pause)
                                                     : readWholeFile(order.form, kLargestForm);
        if (!isCombinedForm(bytes)) {
            addReport(order, bytes);
            return;
        }
        const auto parts = naming(order.form, [&] { return readCombinedForm(bytes); });
        // A combined form that includes itself would never end.
        if (combined == CombinedForms::refused || parts.size() > kMaxReports)
            throw RuntimeError(error_number::invalidCall,
                               fmt::format("「{}」：結合した帳票の中に結合した帳票は置けません。", order.form));
        for (const ReportOrder &part : parts) openReport(part, CombinedForms::refused);
    }

    void addReport(const ReportOrder &order, const std::string &bytes)
    {
        LetterReport report;
        report.formPath = order.form;
        report.formFingerprint = fingerprintOf(bytes);
        if (order.data.empty())
            throw RuntimeError(
                error_number::invalidCall,
                fmt::format("コマンドファイルに帳票「{}」の CSV（SetDataText）がありません。", order.form));
        for (const DataSource &source : order.data) {
            LetterTable table = readTable(source);
            const bool isFirst = report.columns.empty();
            for (const std::string &column : table.columns())
                report.columns.push_back(isFirst ? column : source.name + "." + column);
            if (isFirst)
                report.letters = std::move(table);
            else
                report.others.push_back(std::move(table));
        }
        readFormInto(report, bytes);
        m_set.reports.push_back(std::move(report));
    }

    LetterTable readTable(const DataSource &source)
    {
        ReadFile file = readGrowingFile(source.path, kLargestLetterFile, m_pause);
        m_set.letterFiles.push_back({source.path, file.stamp});
        const std::size_t fileSize = file.bytes.size();
        const bool isCutOff = isUnfinished(file.bytes);
        LetterTable table = naming(source.path, [&] {
            return readLetters(std::move(file.bytes), source.hasTitles ? TitleRow::first : TitleRow::none);
        });
        if (isCutOff) warn(cutOffText(source.path));
        if (const auto difference = countDifference(source.path, fileSize, table.size())) warn(*difference);
        return table;
    }

    void warn(const std::string &sentence)
    {
        m_set.warnings.push_back(sentence);
        m_set.notices.push_back(sentence);
    }

    void readFormInto(LetterReport &report, const std::string &bytes)
    {
        if (!looksLikeXml(bytes)) {
            report.isListing = true;
            const std::string heading = fmt::format(
                "「{}」はこのプログラムの帳票（SVG）ではないため、各行の内容を一覧で表示します。", report.formPath);
            report.form = listingForm(report.columns, heading);
            m_set.notices.push_back(heading);
            return;
        }
        report.form = readFormFile(report.formPath, bytes);
        for (const std::string &notice : report.form.notices)
            m_set.notices.push_back(fmt::format("「{}」：{}", report.formPath, notice));
        if (report.letters.size() == 1 && !report.form.singleNotice.empty()) warn(report.form.singleNotice);
    }

    /// An item text replaces the form text whose id is the item's name.
    void applyItems(const std::vector<ItemText> &items)
    {
        for (const ItemText &item : items) {
            bool isUsed = false;
            const std::string name = item.name.substr(item.name.rfind('.') + 1);
            for (LetterReport &report : m_set.reports) isUsed = replaceText(report.form, name, item.text) || isUsed;
            if (!isUsed) m_set.notices.push_back(fmt::format("帳票に項目「{}」がありません。", item.name));
        }
    }

    static bool replaceText(FormDocument &form, const std::string &id, const std::string &text)
    {
        bool isUsed = false;
        for (DrawCommand &command : form.commands) {
            auto *const old = std::get_if<TextCommand>(&command);
            if (old == nullptr || old->id != id) continue;
            // A field stays a field at its place among the commands, but shows this text.
            old->pieces = {{text, {}, {}, {}}};
            isUsed = true;
        }
        return isUsed;
    }

    const Pause &m_pause;
    LetterSet m_set;
};

} // namespace

std::string_view LetterReport::value(std::size_t row, std::size_t column) const
{
    if (column < letters.columns().size()) return letters.value(row, column);
    column -= letters.columns().size();
    for (const LetterTable &table : others) {
        if (column < table.columns().size()) {
            const std::size_t own = table.size() == 1 ? 0 : row;
            return own < table.size() ? table.value(own, column) : std::string_view();
        }
        column -= table.columns().size();
    }
    return {};
}

std::string LetterReport::formFileName() const
{
    return formPath.substr(formPath.find_last_of("/\\") + 1);
}

std::size_t LetterSet::size() const
{
    std::size_t count = 0;
    for (const LetterReport &report : reports) count += report.letters.size();
    return count;
}

bool LetterSet::hasOwnPaper(const FormDocument &form, std::size_t page) const
{
    if (usesFormPaper || form.paper == FormPaper::own) return true;
    return form.paper == FormPaper::standard && paper == Paper::A4 && isStandardPaper(form.pageSize(page));
}

Point LetterSet::paperOf(const FormDocument &form, std::size_t page) const
{
    return hasOwnPaper(form, page) ? form.pageSize(page) : sizeOf(paper);
}

std::string LetterSet::shownTitle() const
{
    return title.empty() ? "委任状" : title;
}

std::string LetterSet::kindTitle() const
{
    const LetterReport &first = reports.front();
    const std::string name = first.formFileName();
    std::string kind = first.form.title.empty() ? name.substr(0, name.find_last_of('.')) : first.form.title;
    // The form's title usually begins with the script's.
    if (!kind.starts_with(shownTitle())) kind = shownTitle() + " " + kind;
    if (reports.size() > 1) kind += "ほか";
    return kind;
}

std::string LetterSet::runTitle() const
{
    return fmt::format("{}　{}通", kindTitle(), size());
}

LetterSet::Place LetterSet::placeOf(std::size_t letter) const
{
    std::size_t report = 0;
    while (report + 1 < reports.size() && letter >= reports[report].letters.size())
        letter -= reports[report++].letters.size();
    return {report, letter};
}

LetterSet openScript(const std::string &path, const Pause &pause)
{
    const CommandScript script = readCommandScript(readGrowingFile(path, kLargestScript, pause).bytes);
    return naming(path, [&] { return openLetters(script, pause); });
}

LetterSet openLetters(const CommandScript &script, const Pause &pause)
{
    return Opener(pause).open(script);
}

} // namespace inin::viewer
