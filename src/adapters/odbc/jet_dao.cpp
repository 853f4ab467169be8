#include "adapters/odbc/jet_dao.h"

#include "adapters/odbc/odbc_database.h"

#include <string_view>
#include <utility>

namespace inin::odbc {

namespace {

/// Files of the older and of the newer engine carry their type after the first four bytes.
bool isJetFile(std::string_view start)
{
    constexpr std::size_t kNamePlace = 4;
    if (start.size() < kNamePlace) return false;
    const std::string_view name = start.substr(kNamePlace);
    return name.starts_with("Standard Jet DB") || name.starts_with("Standard ACE DB");
}

/// Braces only where required: the driver outside Windows does not support them, and so no path with a semicolon.
std::string valueOf(const std::string &path)
{
    if (path.find(';') == std::string::npos && !path.starts_with('{')) return path;
    std::string text = "{";
    for (const char c : path) text.append(c == '}' ? 2 : 1, c);
    return text + "}";
}

} // namespace

std::unique_ptr<DaoEngine> makeJetDao(std::function<std::string(const std::string &)> resolvePath, std::string driver)
{
    const auto connectionString = [driver = std::move(driver)](const std::string &path, DaoWorkspace::Sharing sharing) {
        const std::string text = "Driver={" + driver + "};DBQ=" + valueOf(path);
        return sharing == DaoWorkspace::Sharing::exclusive ? text + ";Exclusive=1" : text;
    };
    std::shared_ptr<Database> provider = makeOdbcDatabase();
    return makeDaoOverAdo({std::move(provider), std::move(resolvePath), isJetFile, connectionString, jetAccess()});
}

} // namespace inin::odbc
