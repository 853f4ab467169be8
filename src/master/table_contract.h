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

/// The transaction of a write, and how a failure ends it.
enum class Transaction {
    ofTheCaller,
    own,                ///< rolled back after a failure
    ownUntilDisconnect, ///< after a failure left open until the session ends, which the caller does at once
};

/// Runs after a statement and before its commit. A status other than 0 fails the write; its error text, if any, goes to
/// the table's sErrMsg.
using AfterExecution = std::function<std::int16_t(std::string &sErrMsg)>;

/// The common part of all table classes, independent of their rows: trapping errors, error texts, reading, writing.
/// Borrows the session of iInit; the caller owns and connects it.
class TableSession {
public:
    TableSession(App &app, const TableShape &shape) : m_app(app), m_shape(shape) {}

    /// The text of the last failure; a later success keeps it.
    [[nodiscard]] const std::string &sErrMsg() const { return m_errMsg; }
    [[nodiscard]] const TableShape &shape() const { return m_shape; }
    [[nodiscard]] FieldReader reader() const { return {m_app.regional, m_shape.unreadable}; }
    void init(cT_ADODB &session) { m_session = &session; }

    /// The status of the operation; a run-time error gives -1 and the text number, CR LF, description.
    template <class Operation> [[nodiscard]] std::int16_t trapped(Operation &&operation)
    try {
        return operation();
    } catch (const RuntimeError &error) {
        m_errMsg = numberLineText(error);
        return iBad;
    }
    /// Like trapped, with the row that cData points to; nullptr is a failure with a text of its own.
    template <class Row, class Operation> [[nodiscard]] std::int16_t withRow(const Row *cData, Operation &&operation)
    {
        if (cData == nullptr) return failed(std::string(m_shape.name) + "が無効です。");
        return trapped([&] { return operation(*cData); });
    }
    /// Like withRow, with the branch and the computer's name for a write; a computer without a name is a failure.
    template <class Row, class Operation> [[nodiscard]] std::int16_t toWrite(const Row *cData, Operation &&operation)
    {
        return withRow(cData, [&](const Row &row) {
            WriteContext context{branchOf(m_app), {}};
            if (computerName(context.computerName) != iGood) return failed("コンピューター名の取得に失敗しました。");
            return static_cast<std::int16_t>(operation(row, context));
        });
    }

    /// Keeps the text of a failure and returns its status.
    [[nodiscard]] std::int16_t failed(std::string words);
    /// The computer's name up to its first NUL; -1 and the empty text if it does not fit into 250 bytes.
    [[nodiscard]] std::int16_t computerName(std::string &sName);
    /// Opens the statement and passes on each row. `onOpened` runs before the first row and only after a successful
    /// opening. An error in between closes the record set and goes on to `trapped`.
    [[nodiscard]] std::int16_t walk(const std::string &sql, const std::function<void()> &onOpened,
                                    const std::function<void(const Recordset &)> &onRow);
    /// The single number of a one-row statement, NULL as 0. The target is unchanged on a failure.
    [[nodiscard]] std::int16_t number(const std::string &sql, const char *column, std::int32_t &result);
    /// The common sequence of a write. In a transaction of its own each failure after the start rolls back, unless the
    /// flag leaves that to the session's end; the error text is that of the failure, not of the rollback.
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

/// The rows of a table class, in addition to its session.
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
    /// A row from 0, valid until the next read; error 9 outside.
    [[nodiscard]] const Row &row(std::int32_t nIdx) const
    {
        if (nIdx < 0 || nIdx >= count()) throw RuntimeError(error_number::subscript);
        return m_rows[static_cast<std::size_t>(nIdx)];
    }
    /// Replaces the rows by those of the statement. A failed opening keeps the old rows; an error in between keeps the
    /// new rows that were complete.
    [[nodiscard]] std::int16_t read(const std::string &sql, const std::vector<const TableColumn<Row> *> &filled)
    {
        // A column is looked up at its first read, so that an empty result with a missing column is no error.
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

/// What the table classes have in common. Their statuses are 0 or -1, with the reason in sErrMsg. nullptr is a row that is
/// Nothing. `eOptions` is ignored. Texts are written into the statements unchanged, quote characters included.
template <class Row> class TableClass {
public:
    [[nodiscard]] const std::string &sErrMsg() const { return m_table.sErrMsg(); }
    [[nodiscard]] std::int32_t nデータ数() const { return m_table.count(); }
    /// The computer's name; the empty text on a failure.
    [[nodiscard]] std::int16_t iGetComputerName(std::string &sName) { return m_table.computerName(sName); }
    /// Keeps a reference to the caller's connected session and clears the rows.
    [[nodiscard]] std::int16_t iInit(cT_ADODB &cADO) { return m_table.init(cADO); }

protected:
    TableClass(App &app, const TableShape &shape) : m_app(app), m_table(app, shape) {}
    /// A row of the last read, from 0; error 9 outside. Valid until the next read.
    [[nodiscard]] const Row &rowAt(std::int32_t nIdx) const { return m_table.row(nIdx); }

    App &m_app;
    TableContract<Row> m_table;
};

} // namespace inin
