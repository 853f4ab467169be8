#include "demo_site/scratch_site.h"

#include <sqlite3.h>

#include <cstdlib>
#include <memory>
#include <stdexcept>

namespace inin::test {

namespace {

namespace fs = std::filesystem;

struct Close {
    void operator()(sqlite3 *database) const { sqlite3_close(database); }
};

std::unique_ptr<sqlite3, Close> open(const fs::path &file)
{
    sqlite3 *database = nullptr;
    if (sqlite3_open_v2(file.string().c_str(), &database, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK) {
        throw std::runtime_error("no database");
    }
    return std::unique_ptr<sqlite3, Close>{database};
}

int keepFirst(void *rows, int, char **values, char **)
{
    static_cast<std::vector<std::string> *>(rows)->push_back(values[0] == nullptr ? "NULL" : values[0]);
    return 0;
}

} // namespace

std::vector<std::string> query(const fs::path &database, const std::string &sql)
{
    std::vector<std::string> rows;
    const auto handle = open(database);
    if (sqlite3_exec(handle.get(), sql.c_str(), keepFirst, &rows, nullptr) != SQLITE_OK) {
        throw std::runtime_error(sqlite3_errmsg(handle.get()));
    }
    return rows;
}

std::int64_t countOf(const fs::path &database, const std::string &sql)
{
    return std::stoll(query(database, sql).at(0));
}

void execute(const fs::path &database, const std::string &sql)
{
    (void)query(database, sql); // a statement that writes returns no rows
}

site::SiteOrder ordinaryOrder()
{
    return {300, 1, std::chrono::year{2024} / 5};
}

const fs::path &sharedSite()
{
    static const TempFolder folder;
    static const bool isMade = (site::makeSite(folder.folder(), ordinaryOrder(), site::Overwrite::onlyOwnFolder), true);
    (void)isMade; // the line above makes it, once
    return folder.folder();
}

fs::path sharedDatabase()
{
    return sharedSite() / "demo.db";
}

} // namespace inin::test
