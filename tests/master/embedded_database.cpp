#include "master/embedded_database.h"

#include "adapters/sqlite/sqlite_database.h"

#include <sqlite3.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace inin {

namespace {

struct CloseHandle {
    void operator()(sqlite3 *handle) const { sqlite3_close(handle); }
};
struct FinalizeStatement {
    void operator()(sqlite3_stmt *statement) const { sqlite3_finalize(statement); }
};
using Handle = std::unique_ptr<sqlite3, CloseHandle>;

Handle openHandle(const std::string &file)
{
    sqlite3 *handle = nullptr;
    const int result = sqlite3_open(file.c_str(), &handle);
    Handle opened(handle);
    if (result != SQLITE_OK) throw std::runtime_error("cannot open " + file);
    return opened;
}

std::filesystem::path makeFolder()
{
    std::string pattern = (std::filesystem::temp_directory_path() / "inin-master-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("cannot make a temporary folder");
    return pattern;
}

std::string schema()
{
    std::ifstream file(ININ_SITE "/schema_sqlite.sql", std::ios::binary);
    if (!file) throw std::runtime_error("the schema of a site is not there");
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace

EmbeddedDatabase::EmbeddedDatabase()
    : m_folder(makeFolder()), m_port(makeSqliteDatabase([this](const std::string &) { return file(); }))
{
    // Nothing of a test outlives it: waiting for the disk would make up most of its time.
    run("PRAGMA synchronous = OFF;" + schema());
}

EmbeddedDatabase::~EmbeddedDatabase()
{
    m_port.reset();
    std::error_code ignored;
    std::filesystem::remove_all(m_folder, ignored);
}

void EmbeddedDatabase::run(const std::string &sql) const
{
    const Handle handle = openHandle(file());
    if (sqlite3_exec(handle.get(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(handle.get()));
}

std::string EmbeddedDatabase::value(const std::string &sql) const
{
    const Handle handle = openHandle(file());
    sqlite3_stmt *prepared = nullptr;
    if (sqlite3_prepare_v2(handle.get(), sql.c_str(), -1, &prepared, nullptr) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(handle.get()));
    const std::unique_ptr<sqlite3_stmt, FinalizeStatement> statement(prepared);
    if (sqlite3_step(prepared) != SQLITE_ROW) return "(none)";
    if (sqlite3_column_type(prepared, 0) == SQLITE_NULL) return "(null)";
    return reinterpret_cast<const char *>(sqlite3_column_text(prepared, 0));
}

} // namespace inin
