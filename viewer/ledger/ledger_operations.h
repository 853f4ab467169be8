#pragma once

#include "viewer/ledger/ledger.h"
#include "viewer/ledger/ledger_database.h"

namespace inin::viewer {

template <class Result, class Body> Result Ledger::query(Result fallback, const Body &body)
try {
    if (!isReady()) return fallback;
    LedgerTransaction reading(*m_database, LedgerTransaction::Kind::reading);
    return body(*m_database);
} catch (const std::exception &error) {
    failWith(error);
    return fallback;
}

template <class Result, class Body> Result Ledger::change(Result fallback, const Body &body)
try {
    if (!isReady()) return fallback;
    if (m_database->isReadOnly()) {
        fail(LedgerFault::readOnly);
        return fallback;
    }
    LedgerTransaction writing(*m_database, LedgerTransaction::Kind::writing);
    Result result = body(*m_database);
    writing.commit();
    recover();
    return result;
} catch (const std::exception &error) {
    failWith(error);
    return fallback;
}

} // namespace inin::viewer
