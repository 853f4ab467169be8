#pragma once

#include "adapters/sqlite/sqlite_database.h"
#include "support/fake_platform.h"
#include "support/temp_folder.h"

#include <sqlite3.h>

#include <memory>
#include <stdexcept>
#include <string>

namespace inin {

/// A fake world over an embedded database with a site's tables, in its own temporary folder. A test that uses it links
/// inin_sqlite and SQLite::SQLite3.
struct EmbeddedWorld : FakeWorld {
    EmbeddedWorld()
    {
        files.putText("C:\\SUITE\\adodb.ini", "[接続情報]\n接続情報=Provider=SQLite;Data Source=" + path() + "\n");
        run(bytesOf(pathOf(ININ_SITE "/schema_sqlite.sql")));
        site.gcsAppPath = app.gcsAppPath;
        site.iKyotenCd = app.iKyotenCd;
        site.iKyotenEb = app.iKyotenEb;
    }

    /// Runs statements in SQLite's own dialect on a separate connection.
    void run(const std::string &sql) const { ask(sql, nullptr, nullptr); }
    /// The last value of a query in SQLite's own dialect, "(null)" for NULL and "(none)" without a row.
    [[nodiscard]] std::string value(const std::string &sql) const
    {
        std::string found = "(none)";
        ask(
            sql,
            [](void *text, int, char **values, char **) {
                *static_cast<std::string *>(text) = values[0] == nullptr ? "(null)" : values[0];
                return 0;
            },
            &found);
        return found;
    }

private:
    void ask(const std::string &sql, int (*onRow)(void *, int, char **, char **), void *target) const
    {
        sqlite3 *opened = nullptr;
        const int result = sqlite3_open(path().c_str(), &opened);
        const std::unique_ptr<sqlite3, int (*)(sqlite3 *)> owned(opened, sqlite3_close);
        if (result != SQLITE_OK || sqlite3_exec(opened, sql.c_str(), onRow, target, nullptr) != SQLITE_OK)
            throw std::runtime_error(std::string(sqlite3_errmsg(opened)) + ": " + sql.substr(0, 200));
    }
    [[nodiscard]] std::string path() const { return m_folder / "site.db"; }

    TempFolder m_folder;
    std::unique_ptr<Database> m_database = sqlite::makeSqliteDatabase([](const std::string &source) { return source; });

public:
    Platform embedded{boxes, windows, *m_database, profile, files, processes, clock, locale, automation};
    App site{embedded};
};

} // namespace inin
