#include "adapters/odbc/odbc_string.h"

#include "adapters/odbc/connection_parts.h"
#include "adapters/odbc/driver_choice.h"
#include "runtime/text.h"

#include <algorithm>

namespace inin::odbc {

namespace {

/// A string that does not mention encryption connects as with the older providers, which neither encrypted nor
/// validated; a provider or driver that encrypts by default keeps its default.
struct EncryptionWish {
    std::optional<Encryption> encrypt;
    std::optional<bool> trust;
};

EncryptionWish encryptionWish(const ConnectionParts &parts, const OdbcDriver &driver, bool isNamedDriver)
{
    EncryptionWish wish{parts.encrypt, parts.trustCertificate};
    if (wish.encrypt || isNamedDriver) return wish;
    const bool wasEncrypted = asciiLower(parts.text(Part::provider)).starts_with("msoledbsql19") ||
                              driverNamed(parts.text(Part::driver)).encryptsByDefault();
    if (wasEncrypted) {
        wish.encrypt = Encryption::yes;
    } else if (driver.encryptsByDefault()) {
        wish.encrypt = Encryption::no;
        if (!wish.trust) wish.trust = true;
    }
    return wish;
}

/// True for a value that a driver would truncate or misread without braces.
bool needsBraces(const std::string &value)
{
    return value.find(';') != std::string::npos || value.starts_with('{') || trim(value) != value;
}

enum KnownBy : unsigned { microsoft = 1, freeTds = 2, bothDrivers = microsoft | freeTds };

/// A key whose value is copied unchanged.
struct PlainKey {
    std::string_view key;
    Part part;
    unsigned knownBy;
};
constexpr PlainKey kPlainKeys[] = {
    {"APP", Part::application, bothDrivers},
    {"WSID", Part::workstation, bothDrivers},
    {"Language", Part::language, bothDrivers},
    {"PacketSize", Part::packetSize, freeTds},
    {"ApplicationIntent", Part::intent, bothDrivers},
    {"MultiSubnetFailover", Part::multiSubnet, microsoft},
    {"Failover_Partner", Part::failover, microsoft},
    {"HostNameInCertificate", Part::hostInCertificate, microsoft},
    {"Authentication", Part::authentication, microsoft},
};

/// Writes `key=value;` for a server. Subclasses spell the server, values and encryption for their driver.
class ServerStringWriter {
public:
    ServerStringWriter(const ConnectionParts &parts, const OdbcDriver &driver, bool isNamedDriver, KnownBy family)
        : m_parts(parts), m_driver(driver), m_wish(encryptionWish(parts, driver, isNamedDriver)), m_family(family)
    {
    }
    ServerStringWriter(const ServerStringWriter &) = delete;
    ServerStringWriter &operator=(const ServerStringWriter &) = delete;
    virtual ~ServerStringWriter() = default;

    std::string write(std::string &problem)
    {
        add("Driver", "{" + m_driver.name + "}");
        addServer();
        addPart("Database", Part::database);
        if (m_parts.integrated) {
            add("Trusted_Connection", "Yes");
        } else {
            addPart("UID", Part::user);
            addPart("PWD", Part::password);
        }
        addEncryption(m_wish);
        for (const PlainKey &plain : kPlainKeys)
            if ((plain.knownBy & m_family) != 0) addPart(plain.key, plain.part);
        for (const auto &[key, raw] : m_parts.others) add(key, raw);
        problem = m_problem;
        return std::move(m_text);
    }

protected:
    [[nodiscard]] const ConnectionParts &parts() const { return m_parts; }
    void add(std::string_view key, std::string_view raw) { m_text.append(key).append("=").append(raw).append(";"); }
    /// Records what the driver does not support; the last problem wins.
    void complain(std::string problem) { m_problem = std::move(problem); }

private:
    virtual void addServer() = 0;
    virtual void addEncryption(const EncryptionWish &wish) = 0;
    virtual std::string quoted(std::string_view key, Part part) = 0;

    void addPart(std::string_view key, Part part)
    {
        if (m_parts.has(part)) add(key, quoted(key, part));
    }

    const ConnectionParts &m_parts;
    const OdbcDriver &m_driver;
    EncryptionWish m_wish;
    KnownBy m_family;
    std::string m_text;
    std::string m_problem;
};

/// The spelling of Microsoft's drivers and the driver manager.
class MicrosoftWriter : public ServerStringWriter {
public:
    MicrosoftWriter(const ConnectionParts &parts, const OdbcDriver &driver, bool isNamedDriver)
        : ServerStringWriter(parts, driver, isNamedDriver, microsoft)
    {
    }

private:
    void addServer() override { add("Server", microsoftServer(parts().server)); }
    std::string quoted(std::string_view, Part part) override { return odbcQuoted(parts().text(part)); }
    void addEncryption(const EncryptionWish &wish) override
    {
        if (wish.encrypt) {
            const bool isOn = *wish.encrypt == Encryption::yes;
            const bool isStrict = *wish.encrypt == Encryption::strict;
            add("Encrypt", isStrict ? "strict" : isOn ? "yes" : "no");
        }
        if (wish.trust) add("TrustServerCertificate", *wish.trust ? "yes" : "no");
    }
};

/// The spelling of FreeTDS: a separate key for the port, braces only where required and then always followed by a
/// semicolon, and its own key for TLS.
class FreeTdsWriter : public ServerStringWriter {
public:
    FreeTdsWriter(const ConnectionParts &parts, const OdbcDriver &driver, bool isNamedDriver)
        : ServerStringWriter(parts, driver, isNamedDriver, freeTds)
    {
    }

private:
    void addServer() override
    {
        const ServerAddress &server = parts().server;
        if (!server.protocol.empty() && server.protocol != "tcp")
            complain("the FreeTDS driver reaches a server by TCP only");
        const std::string named = asciiLower(server.host);
        const bool isThisMachine = named == "." || named == "(local)";
        const std::string host = isThisMachine ? std::string("localhost") : server.host;
        constexpr std::uint16_t kUsualPort = 1433;
        if (server.port || server.instance.empty()) {
            add("Server", host);
            add("Port", std::to_string(server.port.value_or(kUsualPort)));
        } else {
            add("Server", host + "\\" + server.instance); // the server's browser service supplies the port
        }
        add("TDS_Version", tdsVersion());
        add("ClientCharset", "UTF-8");
    }

    /// Older protocols than 7.2 (8.0 is an old name of 7.1) make the driver hang or mix up results.
    [[nodiscard]] std::string tdsVersion() const
    {
        const std::string wanted = asciiLower(parts().text(Part::tdsVersion));
        const bool isNew = wanted == "7.2" || wanted == "7.3" || wanted == "7.4" || wanted == "auto";
        return isNew ? wanted : "7.4";
    }

    std::string quoted(std::string_view key, Part part) override
    {
        const std::string value = parts().text(part);
        if (!needsBraces(value)) return value;
        if (value.find("};") != std::string::npos)
            complain("the FreeTDS driver takes no " + std::string(part == Part::password ? "password" : key) +
                     " that holds \"};\"");
        return "{" + value + "}";
    }

    void addEncryption(const EncryptionWish &wish) override
    {
        if (!wish.encrypt) return;
        if (*wish.encrypt == Encryption::strict) complain("the FreeTDS driver knows no strict encryption");
        const bool isOn = *wish.encrypt == Encryption::yes;
        const bool isWish = *wish.encrypt == Encryption::request;
        add("Encryption", isOn ? "require" : isWish ? "request" : "off");
    }
};

/// Writes the string for a system data source or for a driver that is not for SQL Server: keys and values unchanged,
/// except that ADO's names for user, password and database become those of ODBC.
class PlainStringWriter {
public:
    PlainStringWriter(const ConnectionString &text, const ConnectionParts &parts, const LogIn &logIn)
        : m_text(text), m_parts(parts), m_logIn(logIn), m_isBridge(text.form == ConnectionString::Form::ado),
          m_isDataSource(parts.has(Part::dataSourceName) || parts.has(Part::fileSourceName) ||
                         (m_isBridge && !parts.has(Part::driver)))
    {
    }

    std::string write(std::string &problem)
    {
        if (m_isDataSource && m_isBridge && !m_parts.has(Part::dataSourceName) && m_parts.has(Part::server))
            add("DSN", odbcQuoted(m_parts.text(Part::server)));
        for (const ConnectionPair &pair : m_text.pairs) addPair(pair);
        if (!m_logIn.user.empty()) {
            addLogIn("UID", Part::user);
            addLogIn("PWD", Part::password);
        }
        problem = m_problem;
        return std::move(m_result);
    }

private:
    void add(std::string_view key, std::string_view raw) { m_result.append(key).append("=").append(raw).append(";"); }

    void addPair(const ConnectionPair &pair)
    {
        const std::optional<Part> part = partOfKey(pair.key);
        const bool isLogIn = part == Part::user || part == Part::password;
        if (part == Part::provider || part == Part::extended || (isLogIn && !m_logIn.user.empty())) return;
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
    void addLogIn(std::string_view key, Part part)
    {
        const std::string value = m_parts.text(part);
        const bool hasBrace = value.find('}') != std::string::npos;
        if (m_isDataSource && hasBrace && needsBraces(value))
            m_problem = "a data source takes no " + std::string(part == Part::password ? "password" : "user") +
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
        m_parts.texts[Part::user] = m_logIn.user;
        m_parts.texts[Part::password] = m_logIn.password;
        m_parts.integrated = false;
    }

    OdbcString make()
    {
        m_result.loginTimeout = m_parts.loginTimeout;
        if (const std::string password = m_parts.text(Part::password); !password.empty())
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
            return partOfKey(pair.key) == Part::driver && isPath(pair.value) &&
                   !installedDriver(pair.value, m_installed);
        });
    }

    void write()
    {
        const bool isBridge = asciiLower(m_parts.text(Part::provider)).starts_with("msdasql");
        const bool isForServer = m_parts.has(Part::provider) && !isBridge;
        if (!isForServer && (m_parts.has(Part::dataSourceName) || m_parts.has(Part::fileSourceName) ||
                             (isBridge && !m_parts.has(Part::driver))))
            return writePlain();
        const OdbcDriver named = driverNamed(m_parts.text(Part::driver));
        const std::optional<OdbcDriver> installed =
            m_parts.has(Part::driver) ? installedDriver(named.name, m_installed) : std::nullopt;
        if (m_parts.has(Part::driver) && (installed ? installed->family : named.family) == DriverFamily::other)
            return writePlain();
        if (!m_parts.has(Part::server)) return refuse("the connection string names no Data Source");
        if (!m_parts.server.problem.empty()) return refuse(m_parts.server.problem);
        const std::optional<OdbcDriver> driver = installed ? installed : bestDriver(m_installed);
        if (!driver) return refuse("no ODBC driver for SQL Server is installed");
        if (driver->family == DriverFamily::microsoft)
            m_result.text = MicrosoftWriter(m_parts, *driver, installed.has_value()).write(m_result.problem);
        else
            m_result.text = FreeTdsWriter(m_parts, *driver, installed.has_value()).write(m_result.problem);
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
        if (partOfKey(pair.key) != Part::database)
            result.append(pair.shownKey).append("=").append(pair.raw).append(";");
    const bool isOdbc = text.form == ConnectionString::Form::odbc;
    return result.append(isOdbc ? "Database=" : "Initial Catalog=").append(database);
}

} // namespace inin::odbc
