#pragma once

#include "adapters/odbc/diagnostics.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace inin::odbc {

/// One ODBC handle (RAII). Handles do not leave this adapter: its headers declare them as void *.
class OdbcHandle {
public:
    enum class Kind : std::uint8_t { environment, connection, statement };
    /// Error 7 if the driver manager does not allocate one.
    OdbcHandle(Kind kind, void *parent);
    OdbcHandle(const OdbcHandle &) = delete;
    OdbcHandle &operator=(const OdbcHandle &) = delete;
    ~OdbcHandle();

    [[nodiscard]] void *get() const { return m_handle; }
    /// The diagnostic records of the last call on the handle. Read them at once: nearly every other call clears them.
    [[nodiscard]] std::vector<DiagnosticRecord> records() const;

private:
    Kind m_kind;
    void *m_handle = nullptr;
};

/// The driver manager's environment, shared by one library object and its connections.
class OdbcEnvironment {
public:
    OdbcEnvironment();
    [[nodiscard]] void *get() const { return m_handle.get(); }
    /// The registered drivers: each by its name, then by its library if that is registered as a path.
    [[nodiscard]] std::vector<std::string> drivers() const;

private:
    OdbcHandle m_handle;
};

} // namespace inin::odbc
