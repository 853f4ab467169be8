#include "adapters/odbc/diagnostics.h"
#include "runtime/runtime_error.h"

#include <doctest/doctest.h>

#include <optional>

using namespace inin;
using namespace inin::odbc;

namespace {

struct NumberRow {
    const char *sqlState;
    std::int32_t native;
    const char *message;
    std::int32_t number;
};

std::optional<RuntimeError> raised(std::vector<ProviderError> &errors, const std::vector<DiagnosticRecord> &records,
                                   Failure failure = Failure::statement, const std::vector<std::string> &secrets = {})
try {
    raiseRecords(errors, records, secrets, failure);
} catch (const RuntimeError &error) {
    return error;
}

} // namespace

TEST_CASE("a diagnostic record has ADO's number")
{
    for (const NumberRow &row :
         {NumberRow{"42000", 102, "[FreeTDS][SQL Server]Incorrect syntax near 'x'.", -2147217900},
          {"42000", 208, "[FreeTDS][SQL Server]Invalid object name 'X'.", -2147217865},
          {"42000", 0, "[FreeTDS][SQL Server]relation \"x\" does not exist", -2147217865},
          {"42S02", 208, "Invalid object name", -2147217865},
          {"42P01", 1, "ERROR: relation \"x\" does not exist", -2147217865},
          {"HY000", 1, "[SQLite]no such table: x (1)", -2147217865},
          {"42000", 207, "[FreeTDS][SQL Server]Invalid column name 'x'.", -2147217900},
          {"42S22", 207, "Invalid column name 'x'.", -2147217900},
          {"42000", 18456, "[FreeTDS][SQL Server]Login failed for user 'sa'.", -2147217843},
          {"28000", 0, "Login failed", -2147217843},
          {"28P01", 210, "password authentication failed", -2147217843},
          {"HYT00", 0, "[FreeTDS][SQL Server]Timeout expired", -2147217871},
          {"HYT01", 0, "Timeout expired", -2147217871},
          {"57014", 1, "canceling statement due to statement timeout", -2147217871},
          {"23000", 2627, "duplicate key", -2147217873},
          {"23000", 515, "NULL not allowed", -2147217873},
          {"42000", 547, "conflict with a constraint", -2147217873},
          {"22001", 8152, "too long", -2147217900},
          {"22012", 8134, "division by zero", -2147217900},
          {"HY019", 220, "overflow", -2147217900},
          {"08S01", 20009, "unable to connect", -2147467259},
          {"08004", 911, "no such database", -2147467259},
          {"08001", 0, "unable to connect", -2147467259},
          {"IM002", 0, "Data source name not found", -2147467259},
          {"01000", 20017, "unexpected end of the results", -2147467259},
          {"HY000", 0, "anything else", -2147467259}}) {
        CAPTURE(row.sqlState);
        CAPTURE(row.native);
        CHECK(providerErrorOf({row.sqlState, row.native, row.message}, {}).Number == row.number);
    }
}

TEST_CASE("an entry has the text without the bracketed prefixes, and the component as its source")
{
    const ProviderError error = providerErrorOf(
        {"42S02", 208, "[Microsoft][ODBC Driver 18 for SQL Server][SQL Server]オブジェクト名 'X' が無効です。"}, {});
    CHECK(error.Description == "オブジェクト名 'X' が無効です。");
    CHECK(error.Source == "SQL Server");
    CHECK(error.SQLState == "42S02");
    CHECK(error.NativeError == 208);
}

TEST_CASE("text without brackets is unchanged, and so is a single bracket")
{
    CHECK(providerErrorOf({"HY000", 0, "plain words"}, {}).Description == "plain words");
    CHECK(providerErrorOf({"HY000", 0, "plain words"}, {}).Source == "ODBC");
    CHECK(providerErrorOf({"HY000", 0, "[open"}, {}).Description == "[open");
}

TEST_CASE("a secret in a driver's text is masked")
{
    CHECK(providerErrorOf({"08001", 0, "[X]cannot use PWD=geheim; here"}, {"geheim"}).Description ==
          "cannot use PWD=***; here");
    CHECK(providerErrorOf({"08001", 0, "xgeheimx"}, {"geheim"}).Description == "x***x");
}

TEST_CASE("a short secret is masked only where it is a whole word")
{
    CHECK(providerErrorOf({"08001", 0, "PWD=a; at a bar"}, {"a"}).Description == "PWD=***; at *** bar");
    CHECK(providerErrorOf({"08001", 0, "nothing"}, {""}).Description == "nothing");
}

TEST_CASE("each record becomes an entry, and the first one is raised")
{
    std::vector<ProviderError> errors(3);
    const auto error = raised(errors, {{"42000", 18456, "Login failed"}, {"08001", 0, "Unable to connect"}});
    REQUIRE(error.has_value());
    CHECK(error->number() == -2147217843);
    CHECK(error->description() == "Login failed");
    REQUIRE(errors.size() == 2);
    CHECK(errors[1].Description == "Unable to connect");
    CHECK(errors[1].Number == -2147467259);
}

TEST_CASE("a warning before an error is listed but not raised")
{
    std::vector<ProviderError> errors;
    const auto error = raised(errors, {{"01000", 0, "Can't open lib"}, {"IM002", 0, "not found"}});
    REQUIRE(error.has_value());
    CHECK(error->description() == "not found");
    CHECK(errors.size() == 2);
}

TEST_CASE("a failure with warnings only raises the first of them")
{
    std::vector<ProviderError> errors;
    const auto error = raised(errors, {{"01000", 20017, "unexpected end"}});
    REQUIRE(error.has_value());
    CHECK(error->number() == -2147467259);
    CHECK(error->description() == "unexpected end");
}

TEST_CASE("a failure without any record gets an entry of its own")
{
    std::vector<ProviderError> errors;
    const auto error = raised(errors, {});
    REQUIRE(error.has_value());
    CHECK(error->number() == -2147467259);
    REQUIRE(errors.size() == 1);
    CHECK(errors[0].Description == "the driver failed and told no reason");
}

TEST_CASE("a failed log-in is raised with the distinct texts of all its records, without secrets")
{
    std::vector<ProviderError> errors;
    const auto text = [&errors](const std::vector<DiagnosticRecord> &records) {
        const auto error = raised(errors, records, Failure::logIn, {"geheim"});
        REQUIRE(error.has_value());
        return error->description();
    };
    CHECK(text({{"08001", 0, "Unable to connect to data source"}, {"01000", 20013, "Unknown host machine name."}}) ==
          "Unable to connect to data source (Unknown host machine name.)");
    CHECK(text({{"HYT00", 0, "Login timeout expired"}, {"08001", 2, "PWD=geheim"}, {"08001", 2, "no answer"}}) ==
          "Login timeout expired (PWD=***; no answer)");
    CHECK(text({{"01000", 0, "Can't open lib"}, {"IM002", 0, "not found"}}) == "not found (Can't open lib)");
    CHECK(text({{"42000", 18456, "Login failed"}, {"08001", 0, "Unable to connect to data source"}}) == "Login failed");
    CHECK(text({{"28000", 18456, "Login failed"}, {"28000", 18456, "Login failed"}, {"01000", 0, ""}}) ==
          "Login failed");
    CHECK(text({{"08001", 0, "Unable to connect to data source"}}) == "Unable to connect to data source");
    CHECK(errors.size() == 1);
}

TEST_CASE("a lost connection is raised and listed as a sentence, with the driver's text if there is one")
{
    struct Row {
        std::vector<DiagnosticRecord> records;
        const char *text;
    };
    for (const Row &row : {Row{{{"HY000", 0, "Unknown error"}}, "the connection to the server was lost"},
                           {{}, "the connection to the server was lost"},
                           {{{"08S01", 0, ""}}, "the connection to the server was lost"},
                           {{{"08S01", 0, "Communication link failure"}},
                            "the connection to the server was lost (Communication link failure)"},
                           {{{"HYT00", 0, "Timeout expired"}}, "Timeout expired"}}) {
        CAPTURE(row.text);
        std::vector<ProviderError> errors;
        const auto error = raised(errors, row.records, Failure::lostConnection);
        REQUIRE(error.has_value());
        CHECK(error->description() == row.text);
        REQUIRE(errors.size() == 1);
        CHECK(errors[0].Description == row.text);
    }
}

TEST_CASE("records with an error among warnings are a failure; warnings and notices alone are not")
{
    CHECK(isFailureRecord({{"01000", 0, ""}, {"22012", 8134, ""}}));
    CHECK_FALSE(isFailureRecord({{"01000", 0, ""}, {"00000", 0, ""}}));
    CHECK_FALSE(isFailureRecord({}));
}

TEST_CASE("a lost connection is recognized by its SQL state")
{
    CHECK(tellsLostConnection({{"HY000", 0, ""}, {"08S01", 0, ""}}));
    CHECK(tellsLostConnection({{"57P01", 1, ""}}));
    CHECK_FALSE(tellsLostConnection({{"42000", 102, ""}}));
    CHECK_FALSE(tellsLostConnection({}));
}
