#pragma once

#include <map>
#include <string>
#include <string_view>

namespace inin {

/// An ADO connection string taken apart: `key = value; …`, blanks around both left out, a value in "…" or '…' with
/// the quote doubled inside.
class ConnectionString {
public:
    explicit ConnectionString(std::string_view text);
    /// The value of a key whatever its ASCII case, the last where it stands twice; empty when there is none.
    [[nodiscard]] std::string value(std::string_view key) const;

private:
    std::map<std::string, std::string> m_values;
};

} // namespace inin
