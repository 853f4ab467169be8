#include "adapters/odbc/odbc_string.h"

#include <doctest/doctest.h>

#include <string>
#include <vector>

using namespace inin;
using namespace inin::odbc;

namespace {

using Drivers = std::vector<std::string>;

const Drivers kFreeTds{"FreeTDS", "PostgreSQL Unicode", "SQLite3"};
const Drivers k17{"ODBC Driver 17 for SQL Server", "FreeTDS"};
const Drivers k18{"ODBC Driver 17 for SQL Server", "ODBC Driver 18 for SQL Server"};
const Drivers kOldWindows{"SQL Server", "Microsoft Access Driver (*.mdb)"};
const Drivers kNone{"SQLite3"};
const Drivers kRegisteredPath{"SQLite3", "Own", "/usr/lib/odbc/libtdsodbc.so"};

struct Row {
    std::string text;
    const Drivers &drivers;
    std::string odbc;
};

void checkAll(const std::vector<Row> &rows)
{
    for (const Row &row : rows) {
        CAPTURE(row.text);
        const OdbcString made = odbcStringFor(row.text, row.drivers);
        CHECK(made.problem == "");
        CHECK(made.text == row.odbc);
    }
}

struct BadRow {
    std::string text;
    const Drivers &drivers;
    std::string problem;
};

const std::vector<BadRow> kBadRows{
    {"", k18, "the connection string is empty"},
    {"  \t ", k18, "the connection string is empty"},
    {"Provider=SQLOLEDB;Data Source=a\r\n", k18, "the connection string cannot be read: it holds a line end or a NUL"},
    {std::string("Provider=SQLOLEDB;Password=geheim\0;Data Source=a", 48), k18,
     "the connection string cannot be read: it holds a line end or a NUL"},
    {"Provider=SQLOLEDB;Password=\"geheim;Data Source=a", k18,
     "the connection string cannot be read: a quoted value has no end"},
    {"Provider=SQLOLEDB;Password='geheim;Data Source=a", k18,
     "the connection string cannot be read: a quoted value has no end"},
    {"Provider=SQLOLEDB;Password=\"geheim\"x;Data Source=a", k18,
     "the connection string cannot be read: a quoted value does not end at its quote"},
    {"Driver={FreeTDS};Server=a;PWD={geheim", kFreeTds,
     "the connection string cannot be read: a quoted value has no end"},
    {"Provider=SQLOLEDB;=geheim;Data Source=a", k18, "the connection string cannot be read: a value has no key"},
    {"Provider=SQLOLEDB;geheim;Data Source=a", k18,
     "the connection string cannot be read: a part of it is no key with a value"},
    {"Provider=SQLOLEDB;User ID=sa;Password=geheim", k18, "the connection string names no Data Source"},
    {"Provider=SQLOLEDB;Password=geheim;Data Source=", k18, "the Data Source names no server"},
    {"Provider=SQLOLEDB;Password=geheim;Data Source=tcp:", k18, "the Data Source names no server"},
    {"Provider=SQLOLEDB;Password=geheim;Data Source=\\X", k18, "the Data Source names no server"},
    {"Provider=SQLOLEDB;Password=geheim;Data Source=a,x", k18,
     "the port of the Data Source is no number from 1 to 65535"},
    {"Provider=SQLOLEDB;Password=geheim;Data Source=a,", k18,
     "the port of the Data Source is no number from 1 to 65535"},
    {"Provider=SQLOLEDB;Password=geheim;Data Source=a,65536", k18,
     "the port of the Data Source is no number from 1 to 65535"},
    {"Driver=FreeTDS;Server=a;Port=x;PWD=geheim", kFreeTds, "the port is no number from 1 to 65535"},
    {"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=a.mdb;Password=geheim", k18,
     "Provider=Microsoft.Jet.OLEDB.4.0 does not open a SQL Server"},
    {"Provider=SQLOLEDB;Data Source=a;Password=geheim;Connect Timeout=soon", k18,
     "the connect timeout is no number of seconds"},
    {"Provider=SQLOLEDB;Data Source=a;Password=geheim;Connect Timeout=-1", k18,
     "the connect timeout is no number of seconds"},
    {"Provider=SQLOLEDB;Data Source=a;Password=geheim;Encrypt=perhaps", k18,
     "the connection string asks neither for encryption nor for none"},
    {"Provider=SQLOLEDB;Data Source=a;User ID=sa;Password=geheim", kNone, "no ODBC driver for SQL Server is installed"},
    {"Driver={SQL Server};Server=a;UID=sa;PWD=geheim", kNone, "no ODBC driver for SQL Server is installed"},
    {"Provider=SQLOLEDB;Data Source=np:a;User ID=sa;Password=geheim", kFreeTds,
     "the FreeTDS driver reaches a server by TCP only"},
    {"Provider=SQLOLEDB;Data Source=a;Network Library=DBNMPNTW;Password=geheim", kFreeTds,
     "the FreeTDS driver reaches a server by TCP only"},
    {"Provider=MSOLEDBSQL;Data Source=a;User ID=sa;Password=geheim;Encrypt=strict", kFreeTds,
     "the FreeTDS driver knows no strict encryption"},
    {"Provider=SQLOLEDB;Data Source=a;User ID=sa;Password=\"ge};heim\"", kFreeTds,
     "the FreeTDS driver takes no password that holds \"};\""},
    {"Provider=MSDASQL;Data Source=massage;User ID=u;Password=\"ge;heim}\"", k18,
     "a data source takes no password that holds \"}\" and also a \";\", a \"{\" at its start or a blank at its start or "
     "end"},
    {"DSN=massage;UID={{u}}};PWD=geheim", k18,
     "a data source takes no user that holds \"}\" and also a \";\", a \"{\" at its start or a blank at its start or end"},
};

} // namespace

TEST_CASE("an ADO string becomes one for Microsoft's driver")
{
    checkAll({
        {"Provider=SQLOLEDB.1;Password=geheim;Persist Security Info=True;User ID=sa;Initial Catalog=Massage;"
         "Data Source=SERVER\\SQLEXPRESS",
         k17, "Driver={ODBC Driver 17 for SQL Server};Server=SERVER\\SQLEXPRESS;Database=Massage;UID=sa;PWD=geheim;"},
        {"Provider=SQLOLEDB;Data Source=host,1433;Initial Catalog=Massage;Integrated Security=SSPI", k17,
         "Driver={ODBC Driver 17 for SQL Server};Server=host,1433;Database=Massage;Trusted_Connection=Yes;"},
        {"Provider=SQLOLEDB;Data Source=tcp:host,1433;User ID=sa;Password=p", k17,
         "Driver={ODBC Driver 17 for SQL Server};Server=tcp:host,1433;UID=sa;PWD=p;"},
        {"Provider=MSOLEDBSQL;Server=host;Database=db;UID=u;PWD=p", k17,
         "Driver={ODBC Driver 17 for SQL Server};Server=host;Database=db;UID=u;PWD=p;"},
        {"Provider=SQLNCLI11;Server=host;Database=db;Trusted_Connection=yes", k17,
         "Driver={ODBC Driver 17 for SQL Server};Server=host;Database=db;Trusted_Connection=Yes;"},
        {"PROVIDER=sqloledb;DATA SOURCE=host;INITIAL CATALOG=db;USER ID=u;PASSWORD=P", k17,
         "Driver={ODBC Driver 17 for SQL Server};Server=host;Database=db;UID=u;PWD=P;"},
        {"  provider = SQLOLEDB ;  Data   Source = host ; initial catalog = db ; user id = u ; password = p ; ", k17,
         "Driver={ODBC Driver 17 for SQL Server};Server=host;Database=db;UID=u;PWD=p;"},
        {"Provider=SQLOLEDB;Data Source=host;User ID=u;Password=\"a;b\"", k17,
         "Driver={ODBC Driver 17 for SQL Server};Server=host;UID=u;PWD={a;b};"},
        {"Provider=SQLOLEDB;Data Source=host;User ID=u;Password='a\"b'", k17,
         "Driver={ODBC Driver 17 for SQL Server};Server=host;UID=u;PWD=a\"b;"},
        {"Provider=SQLOLEDB;Data Source=host;User ID=u;Password=\"a\"\"b;c\"", k17,
         "Driver={ODBC Driver 17 for SQL Server};Server=host;UID=u;PWD={a\"b;c};"},
        {"Provider=SQLOLEDB;Data Source=host;User ID=u;Password='it''s'", k17,
         "Driver={ODBC Driver 17 for SQL Server};Server=host;UID=u;PWD=it's;"},
        {"Provider=SQLOLEDB;Data Source=host;User ID=u;Password={a}", k17,
         "Driver={ODBC Driver 17 for SQL Server};Server=host;UID=u;PWD={{a}}};"},
        {"Provider=SQLOLEDB;Data Source=host;User ID=u;Password=a=b", k17,
         "Driver={ODBC Driver 17 for SQL Server};Server=host;UID=u;PWD={a=b};"},
        {"Provider=SQLOLEDB;Data Source=host;User ID=u;Password=\" a \"", k17,
         "Driver={ODBC Driver 17 for SQL Server};Server=host;UID=u;PWD={ a };"},
        {"Provider=SQLOLEDB;Data Source=host;User ID=u;Password=", k17,
         "Driver={ODBC Driver 17 for SQL Server};Server=host;UID=u;PWD=;"},
        {"Provider=SQLOLEDB;Data Source=サーバ;Initial Catalog=訪問;User ID=u;Password=秘密", k17,
         "Driver={ODBC Driver 17 for SQL Server};Server=サーバ;Database=訪問;UID=u;PWD=秘密;"},
        {"Provider=SQLOLEDB;Data Source=old;Data Source=new;User ID=u;Password=p", k17,
         "Driver={ODBC Driver 17 for SQL Server};Server=new;UID=u;PWD=p;"},
        {"Provider=SQLOLEDB;Data Source=host;User ID=u;Password=p;Application Name=委任状;Workstation ID=PC1", k17,
         "Driver={ODBC Driver 17 for SQL Server};Server=host;UID=u;PWD=p;APP=委任状;WSID=PC1;"},
        {"Provider=SQLOLEDB;Data Source=host;User ID=u;Password=p;Auto Translate=True;Use Procedure for Prepare=1;"
         "Tag with column collation when possible=False;Packet Size=4096",
         k17, "Driver={ODBC Driver 17 for SQL Server};Server=host;UID=u;PWD=p;"},
        {"Provider=SQLOLEDB;Data Source=host;User ID=u;Password=p;Network Library=DBMSSOCN", k17,
         "Driver={ODBC Driver 17 for SQL Server};Server=tcp:host;UID=u;PWD=p;"},
        {"Provider=SQLOLEDB;Data Source=np:\\\\host\\pipe\\sql\\query;User ID=u;Password=p", k17,
         "Driver={ODBC Driver 17 for SQL Server};Server=np:\\\\host\\pipe\\sql\\query;UID=u;PWD=p;"},
        {"Provider=SQLOLEDB;Data Source=SERVER\\A , 1500;User ID=u;Password=p", k17,
         "Driver={ODBC Driver 17 for SQL Server};Server=SERVER\\A,1500;UID=u;PWD=p;"},
        {"Data Source=host;Initial Catalog=db;User ID=u;Password=p", k17,
         "Driver={ODBC Driver 17 for SQL Server};Server=host;Database=db;UID=u;PWD=p;"},
        {"Provider=SQLOLEDB;Data Source=(local);Integrated Security=SSPI", kOldWindows,
         "Driver={SQL Server};Server=(local);Trusted_Connection=Yes;"},
    });
}

TEST_CASE("Microsoft's newest driver is chosen, and FreeTDS only without one")
{
    const std::string text = "Provider=SQLOLEDB;Data Source=h;User ID=u;Password=p;Encrypt=no";
    CHECK(odbcStringFor(text, {"FreeTDS", "SQL Server", "ODBC Driver 13 for SQL Server"}).text ==
          "Driver={ODBC Driver 13 for SQL Server};Server=h;UID=u;PWD=p;Encrypt=no;");
    CHECK(odbcStringFor(text, {"SQL Server", "SQL Server Native Client 11.0", "SQL Server Native Client 10.0"}).text ==
          "Driver={SQL Server Native Client 11.0};Server=h;UID=u;PWD=p;Encrypt=no;");
    CHECK(odbcStringFor(text, {"odbc driver 9 for sql server", "ODBC Driver 10 for SQL Server"}).text ==
          "Driver={ODBC Driver 10 for SQL Server};Server=h;UID=u;PWD=p;Encrypt=no;");
    CHECK(odbcStringFor(text, {"SQLite3", "FreeTDS"}).text ==
          "Driver={FreeTDS};Server=h;Port=1433;TDS_Version=7.4;ClientCharset=UTF-8;UID=u;PWD=p;Encryption=off;");
}

TEST_CASE(
    "without a key the connection stays unencrypted under a driver that encrypts by default, and an explicit key wins")
{
    checkAll({
        {"Provider=SQLOLEDB;Data Source=h;User ID=u;Password=p", k18,
         "Driver={ODBC Driver 18 for SQL Server};Server=h;UID=u;PWD=p;Encrypt=no;TrustServerCertificate=yes;"},
        {"Provider=SQLOLEDB;Data Source=h;User ID=u;Password=p;Use Encryption for Data=True", k18,
         "Driver={ODBC Driver 18 for SQL Server};Server=h;UID=u;PWD=p;Encrypt=yes;"},
        {"Provider=SQLOLEDB;Data Source=h;User ID=u;Password=p;Use Encryption for Data=False", k18,
         "Driver={ODBC Driver 18 for SQL Server};Server=h;UID=u;PWD=p;Encrypt=no;"},
        {"Provider=MSOLEDBSQL;Data Source=h;User ID=u;Password=p;Encrypt=Mandatory;Trust Server Certificate=yes", k18,
         "Driver={ODBC Driver 18 for SQL Server};Server=h;UID=u;PWD=p;Encrypt=yes;TrustServerCertificate=yes;"},
        {"Provider=SQLOLEDB;Data Source=h;User ID=u;Password=p;TrustServerCertificate=no", k18,
         "Driver={ODBC Driver 18 for SQL Server};Server=h;UID=u;PWD=p;Encrypt=no;TrustServerCertificate=no;"},
        {"Provider=MSOLEDBSQL;Data Source=h;User ID=u;Password=p;Encrypt=strict", k18,
         "Driver={ODBC Driver 18 for SQL Server};Server=h;UID=u;PWD=p;Encrypt=strict;"},
        {"Provider=MSOLEDBSQL19;Data Source=h;User ID=u;Password=p", k18,
         "Driver={ODBC Driver 18 for SQL Server};Server=h;UID=u;PWD=p;Encrypt=yes;"},
        {"Provider=MSOLEDBSQL19.1;Data Source=h;User ID=u;Password=p;Use Encryption for Data=Optional", k18,
         "Driver={ODBC Driver 18 for SQL Server};Server=h;UID=u;PWD=p;Encrypt=no;"},
        {"Driver={ODBC Driver 18 for SQL Server};Server=h;UID=u;PWD=p", k18,
         "Driver={ODBC Driver 18 for SQL Server};Server=h;UID=u;PWD=p;"},
        {"Driver={SQL Server};Server=h;UID=u;PWD=p", k18,
         "Driver={ODBC Driver 18 for SQL Server};Server=h;UID=u;PWD=p;Encrypt=no;TrustServerCertificate=yes;"},
        {"Driver={ODBC Driver 18 for SQL Server};Server=h;UID=u;PWD=p", kFreeTds,
         "Driver={FreeTDS};Server=h;Port=1433;TDS_Version=7.4;ClientCharset=UTF-8;UID=u;PWD=p;Encryption=require;"},
    });
}

TEST_CASE("an ADO string becomes one that FreeTDS reads")
{
    const std::string start = "Driver={FreeTDS};Server=h;Port=1433;TDS_Version=7.4;ClientCharset=UTF-8;";
    checkAll({
        {"Provider=SQLOLEDB.1;Password=geheim;Persist Security Info=True;User ID=sa;Initial Catalog=Massage;"
         "Data Source=SERVER\\SQLEXPRESS",
         kFreeTds,
         "Driver={FreeTDS};Server=SERVER\\SQLEXPRESS;TDS_Version=7.4;ClientCharset=UTF-8;Database=Massage;UID=sa;"
         "PWD=geheim;"},
        {"Provider=SQLOLEDB;Data Source=tcp:h,1500;User ID=u;Password=p", kFreeTds,
         "Driver={FreeTDS};Server=h;Port=1500;TDS_Version=7.4;ClientCharset=UTF-8;UID=u;PWD=p;"},
        {"Provider=SQLOLEDB;Data Source=h\\X,1500;User ID=u;Password=p", kFreeTds,
         "Driver={FreeTDS};Server=h;Port=1500;TDS_Version=7.4;ClientCharset=UTF-8;UID=u;PWD=p;"},
        {"Provider=SQLOLEDB;Data Source=h:1500;User ID=u;Password=p", kFreeTds,
         "Driver={FreeTDS};Server=h;Port=1500;TDS_Version=7.4;ClientCharset=UTF-8;UID=u;PWD=p;"},
        {"Provider=SQLOLEDB;Data Source=.;User ID=u;Password=p", kFreeTds,
         "Driver={FreeTDS};Server=localhost;Port=1433;TDS_Version=7.4;ClientCharset=UTF-8;UID=u;PWD=p;"},
        {"Provider=SQLOLEDB;Data Source=h;User ID=u;Password=\"a}b\"", kFreeTds, start + "UID=u;PWD=a}b;"},
        {"Provider=SQLOLEDB;Data Source=h;User ID=u;Password=\"a;b}\"", kFreeTds, start + "UID=u;PWD={a;b}};"},
        {"Provider=SQLOLEDB;Data Source=h;User ID=u;Password=\"{a\"", kFreeTds, start + "UID=u;PWD={{a};"},
        {"Provider=SQLOLEDB;Data Source=h;User ID=u;Password=p;Encrypt=yes", kFreeTds,
         start + "UID=u;PWD=p;Encryption=require;"},
        {"Provider=SQLOLEDB;Data Source=h;Integrated Security=SSPI;User ID=u;Password=p", kFreeTds,
         start + "Trusted_Connection=Yes;"},
        {"Provider=SQLOLEDB;Data Source=h;User ID=u;Password=p;Application Name=X;Packet Size=8192", kFreeTds,
         start + "UID=u;PWD=p;APP=X;PacketSize=8192;"},
    });
}

TEST_CASE("an ODBC string for FreeTDS is rewritten in the spelling of FreeTDS")
{
    const std::string start = "Driver={FreeTDS};Server=h;Port=1500;TDS_Version=7.4;ClientCharset=UTF-8;";
    checkAll({
        {"Driver=FreeTDS;Server=h;Port=1500;TDS_Version=7.4;ClientCharset=UTF-8;UID=u;PWD=p;Database=d", kFreeTds,
         start + "Database=d;UID=u;PWD=p;"},
        {"driver={freetds};server=h,1500;uid=u;pwd=p", kFreeTds, start + "UID=u;PWD=p;"},
        {"Driver=FreeTDS;Server=tcp:h,1500;Database = d ;UID=u;PWD=p", kFreeTds, start + "Database=d;UID=u;PWD=p;"},
        {"Driver=FreeTDS;Server=h;Port=1500;Initial Catalog=d;User ID=u;Password=p", kFreeTds,
         start + "Database=d;UID=u;PWD=p;"},
        {"Driver=FreeTDS;Server=h;Port=1500;TDS_Version=7.0;UID=u;PWD=p", kFreeTds, start + "UID=u;PWD=p;"},
        {"Driver=FreeTDS;Server=h;Port=1500;TDS_Version=8.0;UID=u;PWD=p", kFreeTds, start + "UID=u;PWD=p;"},
        {"Driver=FreeTDS;Server=h;Port=1500;TDS_Version=7.3;UID=u;PWD=p", kFreeTds,
         "Driver={FreeTDS};Server=h;Port=1500;TDS_Version=7.3;ClientCharset=UTF-8;UID=u;PWD=p;"},
        {"Driver=FreeTDS;Server=h;Port=1500;ClientCharset=CP932;UID=u;PWD=p;DumpFile=/dev/null", kFreeTds,
         start + "UID=u;PWD=p;DumpFile=/dev/null;"},
        {"Driver=FreeTDS;Server=h;Port=1500;UID=u;PWD={a}}b;c}", kFreeTds, start + "UID=u;PWD={a}b;c};"},
        {"Driver=FreeTDS;Server=h;Port=1500;UID=u;PWD=p;Encryption=request", kFreeTds,
         start + "UID=u;PWD=p;Encryption=request;"},
        {"Driver=FreeTDS;Server=h;Server=other;Port=1500;UID=u;PWD=p", kFreeTds, start + "UID=u;PWD=p;"},
        {"Driver=/usr/lib/odbc/libtdsodbc.so;Server=h;Port=1500;UID=u;PWD=p", kRegisteredPath,
         "Driver={/usr/lib/odbc/libtdsodbc.so};Server=h;Port=1500;TDS_Version=7.4;ClientCharset=UTF-8;UID=u;PWD=p;"},
    });
}

TEST_CASE("a system data source and a driver for another server are passed on")
{
    checkAll({
        {"massage", k18, "DSN=massage;"},
        {" massage ", k18, "DSN=massage;"},
        {"DSN=massage;UID=u;PWD=p", kNone, "DSN=massage;UID=u;PWD=p;"},
        {"dsn = massage ; User ID = u ; Password = p ; Initial Catalog = d", k18,
         "dsn=massage;UID=u;PWD=p;Database=d;"},
        {"FILEDSN=C:\\x.dsn;PWD={a;b}", k18, "FILEDSN=C:\\x.dsn;PWD={a;b};"},
        {"Provider=MSDASQL;Data Source=massage;User ID=u;Password=\"a;b\"", k18, "DSN=massage;UID=u;PWD={a;b};"},
        {"Provider=MSDASQL;Data Source=massage;Initial Catalog=d;User ID=u;Password=p", k18,
         "DSN=massage;Database=d;UID=u;PWD=p;"},
        {"FILEDSN=C:\\x.dsn;User ID=u;Password=p", k18, "FILEDSN=C:\\x.dsn;UID=u;PWD=p;"},
        {"Provider=MSDASQL;Driver={PostgreSQL Unicode};Server=h;User ID=u;Password=\"a}b\"", kFreeTds,
         "Driver=PostgreSQL Unicode;Server=h;UID=u;PWD={a}}b};"},
        {"Provider=MSDASQL;Extended Properties='DSN=massage';User ID=u;Password=\"a;b\"", k18,
         "DSN=massage;UID=u;PWD={a;b};"},
        {"Provider=MSDASQL.1;Persist Security Info=False;Extended Properties=\"DSN=massage;UID=u;PWD=p\"", k18,
         "DSN=massage;UID=u;PWD=p;"},
        {"Provider=MSDASQL;Driver={SQL Server};Server=h;Database=d;UID=u;PWD=p", k17,
         "Driver={ODBC Driver 17 for SQL Server};Server=h;Database=d;UID=u;PWD=p;"},
        {"Driver={PostgreSQL Unicode};Server=h;Port=5432;Database=d;UID=u;PWD={a}}b}", kFreeTds,
         "Driver={PostgreSQL Unicode};Server=h;Port=5432;Database=d;UID=u;PWD={a}}b};"},
        {"Driver=SQLite3;Database=/tmp/a b.db", kNone, "Driver=SQLite3;Database=/tmp/a b.db;"},
        {"Driver={No Such Driver};Server=h;PWD=p", k18, "Driver={No Such Driver};Server=h;PWD=p;"},
    });
}

TEST_CASE(
    "a password with a closing brace is passed to a data source without braces, because drivers read those differently")
{
    checkAll({
        {"Provider=MSDASQL;Data Source=massage;User ID=u;Password=a}b", k18, "DSN=massage;UID=u;PWD=a}b;"},
        {"Provider=MSDASQL;Data Source=massage;User ID=u}v;Password=a@b", k18, "DSN=massage;UID=u}v;PWD={a@b};"},
        {"DSN=massage;UID=u;PWD={a}}b}", k18, "DSN=massage;UID=u;PWD=a}b;"},
        {"DSN=massage;UID=u;PWD=a}b", k18, "DSN=massage;UID=u;PWD=a}b;"},
        {"DSN=massage;UID=u;PWD={ a}", k18, "DSN=massage;UID=u;PWD={ a};"},
    });
    CHECK(odbcStringFor("massage", k18, {"u", "a}b"}).text == "DSN=massage;UID=u;PWD=a}b;");
    CHECK(odbcStringFor("massage", k18, {"u", "a;b}"}).problem ==
          "a data source takes no password that holds \"}\" and also a \";\", a \"{\" at its start or a blank at its "
          "start or end");
}

TEST_CASE("an unusable string is refused with its reason")
{
    for (const BadRow &row : kBadRows) {
        CAPTURE(row.problem);
        CHECK(odbcStringFor(row.text, row.drivers).problem == row.problem);
    }
}

TEST_CASE("an unregistered driver library is refused in every form of string")
{
    const Drivers elsewhere{"FreeTDS", "/usr/lib/odbc/libtdsodbc.so", "SQLite3"};
    for (const char *text : {"Driver=/home/x/libtdsodbc.so;Server=h;UID=u;PWD=p", "driver = {/home/x/any.so} ;Server=h",
                             "Driver=.\\any.dll;Server=h", "Driver=SQLite3;Database=d;Driver=/home/x/any.so",
                             "DSN=x;Driver=/home/x/any.so", "Provider=MSDASQL;Driver=/home/x/any.so",
                             "Provider=SQLOLEDB;Data Source=h;Driver=/home/x/libtdsodbc.so",
                             "Provider=MSDASQL;Extended Properties='Driver=/home/x/any.so;Server=h'"}) {
        CAPTURE(text);
        const OdbcString made = odbcStringFor(text, elsewhere);
        CHECK(made.problem == "the connection string names a driver by a path that is not registered");
        CHECK(made.text == "");
    }
    CHECK(odbcStringFor("Driver={/USR/lib/odbc/libtdsodbc.so};Server=h", elsewhere).problem != "");
    CHECK(odbcStringFor("Driver={/usr/lib/odbc/libtdsodbc.so};Server=h", elsewhere).problem == "");
}

TEST_CASE("no refusal reveals the password")
{
    for (const BadRow &row : kBadRows) CHECK(row.problem.find("geheim") == std::string::npos);
    for (const BadRow &row : kBadRows)
        CHECK(odbcStringFor(row.text, row.drivers).problem.find("heim") == std::string::npos);
}

TEST_CASE("a password is listed as a secret in every form of string")
{
    for (const char *text :
         {"Provider=SQLOLEDB;Data Source=h;User ID=u;Password=geheim", "Driver=FreeTDS;Server=h;UID=u;PWD=geheim",
          "DSN=x;PWD={geheim}", "Provider=MSDASQL;Extended Properties='DSN=x;PWD=geheim'"}) {
        CAPTURE(text);
        CHECK(odbcStringFor(text, kFreeTds).secrets == std::vector<std::string>{"geheim"});
    }
}

TEST_CASE("the log-in timeout is 15 seconds unless the string specifies another")
{
    struct TimeoutRow {
        const char *text;
        std::int32_t seconds;
    };
    for (const TimeoutRow &row : {TimeoutRow{"Provider=SQLOLEDB;Data Source=h", 15},
                                  {"Provider=SQLOLEDB;Data Source=h;Connect Timeout=3", 3},
                                  {"Provider=SQLOLEDB;Data Source=h;CONNECTION TIMEOUT=60", 60},
                                  {"Provider=SQLOLEDB;Data Source=h;Connect Timeout=0", 0},
                                  {"Driver=FreeTDS;Server=h;Timeout=4", 4},
                                  {"massage", 15},
                                  {"DSN=massage;Connect Timeout=5", 5}}) {
        CAPTURE(row.text);
        CHECK(odbcStringFor(row.text, kFreeTds).loginTimeout == row.seconds);
    }
}

TEST_CASE("a user passed beside the string overrides the one in the string")
{
    const LogIn logIn{"other", "pass"};
    CHECK(odbcStringFor("Provider=SQLOLEDB;Data Source=h;User ID=u;Password=p", k17, logIn).text ==
          "Driver={ODBC Driver 17 for SQL Server};Server=h;UID=other;PWD=pass;");
    CHECK(odbcStringFor("Provider=SQLOLEDB;Data Source=h;Integrated Security=SSPI", k17, logIn).text ==
          "Driver={ODBC Driver 17 for SQL Server};Server=h;UID=other;PWD=pass;");
    CHECK(odbcStringFor("DSN=massage;UID=u;PWD=p", k17, logIn).text == "DSN=massage;UID=other;PWD=pass;");
    CHECK(odbcStringFor("DSN=massage", k17, logIn).secrets == std::vector<std::string>{"pass"});
}

TEST_CASE("a string can be changed to another database of its server")
{
    CHECK(withDatabase("Provider=SQLOLEDB;Initial Catalog=a;Data Source=h;Password=\"x;y\"", "scratch") ==
          "Provider=SQLOLEDB;Data Source=h;Password=\"x;y\";Initial Catalog=scratch");
    CHECK(withDatabase("Driver=FreeTDS;Server=h;Database = a;UID=u", "scratch") ==
          "Driver=FreeTDS;Server=h;UID=u;Database=scratch");
    CHECK(withDatabase("massage", "scratch") == "DSN=massage;Database=scratch");
}
