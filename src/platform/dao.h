#pragma once

#include "runtime/variant.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace inin {

// The interface of DAO, the older database library. An engine creates workspaces; a workspace opens databases, whose
// transactions it runs together; a database opens record sets. Failures are RuntimeErrors with DAO's numbers.

inline constexpr std::int32_t dbUseJet = 2;
inline constexpr std::int32_t dbOpenTable = 1;
inline constexpr std::int32_t dbOpenSnapshot = 4;
inline constexpr std::int32_t dbOpenForwardOnly = 8;
inline constexpr std::int32_t dbReadOnly = 4;
inline constexpr std::int32_t dbFailOnError = 128;

/// DAO's error numbers. error_number has those of a missing field and of no current record.
namespace dao_error {
inline constexpr std::int32_t tooManyTransactions = 3003;
inline constexpr std::int32_t duplicateValue = 3022;
inline constexpr std::int32_t fileNotFound = 3024;
inline constexpr std::int32_t readOnly = 3027;
inline constexpr std::int32_t noTransaction = 3034;
inline constexpr std::int32_t fileInUse = 3045;
inline constexpr std::int32_t selectNotExecuted = 3065;
inline constexpr std::int32_t syntax = 3075;
inline constexpr std::int32_t noSuchTable = 3078;
inline constexpr std::int32_t callFailed = 3146;
inline constexpr std::int32_t connectFailed = 3151;
inline constexpr std::int32_t locked = 3260;
inline constexpr std::int32_t unknownFormat = 3343;
inline constexpr std::int32_t objectInvalid = 3420;
} // namespace dao_error

/// The rows of a table or of one SELECT, read-only.
class DaoRecordset {
public:
    DaoRecordset() = default;
    DaoRecordset(const DaoRecordset &) = delete;
    DaoRecordset &operator=(const DaoRecordset &) = delete;
    virtual ~DaoRecordset() = default;

    [[nodiscard]] virtual bool isEndOfFile() const = 0;
    virtual void MoveNext() = 0;
    [[nodiscard]] virtual std::size_t fieldCount() const = 0;
    [[nodiscard]] virtual std::string fieldName(std::size_t index) const = 0;
    /// The value in the current row. Errors: 3265 no such field, 3021 no current record.
    [[nodiscard]] virtual Variant Field(std::string_view name) const = 0;
    virtual void Close() = 0;
};

class DaoDatabase {
public:
    DaoDatabase() = default;
    DaoDatabase(const DaoDatabase &) = delete;
    DaoDatabase &operator=(const DaoDatabase &) = delete;
    virtual ~DaoDatabase() = default;

    /// `source` is a table name or a SELECT.
    [[nodiscard]] virtual std::unique_ptr<DaoRecordset> OpenRecordset(const std::string &source, std::int32_t type,
                                                                      std::int32_t options, std::int32_t lock) = 0;
    virtual void Execute(const std::string &sql, std::optional<std::int32_t> options) = 0;
    /// Closes the record sets too. Changes made in a running transaction remain part of it.
    virtual void Close() = 0;
};

class DaoWorkspace {
public:
    DaoWorkspace() = default;
    DaoWorkspace(const DaoWorkspace &) = delete;
    DaoWorkspace &operator=(const DaoWorkspace &) = delete;
    virtual ~DaoWorkspace() = default;

    enum class Sharing { shared, exclusive };
    /// Errors: 3024 no such file, 3343 not a database of this kind, 3045 in use.
    [[nodiscard]] virtual std::unique_ptr<DaoDatabase> OpenDatabase(const std::string &name, Sharing sharing) = 0;
    // A transaction covers all open databases of the workspace, and those opened before it ends.
    virtual void BeginTrans() = 0;
    virtual void CommitTrans() = 0;
    virtual void Rollback() = 0;
    /// Rolls back a running transaction and closes the databases.
    virtual void Close() = 0;
};

class DaoEngine {
public:
    DaoEngine() = default;
    DaoEngine(const DaoEngine &) = delete;
    DaoEngine &operator=(const DaoEngine &) = delete;
    virtual ~DaoEngine() = default;

    [[nodiscard]] virtual std::unique_ptr<DaoWorkspace> CreateWorkspace(const std::string &name,
                                                                        const std::string &user,
                                                                        const std::string &password,
                                                                        std::int32_t type) = 0;
};

} // namespace inin
