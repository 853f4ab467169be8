#include "bench/letter_job.h"

#include "bench/letter_rows.h"
#include "suite_text/code_page_932.h"

#include <fmt/format.h>

#include <fstream>

namespace inin::bench {

namespace {

std::string quotedLine(const std::vector<std::string> &fields)
{
    std::string line;
    for (const std::string &field : fields) line += (line.empty() ? "\"" : ",\"") + field + "\"";
    return line + "\r\n";
}

} // namespace

LetterJob::LetterJob(std::size_t letters)
{
    std::string csv = quotedLine(letterTitles());
    for (std::size_t n = 0; n < letters; ++n) csv += quotedLine(letterRow(n));
    std::ofstream(file("letters.csv"), std::ios::binary) << encodeCp932(csv);
    std::ofstream(script(), std::ios::binary)
        << encodeCp932(fmt::format("FileName,\"{}/forms/委任状37_01.wfd\"\r\nTitle,\"委任状\"\r\n"
                                   "SetDataText,\"委任状\",\"{}\"\r\nPrintPaper, A4\r\nPrintOut\r\n",
                                   ININ_SITE, file("letters.csv")));
}

} // namespace inin::bench
