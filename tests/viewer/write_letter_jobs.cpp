// write_letter_jobs FOLDER: a print job for each form of the site, with letters of every sort, in a folder of its own below
// FOLDER. scripts/test-windows prints them on both systems.
#include "runtime/file_path.h"
#include "viewer/viewer_jobs.h"

#include <fmt/format.h>

using namespace inin::viewer::test;

namespace {

constexpr const char *kForms[] = {"委任状37_01.wfd", "委任状23.wfd", "委任状37_高松市.wfd"};

std::vector<Row> rowsOfEverySort()
{
    std::vector<Row> rows = {ordinaryRow(), longestRow(), oddRow(), Row{}};
    rows.push_back(ordinaryRow());
    // What the forms' font lacks comes from another one, and what no font has is told.
    rows.back()["利用者氏名"] = "∑ﬁ 鷗外";
    rows.back()["世帯主名"] = "?";
    return rows;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        fmt::print(stderr, "usage: write_letter_jobs FOLDER\n");
        return 2;
    }
    for (int i = 0; const char *const form : kForms) {
        const auto folder = std::filesystem::absolute(inin::pathOf(argv[1])) / std::to_string(++i);
        std::filesystem::create_directories(folder);
        writePrintJob(folder, form, rowsOfEverySort());
    }
    return 0;
}
