#include "adapters/sqlite/sql_rewriter.h"

#include "runtime/text.h"

#include <array>
#include <utility>

namespace inin {

namespace {

/// How a function of the server is spelled here and what it gives; `argument` means the kind of its first argument.
enum class Gives { text, number, argument };
struct Function {
    std::string_view name;
    std::string_view spelled;
    Gives gives;
};
constexpr std::array<Function, 9> kFunctions{{{"left", "inin_left", Gives::text},
                                              {"substring", "SUBSTRING", Gives::text},
                                              {"isnull", "IFNULL", Gives::argument},
                                              {"upper", "UPPER", Gives::text},
                                              {"lower", "LOWER", Gives::text},
                                              {"rtrim", "RTRIM", Gives::text},
                                              {"ltrim", "LTRIM", Gives::text},
                                              {"max", "max", Gives::argument},
                                              {"min", "min", Gives::argument}}};
constexpr std::array<std::string_view, 4> kTextTypes{"varchar", "nvarchar", "char", "nchar"};

/// The server's clock in the one form that date columns hold.
constexpr std::string_view kNow = "datetime('now','localtime')";

} // namespace

SqlPiece SqlRewriter::call(const Token &name, std::string path)
{
    const bool isConvert = name.isWord("convert");
    std::string text = take();
    std::vector<SqlPiece> arguments;
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
        SqlPiece converted = convertCall(arguments);
        if (!converted.text.empty()) return converted;
    }
    for (const Function &function : kFunctions) {
        if (!name.isWord(function.name)) continue;
        // max and min keep the writer's spelling, the others take SQLite's.
        if (function.gives != Gives::argument || function.spelled == "IFNULL") path = function.spelled;
        const ColumnKind first = arguments.empty() ? ColumnKind::unknown : arguments.front().kind;
        const ColumnKind kind = function.gives == Gives::argument ? first
                                : function.gives == Gives::text   ? ColumnKind::text
                                                                  : ColumnKind::number;
        return {{}, path + text, kind};
    }
    return {{}, path + text, ColumnKind::unknown};
}

/// The last argument so far: MIN and MAX compare texts under the server's collation, and ISNULL has the kind of its first
/// argument.
void SqlRewriter::adaptArgument(const Token &name, std::vector<SqlPiece> &arguments)
{
    SqlPiece &argument = arguments.back();
    if ((name.isWord("max") || name.isWord("min")) && argument.isCollatable()) argument.collate(kTextCollation);
    if (!name.isWord("isnull") || arguments.size() != 2) return;
    const std::string gap = std::exchange(argument.gap, {});
    argument.text = stored(argument, arguments.front().kind);
    argument.gap = gap;
}

/// CONVERT(VARCHAR[(n)], x [, 111 or 112]). A text column keeps its text, whatever the style; an empty piece for
/// any other conversion.
SqlPiece SqlRewriter::convertCall(const std::vector<SqlPiece> &arguments)
{
    if (arguments.size() < 2 || arguments.size() > 3) return {};
    const std::string type = asciiLower(trim(arguments[0].whole()));
    const std::size_t bracket = type.find('(');
    bool isText = false;
    for (const std::string_view known : kTextTypes) isText = isText || trim(type.substr(0, bracket)) == known;
    const std::string style = arguments.size() == 3 ? arguments[2].text : std::string();
    if (!isText || !(style.empty() || style == "111" || style == "112")) return {};
    const SqlPiece &value = arguments[1];
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

} // namespace inin
