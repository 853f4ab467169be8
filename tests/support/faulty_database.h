#pragma once

#include "runtime/runtime_error.h"
#include "support/fake_platform.h"

#include <memory>
#include <string>
#include <utility>

namespace inin {

/// Runtime errors to throw, 0 for none, each described as "故障 NUMBER".
struct RecordsetFaults {
    std::int32_t creation = 0, cursorLocation = 0, recordCount = 0, value = 0, close = 0;
    static void raise(std::int32_t number)
    {
        if (number != 0) throw RuntimeError(number, "故障 " + std::to_string(number));
    }
};

/// A record set that fails where its faults request it and otherwise forwards to another one.
class FaultyRecordset : public Recordset {
public:
    FaultyRecordset(std::unique_ptr<Recordset> inner, const RecordsetFaults &faults)
        : m_inner(std::move(inner)), m_faults(faults)
    {
    }
    void setCursorLocation(std::int32_t location) override
    {
        RecordsetFaults::raise(m_faults.cursorLocation);
        m_inner->setCursorLocation(location);
    }
    void Open(const std::string &sql, Connection &connection, std::int32_t cursorType, std::int32_t lockType,
              std::int32_t options) override
    {
        m_inner->Open(sql, connection, cursorType, lockType, options);
    }
    void Close() override
    {
        RecordsetFaults::raise(m_faults.close);
        m_inner->Close();
    }
    std::int32_t State() const override { return m_inner->State(); }
    bool isEndOfFile() const override { return m_inner->isEndOfFile(); }
    void MoveNext() override { m_inner->MoveNext(); }
    void MoveFirst() override { m_inner->MoveFirst(); }
    void MoveLast() override { m_inner->MoveLast(); }
    std::int32_t RecordCount() const override
    {
        RecordsetFaults::raise(m_faults.recordCount);
        return m_inner->RecordCount();
    }
    std::size_t fieldCount() const override { return m_inner->fieldCount(); }
    std::string fieldName(std::size_t index) const override { return m_inner->fieldName(index); }
    std::int32_t fieldType(std::size_t index) const override { return m_inner->fieldType(index); }
    std::size_t fieldIndex(std::string_view name) const override { return m_inner->fieldIndex(name); }
    Variant Value(std::size_t index) const override
    {
        RecordsetFaults::raise(m_faults.value);
        return m_inner->Value(index);
    }

private:
    std::unique_ptr<Recordset> m_inner;
    const RecordsetFaults &m_faults;
};

/// Another database with faulty record sets.
class FaultyDatabase : public Database {
public:
    explicit FaultyDatabase(Database &inner) : m_inner(inner) {}
    RecordsetFaults faults;
    std::unique_ptr<Connection> newConnection() override { return m_inner.newConnection(); }
    std::unique_ptr<Recordset> newRecordset() override
    {
        RecordsetFaults::raise(faults.creation);
        return std::make_unique<FaultyRecordset>(m_inner.newRecordset(), faults);
    }

private:
    Database &m_inner;
};

/// A fake world with faulty record sets. `faultyApp` sees the faults, `app` of the base does not.
struct FaultyWorld : FakeWorld {
    FaultyDatabase faulty{database};
    Platform faultyPlatform{boxes, windows, faulty, profile, files, processes, clock, locale, automation};
    App faultyApp{faultyPlatform};
};

} // namespace inin
