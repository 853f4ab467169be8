#pragma once

// ODBC's headers, with UTF-16 wide characters on every system. Include it in this adapter's .cpp files only.
#ifdef _WIN32 // the headers below need its types
#include <windows.h>
#endif
#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace inin::odbc {

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t), "the driver manager must take UTF-16");

/// ODBC's functions take input text as non-const but do not change it.
[[nodiscard]] inline SQLWCHAR *wide(const std::u16string &text)
{
    return const_cast<SQLWCHAR *>(static_cast<const SQLWCHAR *>(static_cast<const void *>(text.data())));
}

[[nodiscard]] inline std::u16string_view units(const SQLWCHAR *text, std::size_t count)
{
    return {static_cast<const char16_t *>(static_cast<const void *>(text)), count};
}

/// A number as a pointer, as ODBC's attributes require.
[[nodiscard]] inline SQLPOINTER asPointer(std::uintptr_t number)
{
    return reinterpret_cast<SQLPOINTER>(number); // NOLINT(performance-no-int-to-ptr): the interface wants it so
}

} // namespace inin::odbc
