#pragma once

#include "platform/dao.h"
#include "runtime/runtime_error.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace inin {

/// A recording fake of the older database library. Each call is a line of the log; the call named by `failing` fails
/// with error 3420.
class FakeDao : public DaoEngine {
public:
    std::vector<std::string> log;
    std::string failing;

    std::unique_ptr<DaoWorkspace> CreateWorkspace(const std::string &name, const std::string &user,
                                                  const std::string &password, std::int32_t type) override
    {
        note("CreateWorkspace", name + "|" + user + "|" + password + "|" + std::to_string(type));
        return std::make_unique<Workspace>(*this);
    }

private:
    void note(const std::string &call, const std::string &arguments = {})
    {
        log.push_back(arguments.empty() ? call : call + " " + arguments);
        if (call == failing) throw RuntimeError(dao_error::objectInvalid, "閉じられています。");
    }

    class Rows : public DaoRecordset {
    public:
        explicit Rows(FakeDao &dao) : m_dao(dao) {}
        bool isEndOfFile() const override { return true; }
        void MoveNext() override {}
        std::size_t fieldCount() const override { return 0; }
        std::string fieldName(std::size_t) const override { return {}; }
        Variant Field(std::string_view) const override { return {}; }
        void Close() override { m_dao.note("Recordset.Close"); }

    private:
        FakeDao &m_dao;
    };

    class File : public DaoDatabase {
    public:
        explicit File(FakeDao &dao) : m_dao(dao) {}
        std::unique_ptr<DaoRecordset> OpenRecordset(const std::string &source, std::int32_t type, std::int32_t options,
                                                    std::int32_t lock) override
        {
            m_dao.note("OpenRecordset", source + "|" + std::to_string(type) + "|" + std::to_string(options) + "|" +
                                            std::to_string(lock));
            return std::make_unique<Rows>(m_dao);
        }
        void Execute(const std::string &sql, std::optional<std::int32_t> options) override
        {
            m_dao.note("Execute", options ? sql + "|" + std::to_string(*options) : sql);
        }
        void Close() override { m_dao.note("Database.Close"); }

    private:
        FakeDao &m_dao;
    };

    class Workspace : public DaoWorkspace {
    public:
        explicit Workspace(FakeDao &dao) : m_dao(dao) {}
        std::unique_ptr<DaoDatabase> OpenDatabase(const std::string &name, Sharing sharing) override
        {
            m_dao.note("OpenDatabase", name + (sharing == Sharing::exclusive ? "|exclusive" : "|shared"));
            return std::make_unique<File>(m_dao);
        }
        void BeginTrans() override { m_dao.note("BeginTrans"); }
        void CommitTrans() override { m_dao.note("CommitTrans"); }
        void Rollback() override { m_dao.note("Rollback"); }
        void Close() override { m_dao.note("Workspace.Close"); }

    private:
        FakeDao &m_dao;
    };
};

} // namespace inin
