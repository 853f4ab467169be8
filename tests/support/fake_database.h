#pragma once

#include "platform/database.h"

#include <array>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace inin {

/// The answer of a FakeDatabase to one statement.
struct FakeResult {
    std::vector<std::string> columns;
    std::vector<std::vector<Variant>> rows;
    /// Thrown by the opening or execution when not 0, with this description and this error list.
    std::int32_t error = 0;
    std::string description;
    std::vector<ProviderError> providerErrors;
    /// MoveNext fails when it leaves row `failingMove` (1 is the first); 0 for never.
    int failingMove = 0;
    std::int32_t rowsAffected = 0;
    /// ADO type codes of the columns; columns without an entry have 202, text.
    std::vector<std::int32_t> types{};
};

/// A database with prepared answers that logs what it is asked:
/// "connect 1", "sql 1 SELECT ...", "exec 1 UPDATE ...", "begin 1", "commit 1", "rollback 1", "disconnect 1".
class FakeDatabase : public Database {
public:
    /// Answers to opened statements, in order, followed by empty results without columns.
    std::deque<FakeResult> results;
    /// Answers to statements that contain a text; tried before the queue.
    std::vector<std::pair<std::string, FakeResult>> resultsByText;
    /// Answers to executions, in order, followed by 0 affected rows.
    std::deque<FakeResult> executions;
    std::vector<std::string> log;

    /// Thrown by Open when not 0. With `stayClosed` Open returns without an error but the connection stays closed.
    std::int32_t connectError = 0;
    std::string connectDescription = "接続できません。";
    std::vector<ProviderError> connectErrors;
    bool stayClosed = false;
    std::int32_t closeError = 0, beginError = 0, commitError = 0, rollbackError = 0, timeoutError = 0;
    /// Added to the error list by RollbackTrans although it succeeds.
    std::vector<ProviderError> rollbackLeaves;
    std::string defaultDatabase = "DEMO";
    /// The connection strings of all calls of Open, and the last timeout set.
    std::vector<std::string> connectionStrings;
    std::int32_t lastTimeout = 0;
    /// The record sets that were opened but never closed, and the cursor type, lock type and options of the last one.
    int openRecordsets = 0;
    std::array<std::int32_t, 3> lastOpening{};

    std::unique_ptr<Connection> newConnection() override;
    std::unique_ptr<Recordset> newRecordset() override;

    /// Used by the fake's own objects.
    int nextSession() { return ++m_sessions; }
    void opened(std::array<std::int32_t, 3> options)
    {
        ++openRecordsets;
        lastOpening = options;
    }
    FakeResult answerTo(const std::string &sql);

private:
    int m_sessions = 0;
};

} // namespace inin
