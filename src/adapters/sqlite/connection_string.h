#pragma once

#include <map>
#include <string>
#include <string_view>

namespace inin {

/// A parsed ADO connection string: `key = value; …`. Blanks around keys and values are ignored; a value may be in "…"
/// or '…', with its quote doubled inside.
class ConnectionString {
public:
    explicit ConnectionString(std::string_view text);
    /// The value of a key, ignoring ASCII case; the last one of a repeated key, empty for a missing one.
    [[nodiscard]] std::string value(std::string_view key) const;

private:
    std::map<std::string, std::string> m_values;
};

} // namespace inin
