#include "printing/csv_output.h"

#include "common/helpers.h"
#include "common/text_file.h"
#include "runtime/runtime_error.h"

namespace inin {

namespace {

/// The column titles that the form documents bind to; deliberately not derived from the record's field names.
constexpr std::string_view kTitles[] = {
    "対象開始日", "対象終了日",   "保険者名",   "利用者氏名", "利用者住所",   "会社名称",   "会社住所",
    "代表者名",   "会社電話番号", "金融機関名", "口座番号",   "口座名義",     "最終施術日", "保険者地区名",
    "保険種別",   "世帯主名",     "世帯主電話", "世帯主住所", "金融機関名２", "署名日",
};

/// Every field is quoted; a quote inside a value is deliberately not doubled.
void appendField(std::string &line, std::string_view text)
{
    if (!line.empty()) line += ',';
    line += '"';
    line += text;
    line += '"';
}

std::string titleLine()
{
    std::string line;
    for (const std::string_view title : kTitles) appendField(line, title);
    return line;
}

/// Replaces the line; its memory is used again for the next row.
void fillLine(std::string &line, const IninRow &row)
{
    line.clear();
    for (const IninField field : kIninFields) appendField(line, (row.*field).view());
}

} // namespace

std::span<const std::string_view> letterColumnTitles()
{
    return kTitles;
}

std::string transferPath(App &app, const std::string &name, WarnIfMissing warn)
{
    return csTmpDir(app, warn) + name;
}

std::uint64_t writeIninCsv(App &app, std::span<const IninRow> aIninRow, std::int16_t iRowCount)
{
    const std::string path = transferPath(app, kCsvFile, WarnIfMissing::yes);
    // Deliberately no handler here or in any caller: if another program holds the CSV open, the deletion (or, where the
    // system allows that, the opening) fails and the program ends with the report of an unhandled error.
    if (bFileExists(app, path)) app.platform.files.remove(path);
    TextOutput csv(app.platform, path);
    std::string line = titleLine();
    csv.printLine(line);
    for (std::int16_t i = 0; i < iRowCount; ++i) {
        // Without an extraction, or after a failed one, iRowCount still counts the rows of an earlier run, and fewer
        // may be left.
        const auto index = static_cast<std::size_t>(i);
        if (index >= aIninRow.size()) throw RuntimeError(error_number::subscript);
        fillLine(line, aIninRow[index]);
        csv.printLine(line);
    }
    csv.close();
    return csv.size();
}

} // namespace inin
