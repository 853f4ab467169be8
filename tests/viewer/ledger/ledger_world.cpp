#include "viewer/ledger/ledger_world.h"

#include "viewer/io/fingerprint.h"
#include "viewer/letters/csv_reader.h"

namespace inin::viewer::test {

TextRow textRow(const std::string &patient, const std::string &month)
{
    return {month + "/01",
            month + "/28",
            "高松市",
            patient,
            "香川県高松市番町1-2-3",
            "訪問マッサージ本社",
            "高松市中央町",
            "代表太郎",
            "087-000-0000",
            "百十四銀行  本店",
            "(普) 1234567",
            "代表太郎",
            month + "/20",
            "高松",
            "1",
            "世帯主",
            "087-111-1111",
            "高松市番町",
            "百十四銀行  本店",
            month + "/01"};
}

RunTexts textsOfRows(const std::vector<TextRow> &rows)
{
    RunTexts texts(programTitles());
    for (const TextRow &row : rows)
        for (const std::string &text : row) texts.add(text);
    return texts;
}

TestRun runOfRows(const std::vector<TextRow> &rows, const MonthRange &period, const std::string &form)
{
    Fingerprint csv;
    for (const TextRow &row : rows)
        for (const std::string &text : row) csv.add(text);
    RunMark mark;
    mark.csvFingerprint = csv.text();
    mark.formFingerprint = fingerprintOf(form);
    mark.title = "委任状";
    mark.formName = form;
    mark.period = period;
    mark.letters = rows.size();
    return {mark, textsOfRows(rows)};
}

TestRun runOf(std::size_t count, const MonthRange &period)
{
    std::vector<TextRow> rows;
    std::string month = monthRangeText({period.first, period.first});
    month[4] = '/';
    for (std::size_t i = 0; i < count; ++i) rows.push_back(textRow("利用者" + std::to_string(i + 1), month));
    return runOfRows(rows, period);
}

RunId LedgerWorld::print(Ledger &ledger, const TestRun &run, Date now)
{
    const RunId id = ledger.recordRun(run.mark, run.texts, now).value();
    const OutputId output = ledger.recordOutput(id, printJob(lettersFrom(0, run.texts.size()), now)).value();
    if (!ledger.confirmAll(output)) throw std::runtime_error("not confirmed");
    return id;
}

} // namespace inin::viewer::test
