// write_letter_jobs FOLDER: writes a print job for each form of the site, with letters of all kinds, into a subfolder of
// FOLDER each. scripts/test-windows prints them on both systems.
#include "support/file_bytes.h"
#include "viewer/support/viewer_jobs.h"

#include <fmt/format.h>

using namespace inin;
using namespace inin::viewer::test;

namespace {

/// Characters that the form's font lacks, and one that no font has.
constexpr const char *kRareCharacters =
    "<svg xmlns='http://www.w3.org/2000/svg' width='210mm' height='297mm' viewBox='0 0 210 297'>"
    "<text x='20' y='20' style='font-family:IPAexMincho'>甲𠮷∑ﬁ乙{{保険者名}}\U0010FFFD</text>"
    "<text x='20' y='40' style='font-family:MS Gothic'>ゴシック{{利用者氏名}}</text></svg>";

std::vector<Row> rowsOfEverySort()
{
    return {ordinaryRow(), longestRow(), oddRow(), Row{}};
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        fmt::print(stderr, "usage: write_letter_jobs FOLDER\n");
        return 2;
    }
    const auto writeJob = [top = std::filesystem::absolute(pathOf(argv[1]))](int number, const char *form) {
        auto folder = top / std::to_string(number);
        std::filesystem::create_directories(folder);
        writePrintJob(folder, form, rowsOfEverySort());
        return folder;
    };
    for (int i = 0; const char *const form : kForms) writeJob(++i, form);
    writeBytes(textOf(writeJob(4, "rare.svg") / "rare.svg"), kRareCharacters);
    return 0;
}
