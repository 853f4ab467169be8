#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <memory>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace inin::viewer {

/// A failed call of the ledger's file. Does not leave the ledger.
class LedgerError : public std::exception {
public:
    explicit LedgerError(int code) : m_code(code) {}
    [[nodiscard]] int code() const { return m_code; } ///< SQLite's primary code

private:
    int m_code;
};

/// One connection to the file of a ledger. Every operation throws LedgerError.
class LedgerDatabase {
public:
    /// Opens the file; creates an empty one that only its owner may read. A write-protected file is opened for reading.
    explicit LedgerDatabase(const std::string &path, std::chrono::milliseconds patience = {});
    LedgerDatabase(const LedgerDatabase &) = delete;
    LedgerDatabase &operator=(const LedgerDatabase &) = delete;
    ~LedgerDatabase();

    [[nodiscard]] bool isReadOnly() const;
    void execute(const char *sql);
    /// How long an operation waits for another program.
    void setPatience(std::chrono::milliseconds patience) { m_patience = patience; }
    [[nodiscard]] std::chrono::milliseconds patience() const { return m_patience; }
    [[nodiscard]] std::int64_t lastRowId() const;
    /// The number of rows that the last statement changed.
    [[nodiscard]] int changes() const;
    /// True when the structure of the file is consistent. Reads all of it.
    [[nodiscard]] bool isSound();

private:
    friend class LedgerStatement;
    struct Close {
        void operator()(sqlite3 *database) const;
    };
    static int waitForLock(void *database, int tries);

    std::unique_ptr<sqlite3, Close> m_database;
    std::chrono::milliseconds m_patience;
    std::chrono::steady_clock::time_point m_waitingSince;
};

/// A prepared statement.
class LedgerStatement {
public:
    LedgerStatement(const LedgerDatabase &database, const char *sql);

    /// Sets all parameters from the first on: integers, texts and Blob. Texts must live until the statement
    /// has run.
    template <class... Values> LedgerStatement &bind(const Values &...values)
    {
        reset();
        m_bound = 0;
        (bindNext(values), ...);
        return *this;
    }
    struct Blob {
        std::string_view bytes;
    };

    /// Moves to the next row; false after the last one.
    bool step();
    /// Runs a statement without rows.
    void run();
    void reset();

    [[nodiscard]] bool isNull(int column) const;
    [[nodiscard]] std::int64_t integer(int column) const;
    /// Valid until the next step.
    [[nodiscard]] std::string_view text(int column) const;

private:
    void bindNext(std::int64_t value);
    void bindNext(std::string_view text);
    void bindNext(const Blob &blob);

    struct Finalize {
        void operator()(sqlite3_stmt *statement) const;
    };
    std::unique_ptr<sqlite3_stmt, Finalize> m_statement;
    int m_bound = 0;
};

/// A transaction. Without commit() it changes nothing.
class LedgerTransaction {
public:
    enum class Kind { reading, writing };
    LedgerTransaction(LedgerDatabase &database, Kind kind);
    LedgerTransaction(const LedgerTransaction &) = delete;
    LedgerTransaction &operator=(const LedgerTransaction &) = delete;
    ~LedgerTransaction();
    void commit();

private:
    LedgerDatabase &m_database;
    bool m_isOpen = true;
};

} // namespace inin::viewer
