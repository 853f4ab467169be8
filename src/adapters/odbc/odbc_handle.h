#pragma once

#include "adapters/odbc/diagnostics.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace inin::odbc {

/// One handle of ODBC, freed with its owner. Handles never show outside this adapter: its headers know them as void *.
class OdbcHandle {
public:
    enum class Kind : std::uint8_t { environment, connection, statement };
    /// Error 7 when the driver manager gives none.
    OdbcHandle(Kind kind, void *parent);
    OdbcHandle(const OdbcHandle &) = delete;
    OdbcHandle &operator=(const OdbcHandle &) = delete;
    ~OdbcHandle();

    [[nodiscard]] void *get() const { return m_handle; }
    /// What the last call on the handle told. Asked for at once: nearly every other call empties it.
    [[nodiscard]] std::vector<DiagnosticRecord> records() const;

private:
    Kind m_kind;
    void *m_handle = nullptr;
};

/// The driver manager, as one library object and its connections share it.
class OdbcEnvironment {
public:
    OdbcEnvironment();
    [[nodiscard]] void *get() const { return m_handle.get(); }
    /// The drivers that are registered: each by its name, and then by its library where that is registered as a path.
    [[nodiscard]] std::vector<std::string> drivers() const;

private:
    OdbcHandle m_handle;
};

} // namespace inin::odbc
