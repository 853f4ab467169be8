#include "viewer/document/letter_opener.h"

#include "runtime/runtime_error.h"
#include "system/whole_file.h"
#include "transfer/run_record.h"
#include "viewer/document/bundle_cover.h"
#include "viewer/document/combined_form.h"
#include "viewer/document/form_file.h"
#include "viewer/document/form_notices.h"
#include "viewer/document/paper_size.h"
#include "viewer/document/sample_letters.h"
#include "viewer/form/form_document.h"
#include "viewer/form/svg_reader.h"
#include "viewer/io/fingerprint.h"
#include "viewer/letters/csv_reader.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <utility>

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

std::string listingHeading(const LetterReport &report)
{
    return fmt::format("「{}」はこのプログラムの帳票（SVG）ではないため、各行の内容を一覧で表示します。",
                       report.formPath);
}

class Opener {
public:
    explicit Opener(const Pause &pause) : m_pause(pause) {}

    LetterSet open(const CommandScript &script)
    {
        m_set.title = script.title;
        m_set.scriptNotices = script.notices;
        m_set.items = script.items;
        m_set.paper = script.paper;
        m_set.usesFormPaper = !script.namesPaper;
        m_set.ending = script.ending;
        m_set.offsetX = script.offsetX;
        m_set.offsetY = script.offsetY;
        for (const ReportOrder &order : script.reports) openReport(order, CombinedForms::allowed);
        finishForms();
        if (m_set.size() == 0)
            throw RuntimeError(error_number::invalidCall, "印刷する委任状がありません。CSV にデータの行がありません。");
        return std::move(m_set);
    }

    LetterSet openSample(const std::string &formPath)
    {
        m_set.isSample = true;
        m_set.usesFormPaper = true;
        LetterReport &report = m_set.reports.emplace_back();
        report.formPath = formPath;
        fillWithSample(report);
        readFormInto(report, readStampedFile(formPath, kLargestForm));
        if (report.isListing) refuseOtherFile(report);
        m_set.hasSampleCovers = isCoverForm(report);
        if (m_set.hasSampleCovers) replaceByCovers(m_set);
        finishForms();
        return std::move(m_set);
    }

    LetterSet readFormsAgain(LetterSet set)
    {
        m_set = std::move(set);
        m_set.formFiles.clear();
        for (LetterReport &report : m_set.reports) {
            const bool wasForm = !std::exchange(report.isListing, false);
            readFormInto(report, readStampedFile(report.formPath, kLargestForm));
            // A program that saves the form may have emptied it first.
            if (wasForm && report.isListing) refuseOtherFile(report);
        }
        if (m_set.hasSampleCovers) {
            // The form decides how many names are on a cover; the number of covers stays.
            fillWithSample(m_set.reports.front());
            replaceByCovers(m_set);
        }
        finishForms();
        return std::move(m_set);
    }

private:
    enum class CombinedForms { allowed, refused };

    static void fillWithSample(LetterReport &report)
    {
        report.letters = readLetters(std::string(sampleLetters()), TitleRow::first);
        report.columns = report.letters.columns();
    }

    [[noreturn]] static void refuseOtherFile(const LetterReport &report)
    {
        throw RuntimeError(error_number::invalidCall,
                           fmt::format("「{}」：帳票（SVG）ではありません。", report.formPath));
    }

    void openReport(const ReportOrder &order, CombinedForms combined)
    {
        if (order.form.empty())
            throw RuntimeError(error_number::invalidCall, "コマンドファイルに帳票の名前（FileName）がありません。");
        // A combined form is written by a merge that started just before the viewer and may still be running.
        const ReadFile file = order.data.empty() ? waitForFile(order.form, kLargestForm, m_pause)
                                                 : readStampedFile(order.form, kLargestForm);
        if (!isCombinedForm(file.bytes)) {
            addReport(order, file);
            return;
        }
        const auto parts = naming(order.form, [&] { return readCombinedForm(file.bytes); });
        // A combined form that includes itself would never end.
        if (combined == CombinedForms::refused || parts.size() > kMaxReports)
            throw RuntimeError(error_number::invalidCall,
                               fmt::format("「{}」：結合した帳票の中に結合した帳票は置けません。", order.form));
        for (const ReportOrder &part : parts) openReport(part, CombinedForms::refused);
    }

    void addReport(const ReportOrder &order, const ReadFile &formFile)
    {
        LetterReport report;
        report.formPath = order.form;
        if (order.data.empty())
            throw RuntimeError(
                error_number::invalidCall,
                fmt::format("コマンドファイルに帳票「{}」の CSV（SetDataText）がありません。", order.form));
        for (const DataSource &source : order.data) {
            LetterTable table = readTable(source, report.letterWarnings);
            const bool isFirst = report.columns.empty();
            for (const std::string &column : table.columns())
                report.columns.push_back(isFirst ? column : source.name + "." + column);
            if (isFirst)
                report.letters = std::move(table);
            else
                report.others.push_back(std::move(table));
        }
        readFormInto(report, formFile);
        m_set.reports.push_back(std::move(report));
    }

    LetterTable readTable(const DataSource &source, std::vector<std::string> &warnings)
    {
        ReadFile file = readGrowingFile(source.path, kLargestLetterFile, m_pause);
        m_set.letterFiles.push_back({source.path, file.stamp});
        const std::size_t fileSize = file.bytes.size();
        const bool isCutOff = isUnfinished(file.bytes);
        LetterTable table = naming(source.path, [&] {
            return readLetters(std::move(file.bytes), source.hasTitles ? TitleRow::first : TitleRow::none);
        });
        if (isCutOff) warnings.push_back(cutOffText(source.path));
        if (auto difference = countDifference(source.path, fileSize, table.size()))
            warnings.push_back(std::move(*difference));
        return table;
    }

    void warn(const std::string &sentence)
    {
        m_set.warnings.push_back(sentence);
        m_set.notices.push_back(sentence);
    }

    void readFormInto(LetterReport &report, const ReadFile &file)
    {
        m_set.formFiles.push_back({report.formPath, file.stamp});
        report.formFingerprint = fingerprintOf(file.bytes);
        report.isListing = !looksLikeXml(file.bytes);
        report.form = report.isListing ? listingForm(report.columns, listingHeading(report))
                                       : readFormFile(report.formPath, file.bytes, m_set.formFiles);
    }

    /// What depends on all forms: the texts that replace their texts, and the notices in their order.
    void finishForms()
    {
        m_set.notices = m_set.scriptNotices;
        m_set.warnings.clear();
        for (const LetterReport &report : m_set.reports) {
            for (const std::string &warning : report.letterWarnings) warn(warning);
            if (report.isListing) m_set.notices.push_back(listingHeading(report));
            for (const std::string &notice : report.form.notices)
                m_set.notices.push_back(fmt::format("「{}」：{}", report.formPath, notice));
            if (report.letters.size() == 1 && !report.form.singleNotice.empty()) warn(report.form.singleNotice);
        }
        applyItems(m_set.items);
        for (const LetterReport &report : m_set.reports)
            for (std::string &notice : noticesAboutForm(m_set, report)) m_set.notices.push_back(std::move(notice));
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

LetterSet openScript(const std::string &path, const Pause &pause)
{
    const CommandScript script = readCommandScript(readGrowingFile(path, kLargestScript, pause).bytes);
    return naming(path, [&] { return openLetters(script, pause); });
}

LetterSet openForm(const std::string &path)
{
    return Opener(sleepBriefly).openSample(path);
}

LetterSet withFormsReadAgain(LetterSet set)
{
    return Opener(sleepBriefly).readFormsAgain(std::move(set));
}

LetterSet openLetters(const CommandScript &script, const Pause &pause)
{
    return Opener(pause).open(script);
}

} // namespace inin::viewer
