// How FreeTDS reads our connection strings and reports errors, tested with a peer that speaks the server's protocol.

#include "adapters/database/connection_string.h"
#include "adapters/odbc/driver_stage.h"
#include "adapters/odbc/tds_peer.h"

#include <doctest/doctest.h>

#include <cstdlib>
#include <fstream>

using namespace inin;
using namespace inin::odbc;
using namespace inin::test;

namespace {

std::string adoString(const TdsPeer &peer, const std::string &rest)
{
    return "Provider=SQLOLEDB.1;Data Source=127.0.0.1," + std::to_string(peer.port()) + ";" + rest;
}

/// A data source for FreeTDS, in a separate list that the driver manager reads instead of the user's.
std::string dataSourceFor(const TdsPeer &peer)
{
    static const std::string list = fromEnvironment("ININ_ODBC_FOLDER") + "/odbc.ini";
    setenv("ODBCINI", list.c_str(), 1);
    const std::string name = "massage" + std::to_string(peer.port());
    std::ofstream(list, std::ios::app) << "[" << name << "]\nDriver=FreeTDS\nServer=127.0.0.1\nPort=" << peer.port()
                                       << "\nTDS_Version=7.4\nClientCharset=UTF-8\n\n";
    return name;
}

struct PasswordRow {
    const char *written;
    const char *meant;
};

} // namespace

TEST_CASE("an ADO string logs in through FreeTDS with its user, password, database and application")
{
    const TdsPeer peer(TdsManner::willing);
    const Session session(adoString(peer, "User ID=sa;Password=geheim;Initial Catalog=Massage;Application Name=委任状;"
                                          "Persist Security Info=True"));
    CHECK(session.value("SELECT 1") == Variant(std::int32_t{1}));
    REQUIRE(peer.logIns().size() == 1);
    CHECK(peer.logIns()[0].user == "sa");
    CHECK(peer.logIns()[0].password == "geheim");
    CHECK(peer.logIns()[0].database == "Massage");
    CHECK(peer.logIns()[0].application == "委任状");
    CHECK(session.connection->DefaultDatabase() == "Massage");
}

TEST_CASE("FreeTDS receives every password unchanged")
{
    for (const PasswordRow &row : {PasswordRow{"\"a;b\"", "a;b"},
                                   {"\"a;b}\"", "a;b}"},
                                   {"a}b", "a}b"},
                                   {"\"{a\"", "{a"},
                                   {"{a}", "{a}"},
                                   {"a=b", "a=b"},
                                   {"\"a\"\"b\"", "a\"b"},
                                   {"'it''s'", "it's"},
                                   {"\" a \"", " a "},
                                   {"a,b", "a,b"},
                                   {"日本", "日本"}}) {
        const TdsPeer peer(TdsManner::willing);
        const Session session(adoString(peer, std::string("User ID=sa;Password=") + row.written));
        REQUIRE(peer.logIns().size() == 1);
        CHECK(peer.logIns()[0].password == row.meant);
    }
}

TEST_CASE("user, password and database reach FreeTDS through a data source, in each form of string")
{
    for (const PasswordRow &row : {PasswordRow{"\"a;b\"", "a;b"},
                                   {"a}b", "a}b"},
                                   {"a}", "a}"},
                                   {"\"{a\"", "{a"},
                                   {"\" a \"", " a "},
                                   {"\"a,b=c@d\"", "a,b=c@d"},
                                   {"日本", "日本"}}) {
        CAPTURE(std::string(row.meant));
        const TdsPeer peer(TdsManner::willing);
        const std::string name = dataSourceFor(peer);
        const Session bridged("Provider=MSDASQL;Data Source=" + name +
                              ";Initial Catalog=Massage;User ID=sa;Password=" + row.written);
        const Session named("DSN=" + name + ";UID=sa;PWD=" + odbcQuoted(row.meant) + ";Database=Massage");
        const auto database = makeOdbcDatabase();
        const auto bare = database->newConnection();
        bare->Open(name, "sa", row.meant, -1);
        REQUIRE(peer.logIns().size() == 3);
        for (const TdsLogIn &logIn : peer.logIns()) {
            CHECK(logIn.user == "sa");
            CHECK(logIn.password == row.meant);
        }
        CHECK(peer.logIns()[0].database == "Massage");
        CHECK(peer.logIns()[1].database == "Massage");
    }
}

TEST_CASE("an ODBC string with ADO's keys and blanks opens the database that it names")
{
    const TdsPeer peer(TdsManner::willing);
    const Session session("Driver=FreeTDS;Server=tcp:127.0.0.1," + std::to_string(peer.port()) +
                          ";User ID=sa;Password=p;Initial Catalog = Massage ");
    CHECK(peer.logIns().at(0).database == "Massage");
    CHECK(peer.logIns().at(0).user == "sa");
}

TEST_CASE("a Japanese statement reaches the server unchanged in every locale")
{
    const TdsPeer peer(TdsManner::willing);
    const Session session(adoString(peer, "User ID=sa;Password=p"));
    (void)session.open("SELECT 1 AS a FROM t WHERE c = '髙橋 𠮷 {fn x}'");
    REQUIRE_FALSE(peer.statements().empty());
    CHECK(peer.statements().back() == "SELECT 1 AS a FROM t WHERE c = '髙橋 𠮷 {fn x}'");
}

TEST_CASE("a refused log-in has its number and native error, and no password in its text")
{
    const TdsPeer peer(TdsManner::refusing);
    const auto database = makeOdbcDatabase();
    const auto connection = database->newConnection();
    const RuntimeError error =
        errorOf([&] { connection->Open(adoString(peer, "User ID=sa;Password=geheim"), "", "", -1); });
    CHECK(error.number() == -2147217843);
    CHECK(error.description() == "Login failed for user 'sa'.");
    REQUIRE_FALSE(connection->Errors().empty());
    CHECK(connection->Errors()[0].NativeError == 18456);
    CHECK(connection->Errors()[0].Source == "SQL Server");
    for (const ProviderError &entry : connection->Errors())
        CHECK(entry.Description.find("geheim") == std::string::npos);
    CHECK(connection->State() == adStateClosed);
}

TEST_CASE("a log-in to a server that never answers ends after the timeout in the string")
{
    const TdsPeer peer(TdsManner::mute);
    const auto database = makeOdbcDatabase();
    const auto connection = database->newConnection();
    CHECK(errorOf([&] {
              connection->Open(adoString(peer, "User ID=sa;Password=p;Connect Timeout=2"), "", "", -1);
          }).number() != 0);
    CHECK_FALSE(connection->Errors().empty());
}

TEST_CASE("PostgreSQL's driver, too, gives up on a server that never answers")
{
    const TdsPeer peer(TdsManner::mute);
    const auto connection = makeOdbcDatabase()->newConnection();
    CHECK(errorOf([&] {
              connection->Open("Driver={PostgreSQL Unicode};Server=127.0.0.1;Port=" + std::to_string(peer.port()) +
                                   ";Database=x;UID=u;PWD=p;Login Timeout=2",
                               "", "", -1);
          }).number() != 0);
}

TEST_CASE("a closed port is reported with the records of FreeTDS")
{
    std::uint16_t port = 0;
    {
        const TdsPeer gone(TdsManner::mute);
        port = gone.port();
    }
    const auto connection = makeOdbcDatabase()->newConnection();
    const RuntimeError error = errorOf([&] {
        connection->Open("Provider=SQLOLEDB;Data Source=127.0.0.1," + std::to_string(port) + ";User ID=sa;Password=p",
                         "", "", -1);
    });
    CHECK(error.number() == -2147467259);
    REQUIRE_FALSE(connection->Errors().empty());
    CHECK(connection->Errors()[0].SQLState == "08S01");
    CHECK(connection->Errors()[0].NativeError == 20009);
}

TEST_CASE("a log-in that fails before it reaches the server is raised with the driver's reason")
{
    const TdsPeer peer(TdsManner::willing);
    struct Row {
        std::string connectionString;
        const char *text;
    };
    for (const Row &row : {Row{"Provider=SQLOLEDB;Data Source=no.such.host.invalid;User ID=sa;Password=geheim",
                               "Unable to connect to data source (Unknown host machine name.)"},
                           {adoString(peer, "Integrated Security=SSPI"),
                            "Unable to connect to data source (Adaptive Server connection failed)"},
                           {adoString(peer, "User ID=sa;Password=geheim;Encrypt=yes"),
                            "Unable to connect to data source (Adaptive Server connection failed)"}}) {
        CAPTURE(row.connectionString);
        const auto connection = makeOdbcDatabase()->newConnection();
        CHECK(errorOf([&] { connection->Open(row.connectionString, "", "", -1); }).description() == row.text);
    }
}

TEST_CASE("a connection that breaks between two statements fails the next one with a sentence, and can be reopened")
{
    TdsPeer peer(TdsManner::willing);
    const std::string text = adoString(peer, "User ID=sa;Password=p");
    const Session session(text);
    peer.hangUp();
    const RuntimeError error = errorOf([&] { (void)session.open("SELECT 1"); });
    CHECK(error.number() == -2147467259);
    CHECK(error.description() == "the connection to the server was lost");
    REQUIRE(session.connection->Errors().size() == 1);
    CHECK(session.connection->Errors()[0].Description == "the connection to the server was lost");
    session.connection->Close();
    session.connection->Open(text, "", "", -1);
    CHECK(session.value("SELECT 1") == Variant(std::int32_t{1}));
    CHECK(peer.logIns().size() == 2);
}

TEST_CASE("a failure and a break after the first rows are reported, never taken for the end of the rows")
{
    struct Row {
        const char *sql;
        std::int32_t number;
    };
    for (const Row &row : {Row{"SELECT FAILING", -2147217900}, Row{"SELECT BREAKING", -2147467259}}) {
        CAPTURE(std::string(row.sql));
        const TdsPeer peer(TdsManner::willing);
        const Session session(adoString(peer, "User ID=sa;Password=p"));
        std::int32_t read = 0;
        const RuntimeError error = errorOf([&] {
            for (const auto rows = session.open(row.sql); !rows->isEndOfFile(); rows->MoveNext()) ++read;
        });
        CHECK(error.number() == row.number);
        CHECK(read <= 2);
        CHECK_FALSE(session.connection->Errors().empty());
    }
}

TEST_CASE("a failure after rows that were kept for a second statement is raised at its row")
{
    const TdsPeer peer(TdsManner::willing);
    const Session session(adoString(peer, "User ID=sa;Password=p"));
    const auto rows = session.database->newRecordset();
    const RuntimeError atOnce = errorOf(
        [&] { rows->Open("SELECT FAILING", *session.connection, adOpenForwardOnly, adLockReadOnly, adCmdText); });
    CHECK(session.value("SELECT 1") == Variant(std::int32_t{1}));
    const RuntimeError later = errorOf([&] {
        while (atOnce.number() == 0 && !rows->isEndOfFile()) rows->MoveNext();
    });
    CHECK((atOnce.number() == -2147217900) != (later.number() == -2147217900)); // reported once, now or later
}

TEST_CASE("a parameter without a value is refused or reported, never ignored")
{
    const TdsPeer peer(TdsManner::willing);
    const Session session(adoString(peer, "User ID=sa;Password=p"));
    CHECK(errorOf([&] { (void)session.open("SELECT 1 WHERE 1 = ?"); }).number() == -2147217900);
    CHECK(errorOf([&] { session.run("DELETE FROM t WHERE n = ?"); }).number() != 0);
    CHECK_FALSE(session.connection->Errors().empty());
}
