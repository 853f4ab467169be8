#include "adapters/odbc/odbc_string.h"

#include "adapters/database/connection_parts.h"
#include "adapters/odbc/driver_choice.h"
#include "adapters/odbc/server_string.h"
#include "runtime/text.h"

#include <algorithm>

namespace inin::odbc {

namespace {

/// Writes the string for a system data source or for a driver that is not for SQL Server: keys and values unchanged,
/// except that ADO's names for user, password and database become those of ODBC.
class PlainStringWriter {
public:
    PlainStringWriter(const ConnectionString &text, const ConnectionParts &parts, const LogIn &logIn)
        : m_text(text), m_parts(parts), m_logIn(logIn), m_isBridge(text.form == ConnectionString::Form::ado),
          m_isDataSource(parts.has(ConnectionPart::dataSourceName) || parts.has(ConnectionPart::fileSourceName) ||
                         (m_isBridge && !parts.has(ConnectionPart::driver)))
    {
    }

    std::string write(std::string &problem)
    {
        if (m_isDataSource && m_isBridge && !m_parts.has(ConnectionPart::dataSourceName) &&
            m_parts.has(ConnectionPart::server))
            add("DSN", odbcQuoted(m_parts.text(ConnectionPart::server)));
        for (const ConnectionPair &pair : m_text.pairs) addPair(pair);
        if (!m_logIn.user.empty()) {
            addLogIn("UID", ConnectionPart::user);
            addLogIn("PWD", ConnectionPart::password);
        }
        problem = m_problem;
        return std::move(m_result);
    }

private:
    void add(std::string_view key, std::string_view raw) { m_result.append(key).append("=").append(raw).append(";"); }

    void addPair(const ConnectionPair &pair)
    {
        const std::optional<ConnectionPart> part = partOfKey(pair.key);
        const bool isLogIn = part == ConnectionPart::user || part == ConnectionPart::password;
        if (part == ConnectionPart::provider || part == ConnectionPart::extended || (isLogIn && !m_logIn.user.empty()))
            return;
        if (m_isBridge && (pair.key == "data source" || pair.key == "persist security info")) return;
        const std::string key = odbcKey(pair);
        if (key.find(' ') != std::string::npos) return;
        if (isLogIn && m_isDataSource)
            addLogIn(key, *part);
        else
            add(key, m_isBridge ? odbcQuoted(pair.value) : pair.raw);
    }

    /// Only data sources and MSDASQL are known to accept a password under this name alone.
    [[nodiscard]] std::string odbcKey(const ConnectionPair &pair) const
    {
        if (pair.key == "user id") return "UID";
        if (pair.key == "password" && (m_isDataSource || m_isBridge)) return "PWD";
        if (pair.key == "initial catalog") return "Database";
        return pair.shownKey;
    }

    /// The reading driver is unknown, and drivers differ on "}" in a braced value: some expect it doubled, FreeTDS does
    /// not. Write such a value without braces, or refuse it.
    void addLogIn(std::string_view key, ConnectionPart part)
    {
        const std::string value = m_parts.text(part);
        const bool hasBrace = value.find('}') != std::string::npos;
        if (m_isDataSource && hasBrace && needsBraces(value))
            m_problem = "a data source takes no " +
                        std::string(part == ConnectionPart::password ? "password" : "user") +
                        " that holds \"}\" and also a \";\", a \"{\" at its start or a blank at its start or end";
        add(key, m_isDataSource && hasBrace ? value : odbcQuoted(value));
    }

    const ConnectionString &m_text;
    const ConnectionParts &m_parts;
    const LogIn &m_logIn;
    bool m_isBridge;
    bool m_isDataSource;
    std::string m_result;
    std::string m_problem;
};

/// MSDASQL passes its Extended Properties to ODBC unchanged; quote the other pairs for ODBC.
ConnectionString bridgedText(const ConnectionString &text)
{
    const std::optional<std::string> extended = text.value("extended properties");
    if (!extended) return text;
    ConnectionString inner = readOdbcString(*extended);
    for (const ConnectionPair &pair : text.pairs)
        if (pair.key != "extended properties" && pair.key != "provider")
            inner.pairs.push_back({pair.key, pair.shownKey, pair.value, odbcQuoted(pair.value)});
    return inner;
}

class StringMaker {
public:
    StringMaker(ConnectionString text, const std::vector<std::string> &installed, const LogIn &logIn)
        : m_text(std::move(text)), m_parts(readConnectionParts(m_text)), m_installed(installed), m_logIn(logIn)
    {
        if (m_logIn.user.empty()) return;
        m_parts.texts[ConnectionPart::user] = m_logIn.user;
        m_parts.texts[ConnectionPart::password] = m_logIn.password;
        m_parts.integrated = false;
    }

    OdbcString make()
    {
        m_result.loginTimeout = m_parts.loginTimeout;
        if (const std::string password = m_parts.text(ConnectionPart::password); !password.empty())
            m_result.secrets.push_back(password);
        m_result.problem = m_parts.problem;
        if (m_result.problem.empty() && namesForeignLibrary())
            m_result.problem = "the connection string names a driver by a path that is not registered";
        if (m_result.problem.empty()) write();
        return std::move(m_result);
    }

private:
    /// The driver manager would load any file as a driver, whatever the source of the string.
    [[nodiscard]] bool namesForeignLibrary() const
    {
        return std::ranges::any_of(m_text.pairs, [this](const ConnectionPair &pair) {
            return partOfKey(pair.key) == ConnectionPart::driver && isPath(pair.value) &&
                   !installedDriver(pair.value, m_installed);
        });
    }

    void write()
    {
        const bool isBridge = asciiLower(m_parts.text(ConnectionPart::provider)).starts_with("msdasql");
        const bool isForServer = m_parts.has(ConnectionPart::provider) && !isBridge;
        if (!isForServer &&
            (m_parts.has(ConnectionPart::dataSourceName) || m_parts.has(ConnectionPart::fileSourceName) ||
             (isBridge && !m_parts.has(ConnectionPart::driver))))
            return writePlain();
        const OdbcDriver named = driverNamed(m_parts.text(ConnectionPart::driver));
        const std::optional<OdbcDriver> installed =
            m_parts.has(ConnectionPart::driver) ? installedDriver(named.name, m_installed) : std::nullopt;
        if (m_parts.has(ConnectionPart::driver) &&
            (installed ? installed->family : named.family) == DriverFamily::other)
            return writePlain();
        if (!m_parts.has(ConnectionPart::server)) return refuse("the connection string names no Data Source");
        if (!m_parts.server.problem.empty()) return refuse(m_parts.server.problem);
        const std::optional<OdbcDriver> driver = installed ? installed : bestDriver(m_installed);
        if (!driver) return refuse("no ODBC driver for SQL Server is installed");
        m_result.text = serverString(m_parts, *driver, installed.has_value(), m_result.problem);
    }

    void writePlain() { m_result.text = PlainStringWriter(m_text, m_parts, m_logIn).write(m_result.problem); }
    void refuse(std::string why) { m_result.problem = std::move(why); }

    ConnectionString m_text;
    ConnectionParts m_parts;
    const std::vector<std::string> &m_installed;
    const LogIn &m_logIn;
    OdbcString m_result;
};

} // namespace

OdbcString odbcStringFor(std::string_view connectionString, const std::vector<std::string> &installedDrivers,
                         const LogIn &logIn)
{
    return StringMaker(bridgedText(readConnectionString(connectionString)), installedDrivers, logIn).make();
}

std::string withDatabase(std::string_view connectionString, std::string_view database)
{
    const ConnectionString text = readConnectionString(connectionString);
    std::string result;
    for (const ConnectionPair &pair : text.pairs)
        if (partOfKey(pair.key) != ConnectionPart::database)
            result.append(pair.shownKey).append("=").append(pair.raw).append(";");
    const bool isOdbc = text.form == ConnectionString::Form::odbc;
    return result.append(isOdbc ? "Database=" : "Initial Catalog=").append(database);
}

} // namespace inin::odbc
