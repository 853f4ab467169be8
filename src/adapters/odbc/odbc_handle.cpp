#include "adapters/odbc/odbc_handle.h"

#include "adapters/odbc/driver_choice.h"
#include "adapters/odbc/odbc_api.h"
#include "runtime/runtime_error.h"
#include "runtime/utf8.h"

#include <algorithm>
#include <array>

namespace inin::odbc {

namespace {

SQLSMALLINT codeOf(OdbcHandle::Kind kind)
{
    constexpr std::array<SQLSMALLINT, 3> kCodes{SQL_HANDLE_ENV, SQL_HANDLE_DBC, SQL_HANDLE_STMT};
    return kCodes.at(static_cast<std::size_t>(kind));
}

/// A driver that returns records endlessly must not hang the program.
constexpr SQLSMALLINT kMaxRecords = 100;

std::u16string recordWords(SQLSMALLINT kind, SQLHANDLE handle, SQLSMALLINT number, DiagnosticRecord &record)
{
    std::array<SQLWCHAR, 6> state{};
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    std::u16string words(1024, u'\0');
    SQLRETURN result = SQLGetDiagRecW(kind, handle, number, state.data(), &native, wide(words),
                                      static_cast<SQLSMALLINT>(words.size()), &length);
    if (SQL_SUCCEEDED(result) && static_cast<std::size_t>(length) >= words.size()) {
        words.resize(static_cast<std::size_t>(length) + 1);
        result = SQLGetDiagRecW(kind, handle, number, state.data(), &native, wide(words),
                                static_cast<SQLSMALLINT>(words.size()), &length);
    }
    if (!SQL_SUCCEEDED(result)) return {};
    words.resize(std::min(static_cast<std::size_t>(length), words.size()));
    record.sqlState = utf8FromUtf16(units(state.data(), 5));
    record.native = native;
    return words;
}

/// The text that a call wrote; `length` may be that of the untruncated text.
template <std::size_t Size> std::string textIn(const std::array<SQLWCHAR, Size> &buffer, SQLSMALLINT length)
{
    return utf8FromUtf16(units(buffer.data(), std::min(static_cast<std::size_t>(length), Size)));
}

/// The value of "Driver" in a driver's attributes, a list of "key=value" each ended by a NUL; empty if there is none.
std::string libraryIn(std::string_view attributes)
{
    constexpr std::string_view kKey = "Driver=";
    while (!attributes.empty()) {
        const std::string_view attribute = attributes.substr(0, attributes.find('\0'));
        if (attribute.starts_with(kKey)) return std::string(attribute.substr(kKey.size()));
        attributes.remove_prefix(std::min(attribute.size() + 1, attributes.size()));
    }
    return {};
}

} // namespace

OdbcHandle::OdbcHandle(Kind kind, void *parent) : m_kind(kind)
{
    if (!SQL_SUCCEEDED(SQLAllocHandle(codeOf(kind), parent, &m_handle))) throw RuntimeError(error_number::outOfMemory);
}

OdbcHandle::~OdbcHandle()
{
    SQLFreeHandle(codeOf(m_kind), m_handle);
}

std::vector<DiagnosticRecord> OdbcHandle::records() const
{
    std::vector<DiagnosticRecord> records;
    for (SQLSMALLINT number = 1; number <= kMaxRecords; ++number) {
        DiagnosticRecord record;
        const std::u16string words = recordWords(codeOf(m_kind), m_handle, number, record);
        if (record.sqlState.empty()) break;
        record.message = utf8FromUtf16(words);
        records.push_back(std::move(record));
    }
    return records;
}

OdbcEnvironment::OdbcEnvironment() : m_handle(OdbcHandle::Kind::environment, nullptr)
{
    SQLSetEnvAttr(m_handle.get(), SQL_ATTR_ODBC_VERSION, asPointer(SQL_OV_ODBC3), 0);
}

std::vector<std::string> OdbcEnvironment::drivers() const
{
    std::vector<std::string> names;
    std::array<SQLWCHAR, 512> name{};
    std::array<SQLWCHAR, 4096> attributes{};
    SQLSMALLINT length = 0;
    SQLSMALLINT attributesLength = 0;
    SQLUSMALLINT direction = SQL_FETCH_FIRST;
    while (SQL_SUCCEEDED(SQLDriversW(m_handle.get(), direction, name.data(), static_cast<SQLSMALLINT>(name.size()),
                                     &length, attributes.data(), static_cast<SQLSMALLINT>(attributes.size()),
                                     &attributesLength))) {
        names.push_back(textIn(name, length));
        if (std::string library = libraryIn(textIn(attributes, attributesLength)); isPath(library))
            names.push_back(std::move(library));
        direction = SQL_FETCH_NEXT;
    }
    return names;
}

} // namespace inin::odbc
