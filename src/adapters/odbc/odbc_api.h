#pragma once

// ODBC's own headers, the wide character as UTF-16 everywhere. For the bodies of this adapter, never for its headers.
#ifdef _WIN32 // there the headers below are made of its types
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

/// ODBC's calls take their texts without const, and read them only.
[[nodiscard]] inline SQLWCHAR *wide(const std::u16string &text)
{
    return const_cast<SQLWCHAR *>(static_cast<const SQLWCHAR *>(static_cast<const void *>(text.data())));
}

[[nodiscard]] inline std::u16string_view units(const SQLWCHAR *text, std::size_t count)
{
    return {static_cast<const char16_t *>(static_cast<const void *>(text)), count};
}

/// A number in the place of a pointer, as ODBC's attributes have it.
[[nodiscard]] inline SQLPOINTER asPointer(std::uintptr_t number)
{
    return reinterpret_cast<SQLPOINTER>(number); // NOLINT(performance-no-int-to-ptr): the interface wants it so
}

} // namespace inin::odbc
