#include "adapters/database/dao_error.h"

#include "adapters/database/ado_error.h"
#include "platform/dao.h"

#include <algorithm>
#include <string>

namespace inin {

namespace {

struct Words {
    std::int32_t number;
    const char *text;
};
constexpr Words kWords[] = {
    {dao_error::tooManyTransactions, "トランザクションは既に開始されています。"},
    {dao_error::fileNotFound, "データベースファイルが見つかりません。"},
    {dao_error::readOnly, "更新できません。データベースは読み取り専用です。"},
    {dao_error::noTransaction, "トランザクションが開始されていません。"},
    {dao_error::selectNotExecuted, "SELECT は Execute で実行できません。"},
    {dao_error::noSuchTable, "テーブルが見つかりません。"},
    {dao_error::unknownFormat, "データベースの形式を認識できません。"},
    {dao_error::objectInvalid, "オブジェクトが無効であるか、閉じられています。"},
};

struct Renumbered {
    std::int32_t ado;
    std::int32_t dao;
};
constexpr Renumbered kRenumbered[] = {
    {ado_error::faultyStatement, dao_error::syntax},
    {ado_error::noSuchTable, dao_error::noSuchTable},
    {ado_error::logInRefused, dao_error::connectFailed},
    {ado_error::timedOut, dao_error::locked},
    {ado_error::constraint, dao_error::duplicateValue},
    {ado_error::unspecified, dao_error::callFailed},
    {ado_error::transactionRunning, dao_error::tooManyTransactions},
    {ado_error::noTransaction, dao_error::noTransaction},
    {error_number::closedObject, dao_error::objectInvalid},
};

} // namespace

RuntimeError daoError(std::int32_t number)
{
    const auto *const found = std::ranges::find(kWords, number, &Words::number);
    return found != std::end(kWords) ? RuntimeError(number, found->text) : RuntimeError(number);
}

RuntimeError asDaoError(const RuntimeError &error)
{
    const auto *const found = std::ranges::find(kRenumbered, error.number(), &Renumbered::ado);
    return found != std::end(kRenumbered) ? RuntimeError(found->dao, error.description()) : error;
}

} // namespace inin
