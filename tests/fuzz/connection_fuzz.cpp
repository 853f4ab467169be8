// Connection strings: the reader of the embedded database against that of SQL Server, which are written apart, and what
// SQL Server's reader makes of hostile strings.

#include "adapters/odbc/connection_parts.h"
#include "adapters/odbc/connection_text.h"
#include "adapters/sqlite/connection_string.h"
#include "fuzz/fuzz_input.h"
#include "runtime/text.h"

#include <string>

using namespace inin;
using namespace inin::sqlite;
using namespace inin::odbc;
using inin::fuzz::require;

namespace {

void checkBothReaders(std::string_view input)
{
    const ConnectionText text = readConnectionText(input);
    const ConnectionString embedded(input);
    if (text.form != ConnectionText::Form::ado || !text.problem.empty()) return;
    // They differ on purpose: tabs and double blanks count for SQL Server alone, and so do braces under ODBC's provider.
    const bool isPlain = input.find('\t') == std::string_view::npos && input.find("  ") == std::string_view::npos &&
                         input.find('{') == std::string_view::npos;
    if (!isPlain) return;
    for (const ConnectionPair &pair : text.pairs)
        require(embedded.value(pair.shownKey) == text.value(pair.key), "both readers find the same value");
}

void checkOdbcQuoting(std::string_view input)
{
    const ConnectionText text = readOdbcText("first=" + odbcQuoted(input) + ";last=1");
    require(text.problem.empty() && text.pairs.size() == 2, "a quoted value stays one value");
    require(text.value("first") == input && text.value("last") == "1", "a quoted value is read back");
}

void checkParts(std::string_view input)
{
    constexpr std::string_view kSecret = "s3cretValue";
    for (const std::string_view key : {";Password=", ";User ID=", ";Connect Timeout=", ";Encrypt="}) {
        const std::string whole = std::string(input) + std::string(key) + std::string(kSecret);
        const ConnectionText text = readConnectionText(whole);
        const ConnectionParts parts = readConnectionParts(text);
        const bool isInProvider = parts.text(Part::provider).find(kSecret) != std::string::npos;
        require(isInProvider || (text.problem + parts.problem).find(kSecret) == std::string::npos,
                "a problem does not show a value");
        require(parts.loginTimeout > 0, "a login does not wait for ever");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    return fuzz::runChoice({checkBothReaders, checkOdbcQuoting, checkParts}, data, size);
}
