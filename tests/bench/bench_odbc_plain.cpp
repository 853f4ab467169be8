// The reference for bench_odbc: a plain program with direct ODBC calls for the same statement. It logs in, runs the
// statement, fetches all rows in blocks of bound text and prints their number.

#include <sql.h>
#include <sqlext.h>

#include <cstdio>
#include <vector>

namespace {

constexpr SQLULEN kRows = 512;
constexpr SQLLEN kWidth = 808; // 201 characters of up to four bytes

SQLCHAR *bytes(char *text)
{
    return static_cast<SQLCHAR *>(static_cast<void *>(text));
}

int fail(SQLSMALLINT kind, SQLHANDLE handle)
{
    SQLCHAR state[6] = {};
    SQLCHAR words[512] = {};
    SQLGetDiagRec(kind, handle, 1, state, nullptr, words, sizeof words, nullptr);
    std::fprintf(stderr, "bench_odbc_plain: %s\n", static_cast<const char *>(static_cast<void *>(words)));
    return 1;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 3) return 2;
    SQLHENV environment = nullptr;
    SQLHDBC connection = nullptr;
    SQLHSTMT statement = nullptr;
    SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment);
    SQLSetEnvAttr(environment, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
    SQLAllocHandle(SQL_HANDLE_DBC, environment, &connection);
    if (!SQL_SUCCEEDED(
            SQLDriverConnect(connection, nullptr, bytes(argv[1]), SQL_NTS, nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT)))
        return fail(SQL_HANDLE_DBC, connection);
    SQLAllocHandle(SQL_HANDLE_STMT, connection, &statement);
    SQLULEN fetched = 0;
    SQLSetStmtAttr(statement, SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<SQLPOINTER>(kRows), 0);
    SQLSetStmtAttr(statement, SQL_ATTR_ROWS_FETCHED_PTR, &fetched, 0);
    if (!SQL_SUCCEEDED(SQLExecDirect(statement, bytes(argv[2]), SQL_NTS))) return fail(SQL_HANDLE_STMT, statement);
    SQLSMALLINT columns = 0;
    SQLNumResultCols(statement, &columns);
    const auto count = static_cast<std::size_t>(columns);
    std::vector<std::vector<char>> cells(count, std::vector<char>(kRows * kWidth));
    std::vector<std::vector<SQLLEN>> lengths(count, std::vector<SQLLEN>(kRows));
    for (std::size_t column = 0; column < count; ++column)
        SQLBindCol(statement, static_cast<SQLUSMALLINT>(column + 1), SQL_C_CHAR, cells[column].data(), kWidth,
                   lengths[column].data());
    SQLULEN rows = 0;
    while (SQL_SUCCEEDED(SQLFetch(statement))) rows += fetched;
    std::printf("%lu\n", static_cast<unsigned long>(rows));
    SQLFreeHandle(SQL_HANDLE_STMT, statement);
    SQLDisconnect(connection);
    return 0;
}
