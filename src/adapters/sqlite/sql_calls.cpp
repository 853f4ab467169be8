#include "adapters/sqlite/sql_rewriter.h"

#include "runtime/text.h"

#include <array>
#include <utility>

namespace inin::sqlite {

namespace {

/// A function of the server, its name in SQLite and the kind of its result; `argument` is that of its first argument.
enum class Returns { text, number, argument };
struct Function {
    std::string_view name;
    std::string_view spelled;
    Returns returns;
};
constexpr std::array<Function, 9> kTranslatedFunctions{{{"left", "inin_left", Returns::text},
                                                        {"substring", "SUBSTRING", Returns::text},
                                                        {"isnull", "IFNULL", Returns::argument},
                                                        {"upper", "UPPER", Returns::text},
                                                        {"lower", "LOWER", Returns::text},
                                                        {"rtrim", "RTRIM", Returns::text},
                                                        {"ltrim", "LTRIM", Returns::text},
                                                        {"max", "max", Returns::argument},
                                                        {"min", "min", Returns::argument}}};
constexpr std::array<std::string_view, 4> kTextTypes{"varchar", "nvarchar", "char", "nchar"};

/// The present local time in the format of date columns.
constexpr std::string_view kNow = "datetime('now','localtime')";

} // namespace

SqlExpression SqlRewriter::call(const Token &name, std::string path)
{
    const bool isConvert = name.isWord("convert");
    std::string text = take();
    std::vector<SqlExpression> arguments;
    while (!atStop(Until::bracket)) {
        arguments.push_back(sequence(Until::comma));
        adaptArgument(name, arguments);
        text += arguments.back().whole();
        if (!peek().isSymbol(",")) break;
        text += take();
        if (atStop(Until::bracket)) arguments.emplace_back();
    }
    if (peek().isSymbol(")")) text += take();
    if (name.isWord("getdate") && arguments.empty()) return {{}, std::string(kNow), ColumnKind::date};
    if (isConvert) {
        SqlExpression converted = convertCall(arguments);
        if (!converted.text.empty()) return converted;
    }
    for (const Function &function : kTranslatedFunctions) {
        if (!name.isWord(function.name)) continue;
        // MAX and MIN keep their spelling, the others take SQLite's.
        if (function.returns != Returns::argument || function.spelled == "IFNULL") path = function.spelled;
        const ColumnKind first = arguments.empty() ? ColumnKind::unknown : arguments.front().kind;
        const ColumnKind kind = function.returns == Returns::argument ? first
                                : function.returns == Returns::text   ? ColumnKind::text
                                                                      : ColumnKind::number;
        return {{}, path + text, kind};
    }
    return {{}, path + text, ColumnKind::unknown};
}

/// Adapts the last argument read: MIN and MAX compare texts under the server's collation, and the second argument of
/// ISNULL is stored in the format of the first.
void SqlRewriter::adaptArgument(const Token &name, std::vector<SqlExpression> &arguments)
{
    SqlExpression &argument = arguments.back();
    if ((name.isWord("max") || name.isWord("min")) && argument.isCollatable()) argument.collate(kTextCollation);
    if (!name.isWord("isnull") || arguments.size() != 2) return;
    const std::string gap = std::exchange(argument.gap, {});
    argument.text = stored(argument, arguments.front().kind);
    argument.gap = gap;
}

/// CONVERT(VARCHAR[(n)], x [, 111 or 112]). The text of a text column is unchanged, whatever the style. Returns an
/// empty expression for any other conversion.
SqlExpression SqlRewriter::convertCall(const std::vector<SqlExpression> &arguments)
{
    if (arguments.size() < 2 || arguments.size() > 3) return {};
    const std::string type = asciiLower(trim(arguments[0].whole()));
    const std::size_t bracket = type.find('(');
    bool isText = false;
    for (const std::string_view known : kTextTypes) isText = isText || trim(type.substr(0, bracket)) == known;
    const std::string style = arguments.size() == 3 ? arguments[2].text : std::string();
    if (!isText || !(style.empty() || style == "111" || style == "112")) return {};
    const SqlExpression &value = arguments[1];
    std::string text;
    if (value.kind == ColumnKind::text)
        text = "(" + value.text + ")";
    else if (value.kind == ColumnKind::number || style.empty())
        text = "CAST(" + value.text + " AS TEXT)";
    else
        text = "inin_date_text(" + value.text + ", " + style + ")";
    if (bracket != std::string::npos) {
        const std::size_t closing = type.find(')', bracket);
        const std::string size = type.substr(bracket + 1, closing == std::string::npos ? 0 : closing - bracket - 1);
        if (size != "max") text = "inin_left(" + text + ", " + size + ")";
    }
    return {{}, text, ColumnKind::text};
}

} // namespace inin::sqlite
