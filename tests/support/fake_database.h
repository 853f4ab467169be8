#pragma once

#include "platform/database.h"

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace inin {

/// What a FakeDatabase answers to one statement.
struct FakeResult {
    std::vector<std::string> columns;
    std::vector<std::vector<Variant>> rows;
    /// Raised by the opening or execution when not 0, with these words and this error list.
    std::int32_t error = 0;
    std::string description;
    std::vector<ProviderError> providerErrors;
    /// Raised by MoveNext when it leaves row `failingMove` (1 is the first); 0 never.
    int failingMove = 0;
    std::int32_t rowsAffected = 0;
    /// ADO's type codes of the columns; those that are left out are 202, text.
    std::vector<std::int32_t> types{};
};

/// A database that answers from a script and writes down what it was asked:
/// "connect 1", "sql 1 SELECT ...", "exec 1 UPDATE ...", "begin 1", "commit 1", "rollback 1", "disconnect 1".
class FakeDatabase : public Database {
public:
    /// Answers to opened statements, in order; when they run out an empty result without columns is given.
    std::deque<FakeResult> results;
    /// Answers by a part of the statement, tried before the queue.
    std::vector<std::pair<std::string, FakeResult>> resultsByText;
    /// Answers to executions, in order; when they run out 0 rows are affected.
    std::deque<FakeResult> executions;
    std::vector<std::string> log;

    /// Raised by Open when not 0; `stayClosed`: Open comes back without an error but the state stays closed.
    std::int32_t connectError = 0;
    std::string connectDescription = "接続できません。";
    std::vector<ProviderError> connectErrors;
    bool stayClosed = false;
    std::int32_t closeError = 0, beginError = 0, commitError = 0, rollbackError = 0, timeoutError = 0;
    /// Put on the list by RollbackTrans though it succeeds.
    std::vector<ProviderError> rollbackLeaves;
    std::string defaultDatabase = "DEMO";
    /// Connection strings of all opens, and the last timeout set.
    std::vector<std::string> connectionStrings;
    std::int32_t lastTimeout = 0;

    std::unique_ptr<Connection> newConnection() override;
    std::unique_ptr<Recordset> newRecordset() override;

    /// For the fake's own objects.
    int nextSession() { return ++m_sessions; }
    FakeResult answerTo(const std::string &sql);

private:
    int m_sessions = 0;
};

} // namespace inin
