#pragma once

#include "data/ado_session.h"
#include "runtime/runtime_error.h"
#include "support/fake_platform.h"

#include <doctest/doctest.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace inin {

/// Forwards to another connection, which the test inspects while the session owns this one.
class SharedConnection : public Connection {
public:
    explicit SharedConnection(Connection &real) : m_real(real) {}
    std::int32_t State() const override { return m_real.State(); }
    void Open(const std::string &text, const std::string &user, const std::string &password,
              std::int32_t options) override
    {
        m_real.Open(text, user, password, options);
    }
    void Close() override { m_real.Close(); }
    std::string DefaultDatabase() const override { return m_real.DefaultDatabase(); }
    std::int32_t CommandTimeout() const override { return m_real.CommandTimeout(); }
    void setCommandTimeout(std::int32_t seconds) override { m_real.setCommandTimeout(seconds); }
    std::int32_t Execute(const std::string &sql, std::int32_t options) override { return m_real.Execute(sql, options); }
    void BeginTrans() override { m_real.BeginTrans(); }
    void CommitTrans() override { m_real.CommitTrans(); }
    void RollbackTrans() override { m_real.RollbackTrans(); }
    std::vector<ProviderError> &Errors() override { return m_real.Errors(); }

private:
    Connection &m_real;
};

/// A connection with switches for cases beyond the scripted database: the arguments of each call, and a list that
/// exists independently of a failure.
class ProbeConnection : public Connection {
public:
    std::vector<ProviderError> errors;
    std::int32_t state = adStateClosed;
    std::int32_t failure = 0;      ///< raised by every call unless it is 0
    std::function<void()> onClose; ///< called by Close
    std::vector<std::string> log;

    std::int32_t State() const override { return state; }
    void Open(const std::string &text, const std::string &user, const std::string &password,
              std::int32_t options) override
    {
        log.push_back("open [" + text + "][" + user + "][" + password + "] " + std::to_string(options));
        raise();
        state = adStateOpen;
    }
    void Close() override
    {
        log.emplace_back("close");
        if (onClose) onClose();
        raise();
        state = adStateClosed;
    }
    std::string DefaultDatabase() const override
    {
        raise();
        return "DEMO";
    }
    std::int32_t CommandTimeout() const override { return 0; }
    void setCommandTimeout(std::int32_t seconds) override
    {
        log.push_back("timeout " + std::to_string(seconds));
        raise();
    }
    std::int32_t Execute(const std::string &sql, std::int32_t options) override
    {
        log.push_back("exec " + sql + " " + std::to_string(options));
        raise();
        return 3;
    }
    void BeginTrans() override { raise(); }
    void CommitTrans() override { raise(); }
    void RollbackTrans() override { raise(); }
    std::vector<ProviderError> &Errors() override { return errors; }

private:
    void raise() const
    {
        if (failure != 0) throw RuntimeError(failure, "失敗しました。");
    }
};

/// Returns the same probed connection at each call.
class ProbeDatabase : public Database {
public:
    ProbeConnection probe;
    int made = 0;
    std::int32_t failure = 0;
    std::unique_ptr<Connection> newConnection() override
    {
        if (failure != 0) throw RuntimeError(failure, "作成できません。");
        ++made;
        return std::make_unique<SharedConnection>(probe);
    }
    std::unique_ptr<Recordset> newRecordset() override { return nullptr; }
};

/// A record set that fails to open or to close.
class ProbeRecordset : public Recordset {
public:
    std::string opened;
    bool failing = false;
    void setCursorLocation(std::int32_t) override {}
    void Open(const std::string &sql, Connection &, std::int32_t cursor, std::int32_t lock,
              std::int32_t options) override
    {
        if (failing) throw RuntimeError(-2147217900, "失敗しました。");
        opened = sql + " " + std::to_string(cursor) + " " + std::to_string(lock) + " " + std::to_string(options);
    }
    void Close() override
    {
        if (failing) throw RuntimeError(3704, "閉じています。");
    }
    std::int32_t State() const override { return adStateClosed; }
    bool isEndOfFile() const override { return true; }
    void MoveNext() override {}
    void MoveFirst() override {}
    void MoveLast() override {}
    std::int32_t RecordCount() const override { return 0; }
    std::size_t fieldCount() const override { return 0; }
    std::string fieldName(std::size_t) const override { return {}; }
    std::int32_t fieldType(std::size_t) const override { return 0; }
    std::size_t fieldIndex(std::string_view) const override { return 0; }
    Variant Value(std::size_t) const override { return {}; }
};

/// A session on the probed connection, opened on request.
struct ProbeFixture {
    FakeWorld world;
    ProbeDatabase database;
    Platform platform{world.boxes,     world.windows, database,     world.profile,   world.files,
                      world.processes, world.clock,   world.locale, world.automation};
    App app{platform};
    cT_ADODB session{app};
    ProbeFixture() { REQUIRE(session.iInit("Provider=Fake") == 0); }
    /// Opens the session, then makes every call fail with this list.
    void failOpen(std::vector<ProviderError> errors)
    {
        REQUIRE(session.iConnect() == 0);
        database.probe.errors = std::move(errors);
        database.probe.failure = -2147217900;
    }
};

} // namespace inin
