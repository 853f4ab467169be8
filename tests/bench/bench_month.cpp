// From the database to the CSV of a month's letters, as a whole process, compared with the sqlite3 command writing the
// result of the same statement as CSV.

#include "adapters/sqlite/sql_names.h"
#include "adapters/sqlite/sql_translator.h"
#include "bench/bench_process.h"
#include "bench/bench_site.h"
#include "demo_site/database_maker.h"

#include <fmt/format.h>

#include <exception>
#include <fstream>

namespace inin::bench {

using namespace sqlite;

namespace {

/// Enough patients for slightly more than 32,000 letters.
constexpr std::int64_t kPatients = 35200;
constexpr int kRuns = 9;

/// Runs in the child process.
int runOnce(const std::string &folder)
{
    BenchScreen screen(folder);
    screen.writeMonth();
    return 0;
}

/// The sqlite3 command lacks the adapter's collation; insurers' numbers are digits, so the order is the same without
/// it.
std::string withoutCollation(std::string sql)
{
    constexpr std::string_view clause = " COLLATE ININ_JA";
    for (std::size_t at = sql.find(clause); at != sql.npos; at = sql.find(clause)) sql.erase(at, clause.size());
    return sql;
}

std::string statement()
{
    SqlSchema schema;
    for (const site::TableColumns &table : site::schemaTables()) {
        for (const site::SchemaColumn &column : table.columns) schema.add(table.name, column.name, column.type);
    }
    return withoutCollation(translateSql(monthStatement(), schema).text);
}

std::int64_t linesOf(const std::filesystem::path &file)
{
    std::ifstream stream(file);
    std::int64_t lines = 0;
    for (std::string line; std::getline(stream, line);) ++lines;
    return lines;
}

int compare(const std::string &self)
{
    const BenchSite site(kPatients);
    const auto output = (site.folder() / "bench.out").string();
    const auto plainCsv = (site.folder() / "plain.csv").string();
    const std::string database = (site.folder() / "demo.db").string();
    const auto [ours, plain, ratio] = raceOf({{self, "run", site.folder().string()}, output},
                                             {{"sqlite3", "-csv", "-header", database, statement()}, plainCsv}, kRuns);
    fmt::print("bench_month: letters {} (sqlite3: {} rows)\n", firstLine(output), linesOf(plainCsv) - 1);
    fmt::print("bench_month: extraction and CSV {:.3f} s, {:.1f} MB at the peak\n", ours.seconds, ours.megabytes);
    fmt::print("bench_month: sqlite3 command    {:.3f} s, {:.1f} MB at the peak\n", plain.seconds, plain.megabytes);
    fmt::print("bench_month: ratio {:.2f} (aim: at most 1.10, below 80 MB)\n", ratio);
    return 0;
}

} // namespace

} // namespace inin::bench

int main(int argc, char **argv)
try {
    const std::vector<std::string> arguments(argv, argv + argc);
    if (arguments.size() == 3 && arguments[1] == "run") return inin::bench::runOnce(arguments[2]);
    return inin::bench::compare(arguments[0]);
} catch (const std::exception &fault) {
    fmt::print(stderr, "bench_month: {}\n", fault.what());
    return 1;
}
