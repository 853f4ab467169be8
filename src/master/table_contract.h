#pragma once

#include "data/ado_session.h"
#include "master/table_statements.h"
#include "shell/error_box.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace inin {

/// The flag of a write: whose transaction it runs in, and how a failure ends it.
enum class Transaction {
    ofTheCaller,
    own,                ///< rolled back on a failure
    ownUntilDisconnect, ///< on a failure left to the end of a session that the writer closes at once
};

/// Runs after a statement and before its commit. A status other than 0 fails the write; its words, if any, go into the
/// table's sErrMsg.
using AfterExecution = std::function<std::int16_t(std::string &sErrMsg)>;

/// What all table classes do alike, whatever their rows: trap errors, word failures, read, write.
/// Borrows the session of iInit; the caller owns and connects it.
class TableSession {
public:
    TableSession(App &app, const TableShape &shape) : m_app(app), m_shape(shape) {}

    /// The words of the last failure; a later success keeps them.
    [[nodiscard]] const std::string &sErrMsg() const { return m_errMsg; }
    [[nodiscard]] const TableShape &shape() const { return m_shape; }
    [[nodiscard]] FieldReader reader() const { return {m_app.regional, m_shape.unreadable}; }
    void init(cT_ADODB &session) { m_session = &session; }

    /// The status of the operation; a run-time error becomes number, CR LF, description and -1.
    template <class Operation> [[nodiscard]] std::int16_t trapped(Operation &&operation)
    try {
        return operation();
    } catch (const RuntimeError &error) {
        m_errMsg = numberLineText(error);
        return iBad;
    }
    /// As trapped, with the row behind the pointer; no row at all is a failure with words of its own.
    template <class Row, class Operation> [[nodiscard]] std::int16_t withRow(const Row *cData, Operation &&operation)
    {
        if (cData == nullptr) return failed(std::string(m_shape.name) + "が無効です。");
        return trapped([&] { return operation(*cData); });
    }
    /// As withRow, with the site and the computer's name that a write needs; a computer without a name fails.
    template <class Row, class Operation> [[nodiscard]] std::int16_t toWrite(const Row *cData, Operation &&operation)
    {
        return withRow(cData, [&](const Row &row) {
            WriteContext context{siteOf(m_app), {}};
            if (computerName(context.computerName) != iGood) return failed("コンピューター名の取得に失敗しました。");
            return static_cast<std::int16_t>(operation(row, context));
        });
    }

    /// Keeps the words of a failure and gives its status.
    [[nodiscard]] std::int16_t failed(std::string words);
    /// The computer's name up to its first NUL; -1 and the empty text when it does not fit into 250 bytes.
    [[nodiscard]] std::int16_t computerName(std::string &sName);
    /// Opens the statement and hands on row by row. `onOpened` runs before the first row and only after a good opening.
    /// An error on the way closes the record set and goes on to `trapped`.
    [[nodiscard]] std::int16_t walk(const std::string &sql, const std::function<void()> &onOpened,
                                    const std::function<void(const Recordset &)> &onRow);
    /// The one number of a statement with one row, NULL as 0. The target stays as it is on a failure.
    [[nodiscard]] std::int16_t number(const std::string &sql, const char *column, std::int32_t &result);
    /// The frame of a write. In a transaction of its own each failure after the beginning rolls back, unless the flag
    /// leaves that to the session's end; the words are those of the failure, not of the rollback.
    [[nodiscard]] std::int16_t write(const std::string &sql, Transaction bTransactionFlg,
                                     const AfterExecution &afterExecution = {});

private:
    [[nodiscard]] std::int16_t failedInSession() { return failed(session().sErrMsg()); }
    /// Error 91 before iInit.
    [[nodiscard]] cT_ADODB &session() const;

    App &m_app;
    TableShape m_shape;
    cT_ADODB *m_session = nullptr;
    std::string m_errMsg;
};

/// The rows of a table class beside its session.
template <class Row> class TableContract : public TableSession {
public:
    using TableSession::TableSession;

    [[nodiscard]] std::int16_t init(cT_ADODB &session)
    {
        TableSession::init(session);
        m_rows.clear();
        return iGood;
    }
    [[nodiscard]] std::int32_t count() const { return static_cast<std::int32_t>(m_rows.size()); }
    /// A row from 0, good until the next read; error 9 outside.
    [[nodiscard]] const Row &row(std::int32_t nIdx) const
    {
        if (nIdx < 0 || nIdx >= count()) throw RuntimeError(error_number::subscript);
        return m_rows[static_cast<std::size_t>(nIdx)];
    }
    /// Replaces the rows by those of the statement. A failed opening leaves the old ones; an error on the way leaves
    /// the new ones that were complete.
    [[nodiscard]] std::int16_t read(const std::string &sql, const std::vector<const TableColumn<Row> *> &filled)
    {
        // A column is looked up when it is first read, so that an empty result never misses one.
        std::vector<std::optional<std::size_t>> places(filled.size());
        return walk(
            sql, [this] { m_rows.clear(); },
            [&](const Recordset &rsData) {
                Row row;
                for (std::size_t index = 0; index < filled.size(); ++index) {
                    std::optional<std::size_t> &place = places[index];
                    if (!place) place = rsData.fieldIndex(filled[index]->name);
                    fillField(row, *filled[index], rsData.Value(*place), reader());
                }
                m_rows.push_back(std::move(row));
            });
    }

private:
    std::vector<Row> m_rows;
};

} // namespace inin
