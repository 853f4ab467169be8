#include "adapters/odbc/mdb_driver.h"

#include "adapters/database/sql_tokenizer.h"
#include "adapters/odbc/odbc_api.h"
#include "runtime/utf8.h"

#include <algorithm>
#include <filesystem>

namespace inin::odbc {

namespace {

/// Longer than any statement that lists one table's columns. The driver does not document its limit.
constexpr std::size_t kLongestStatement = 4000;

bool needsBrackets(const Token &token)
{
    return token.kind == TokenKind::word && std::ranges::any_of(token.text, [](char c) { return !isAscii(c); });
}

} // namespace

bool isMdbDriver(std::string_view databaseName)
{
    return databaseName.starts_with("MDBTOOLS");
}

OdbcColumn mdbColumn(OdbcColumn column)
{
    column.width = 0;
    if (column.form == ColumnForm::smallInteger) column.cType = SQL_C_SLONG;
    if (column.form == ColumnForm::text) {
        column.form = ColumnForm::utf8Text;
        column.cType = SQL_C_CHAR;
    }
    return column;
}

MdbStatement mdbStatement(std::string_view sql)
{
    MdbStatement statement;
    std::vector<Token> tokens = tokenizeSql(sql);
    while (!tokens.empty() && tokens.back().isSymbol(";")) tokens.pop_back();
    for (const Token &token : tokens) {
        if (token.isWord("where")) statement.problem = "the driver for Jet files finds the wrong rows by a condition";
        const bool isBare = needsBrackets(token);
        statement.text.append(token.gap).append(isBare ? "[" : "").append(token.text).append(isBare ? "]" : "");
    }
    if (statement.text.size() > kLongestStatement)
        statement.problem = "the statement is too long for the driver for Jet files";
    return statement;
}

std::string mdbDriverLibrary()
{
    namespace fs = std::filesystem;
    constexpr const char *kLibrary = "odbc/libmdbodbcW.so";
    std::error_code error;
    for (const char *root : {"/usr/lib", "/usr/lib64", "/usr/local/lib"}) {
        if (fs::exists(fs::path(root) / kLibrary, error)) return (fs::path(root) / kLibrary).string();
        // There is a folder for each machine type in between.
        for (fs::directory_iterator entry(root, error), end; !error && entry != end; entry.increment(error))
            if (fs::path library = entry->path() / kLibrary; fs::exists(library, error)) return library.string();
    }
    return "MDBTools";
}

} // namespace inin::odbc
