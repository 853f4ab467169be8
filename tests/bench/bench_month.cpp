// From the database to the CSV of a month's letters, as a whole process, compared with the sqlite3 command writing the
// result of the same statement as CSV.

#include "adapters/sqlite/sql_names.h"
#include "adapters/sqlite/sql_translator.h"
#include "bench/bench_process.h"
#include "bench/bench_site.h"
#include "bench/figures.h"
#include "demo_site/database_maker.h"

#include <fmt/format.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <map>

namespace inin::bench {

using namespace sqlite;

namespace {

constexpr std::size_t kLetters = 32'000;
constexpr int kRuns = 9;

/// Enough patients for slightly more letters.
std::int64_t patientsFor(std::size_t letters)
{
    return static_cast<std::int64_t>(letters + letters / 10);
}

/// Runs in the child process, and ends it as the program ends: without freeing the letters.
int runOnce(const std::string &folder)
{
    BenchScreen screen(folder);
    screen.writeMonth();
    std::fflush(stdout);
    std::_Exit(0);
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

std::string outputOf(const BenchSite &site)
{
    return (site.folder() / "bench.out").string();
}

std::vector<std::string> commandFor(const std::string &self, const BenchSite &site)
{
    return {self, "run", site.folder().string()};
}

double growthOf(const std::string &self)
{
    std::map<std::size_t, BenchSite> sites;
    return growthExponent([&](std::size_t letters) {
        const BenchSite &site = sites.try_emplace(letters, patientsFor(letters)).first->second;
        return runProcess(commandFor(self, site), outputOf(site));
    });
}

int compare(const std::string &self)
{
    const BenchSite site(patientsFor(kLetters));
    const std::string output = outputOf(site);
    const auto plainCsv = (site.folder() / "plain.csv").string();
    const std::string database = (site.folder() / "demo.db").string();
    const Race race = raceOf({commandFor(self, site), output},
                             {{"sqlite3", "-csv", "-header", database, statement()}, plainCsv}, kRuns);
    Figure figure =
        raceFigure(fmt::format("a month's {} letters to CSV", firstLine(output)), race, "sqlite3", "ratio 1.00, 45 MB");
    figure.growth = ratioText(growthOf(self));
    print(figure);
    print({"rows of the same statement", firstLine(output), fmt::format("{} sqlite3", linesOf(plainCsv) - 1)});
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
