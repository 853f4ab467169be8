#include "adapters/sqlite/sqlite_functions.h"

#include "adapters/sqlite/sql_date_text.h"
#include "adapters/sqlite/sql_rewriter.h"
#include "runtime/text.h"
#include "runtime/utf8.h"
#include "suite_text/japanese_text.h"
#include "suite_text/like_pattern.h"

#include <sqlite3.h>

#include <array>
#include <cstdint>
#include <memory>
#include <new>
#include <string>
#include <string_view>

namespace inin::sqlite {

namespace {

bool anyNull(int count, sqlite3_value **values)
{
    for (int i = 0; i < count; ++i)
        if (sqlite3_value_type(values[i]) == SQLITE_NULL) return true;
    return false;
}

std::string_view textOf(sqlite3_value *value)
{
    const auto *bytes = static_cast<const char *>(static_cast<const void *>(sqlite3_value_text(value)));
    if (bytes == nullptr) return {};
    return {bytes, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

void returnText(sqlite3_context *context, const std::string &text)
{
    sqlite3_result_text64(context, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

/// Keeps C++ exceptions out of SQLite's C functions. The result is NULL if any argument is.
template <void (*body)(sqlite3_context *, int, sqlite3_value **)>
void guarded(sqlite3_context *context, int count, sqlite3_value **values)
try {
    if (!anyNull(count, values)) body(context, count, values);
} catch (const std::bad_alloc &) {
    sqlite3_result_error_nomem(context);
} catch (const std::exception &error) {
    sqlite3_result_error(context, error.what(), -1);
}

/// like(pattern, text [, escape]) implements the LIKE operator. The compiled pattern is kept with the statement.
void like(sqlite3_context *context, int count, sqlite3_value **values)
{
    auto *pattern = static_cast<LikePattern *>(sqlite3_get_auxdata(context, 0));
    std::unique_ptr<LikePattern> fresh;
    if (pattern == nullptr) {
        char32_t escape = 0;
        if (count == 3) {
            std::u32string sign;
            appendCharacters(sign, textOf(values[2]));
            if (sign.size() != 1) return sqlite3_result_error(context, "ESCAPE wants a single character", -1);
            escape = sign.front();
        }
        fresh = std::make_unique<LikePattern>(textOf(values[0]), escape);
        pattern = fresh.get();
    }
    sqlite3_result_int(context, pattern->matches(textOf(values[1])) ? 1 : 0);
    if (fresh)
        sqlite3_set_auxdata(context, 0, fresh.release(),
                            [](void *kept) { std::unique_ptr<LikePattern>(static_cast<LikePattern *>(kept)).reset(); });
}

/// SUBSTRING as on the server: a start before 1 shortens the result, a negative length is an error.
void substring(sqlite3_context *context, int, sqlite3_value **values)
{
    std::int64_t start = sqlite3_value_int64(values[1]);
    std::int64_t units = sqlite3_value_int64(values[2]);
    if (units < 0) return sqlite3_result_error(context, "the length of SUBSTRING is negative", -1);
    if (start < 1) {
        units += start - 1;
        start = 1;
    }
    const std::string text = validUtf8(textOf(values[0]));
    returnText(context, units <= 0 ? std::string()
                                   : mid(text, static_cast<std::size_t>(start), static_cast<std::size_t>(units)));
}

void leftPart(sqlite3_context *context, int, sqlite3_value **values)
{
    const std::int64_t units = sqlite3_value_int64(values[1]);
    if (units < 0) return sqlite3_result_error(context, "the length of LEFT is negative", -1);
    returnText(context, left(validUtf8(textOf(values[0])), static_cast<std::size_t>(units)));
}

void dateText(sqlite3_context *context, int, sqlite3_value **values)
{
    returnText(context, convertDateText(textOf(values[0]), sqlite3_value_int(values[1])));
}

struct FunctionRow {
    const char *name;
    int arguments;
    void (*body)(sqlite3_context *, int, sqlite3_value **);
};
constexpr std::array<FunctionRow, 5> kRegisteredFunctions{{{"like", 2, guarded<like>},
                                                           {"like", 3, guarded<like>},
                                                           {"substring", 3, guarded<substring>},
                                                           {"inin_left", 2, guarded<leftPart>},
                                                           {"inin_date_text", 2, guarded<dateText>}}};

template <int (*compare)(std::string_view, std::string_view)>
int collate(void *, int aSize, const void *a, int bSize, const void *b)
{
    return compare({static_cast<const char *>(a), static_cast<std::size_t>(aSize)},
                   {static_cast<const char *>(b), static_cast<std::size_t>(bSize)});
}

} // namespace

int registerSqlFunctions(sqlite3 *db)
{
    constexpr int kFlags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
    int code = sqlite3_create_collation(db, kTextCollation.data(), SQLITE_UTF8, nullptr, collate<compareJapanese>);
    if (code == SQLITE_OK)
        code = sqlite3_create_collation(db, kDateCollation.data(), SQLITE_UTF8, nullptr, collate<compareDateTexts>);
    for (const FunctionRow &row : kRegisteredFunctions)
        if (code == SQLITE_OK)
            code = sqlite3_create_function(db, row.name, row.arguments, kFlags, nullptr, row.body, nullptr, nullptr);
    return code;
}

} // namespace inin::sqlite
