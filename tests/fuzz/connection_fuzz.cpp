// Connection strings: quoting, and what the reader for SQL Server makes of hostile strings.

#include "adapters/database/connection_parts.h"
#include "adapters/database/connection_string.h"
#include "fuzz/fuzz_input.h"

#include <string>

using namespace inin;
using inin::fuzz::require;

namespace {

void checkOdbcQuoting(std::string_view input)
{
    const ConnectionString text = readOdbcString("first=" + odbcQuoted(input) + ";last=1");
    require(text.problem.empty() && text.pairs.size() == 2, "a quoted value stays one value");
    require(text.value("first") == input && text.value("last") == "1", "a quoted value is read back");
}

void checkParts(std::string_view input)
{
    constexpr std::string_view kSecret = "s3cretValue";
    for (const std::string_view key : {";Password=", ";User ID=", ";Connect Timeout=", ";Encrypt="}) {
        const std::string whole = std::string(input) + std::string(key) + std::string(kSecret);
        const ConnectionString text = readConnectionString(whole);
        const ConnectionParts parts = readConnectionParts(text);
        const bool isInProvider = parts.text(ConnectionPart::provider).find(kSecret) != std::string::npos;
        require(isInProvider || (text.problem + parts.problem).find(kSecret) == std::string::npos,
                "a problem does not show a value");
        const bool isZero = parts.text(ConnectionPart::loginTimeout).find_first_not_of("-0") == std::string::npos;
        require(parts.loginTimeout > 0 || isZero, "a login waits for ever only if the string says 0");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    return fuzz::runChoice({checkParts, checkOdbcQuoting}, data, size);
}
