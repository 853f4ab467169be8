#pragma once

#include "data/ado_session.h"
#include "support/fake_platform.h"

#include <doctest/doctest.h>

#include <filesystem>
#include <memory>
#include <string>

namespace inin {

/// A file of the embedded database with a site's empty tables, in a folder that goes with it.
class EmbeddedDatabase {
public:
    EmbeddedDatabase();
    EmbeddedDatabase(const EmbeddedDatabase &) = delete;
    EmbeddedDatabase &operator=(const EmbeddedDatabase &) = delete;
    ~EmbeddedDatabase();

    /// Runs statements of the embedded database itself, past the tables under test.
    void run(const std::string &sql) const;
    /// The first value of a query of the embedded database itself; "(null)" for NULL, "(none)" without a row.
    [[nodiscard]] std::string value(const std::string &sql) const;
    [[nodiscard]] Database &port() { return *m_port; }

private:
    [[nodiscard]] std::string file() const { return (m_folder / "site.db").string(); }

    std::filesystem::path m_folder;
    std::unique_ptr<Database> m_port;
};

/// A table class on a session of its own with the embedded database, branch 1, sub-branch 2.
template <class Table> struct EmbeddedFixture : FakeWorld {
    EmbeddedFixture()
    {
        embeddedApp.iKyotenCd = 1;
        embeddedApp.iKyotenEb = 2;
        REQUIRE_MESSAGE(session.iInit("Provider=SQLite;Data Source=site.db") == iGood, session.sErrMsg());
        REQUIRE_MESSAGE(session.iConnect() == iGood, session.sErrMsg());
        REQUIRE(table.iInit(session) == iGood);
    }
    Table *operator->() { return &table; }
    void run(const std::string &sql) const { embedded.run(sql); }
    [[nodiscard]] std::string value(const std::string &sql) const { return embedded.value(sql); }

    EmbeddedDatabase embedded;
    Platform embeddedPlatform{boxes, windows, embedded.port(), profile, files, processes, clock, locale, automation};
    App embeddedApp{embeddedPlatform};
    cT_ADODB session{embeddedApp};
    Table table{embeddedApp};
};

} // namespace inin
