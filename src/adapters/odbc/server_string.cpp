#include "adapters/odbc/server_string.h"

#include "runtime/text.h"

#include <optional>
#include <string_view>
#include <utility>

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
    const bool wasEncrypted = asciiLower(parts.text(ConnectionPart::provider)).starts_with("msoledbsql19") ||
                              driverNamed(parts.text(ConnectionPart::driver)).encryptsByDefault();
    if (wasEncrypted) {
        wish.encrypt = Encryption::yes;
    } else if (driver.encryptsByDefault()) {
        wish.encrypt = Encryption::no;
        if (!wish.trust) wish.trust = true;
    }
    return wish;
}

enum KnownBy : unsigned { microsoft = 1, freeTds = 2, bothDrivers = microsoft | freeTds };

/// A key whose value is copied unchanged.
struct PlainKey {
    std::string_view key;
    ConnectionPart part;
    unsigned knownBy;
};
constexpr PlainKey kPlainKeys[] = {
    {"APP", ConnectionPart::application, bothDrivers},
    {"WSID", ConnectionPart::workstation, bothDrivers},
    {"Language", ConnectionPart::language, bothDrivers},
    {"PacketSize", ConnectionPart::packetSize, freeTds},
    {"ApplicationIntent", ConnectionPart::intent, bothDrivers},
    {"MultiSubnetFailover", ConnectionPart::multiSubnet, microsoft},
    {"Failover_Partner", ConnectionPart::failover, microsoft},
    {"HostNameInCertificate", ConnectionPart::hostInCertificate, microsoft},
    {"Authentication", ConnectionPart::authentication, microsoft},
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
        addPart("Database", ConnectionPart::database);
        if (m_parts.integrated) {
            add("Trusted_Connection", "Yes");
        } else {
            addPart("UID", ConnectionPart::user);
            addPart("PWD", ConnectionPart::password);
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
    virtual std::string quoted(std::string_view key, ConnectionPart part) = 0;

    void addPart(std::string_view key, ConnectionPart part)
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

/// In the spelling of Microsoft's drivers.
std::string microsoftServer(const ServerAddress &address)
{
    std::string text = address.protocol.empty() ? std::string() : address.protocol + ":";
    text += address.host;
    if (!address.instance.empty()) text += "\\" + address.instance;
    if (address.port) text += "," + std::to_string(*address.port);
    return text;
}

/// The spelling of Microsoft's drivers and the driver manager.
class MicrosoftWriter : public ServerStringWriter {
public:
    MicrosoftWriter(const ConnectionParts &parts, const OdbcDriver &driver, bool isNamedDriver)
        : ServerStringWriter(parts, driver, isNamedDriver, microsoft)
    {
    }

private:
    void addServer() override { add("Server", microsoftServer(parts().server)); }
    std::string quoted(std::string_view, ConnectionPart part) override { return odbcQuoted(parts().text(part)); }
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
        const std::string wanted = asciiLower(parts().text(ConnectionPart::tdsVersion));
        const bool isNew = wanted == "7.2" || wanted == "7.3" || wanted == "7.4" || wanted == "auto";
        return isNew ? wanted : "7.4";
    }

    std::string quoted(std::string_view key, ConnectionPart part) override
    {
        std::string value = parts().text(part);
        if (!needsBraces(value)) return value;
        if (value.find("};") != std::string::npos)
            complain("the FreeTDS driver takes no " + std::string(part == ConnectionPart::password ? "password" : key) +
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

} // namespace

bool needsBraces(const std::string &value)
{
    return value.find(';') != std::string::npos || value.starts_with('{') || trim(value) != value;
}

std::string serverString(const ConnectionParts &parts, const OdbcDriver &driver, bool isNamedDriver,
                         std::string &problem)
{
    if (driver.family == DriverFamily::microsoft) return MicrosoftWriter(parts, driver, isNamedDriver).write(problem);
    return FreeTdsWriter(parts, driver, isNamedDriver).write(problem);
}

} // namespace inin::odbc
