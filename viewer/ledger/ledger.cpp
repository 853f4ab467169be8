#include "viewer/ledger/ledger.h"

#include "system/file_path.h"
#include "system/whole_file.h"
#include "viewer/ledger/ledger_file.h"
#include "viewer/ledger/ledger_operations.h"
#include "viewer/ledger/ledger_place.h"
#include "viewer/ledger/ledger_schema.h"

#include <fmt/format.h>

#include <algorithm>
#include <random>

namespace inin::viewer {

namespace {

std::uint32_t randomNumber()
{
    std::random_device random;
    return std::uniform_int_distribution<std::uint32_t>(kFirstLedger, kLastLedger)(random);
}

} // namespace

Ledger::Ledger() = default;
Ledger::Ledger(Ledger &&) noexcept = default;
Ledger &Ledger::operator=(Ledger &&) noexcept = default;
Ledger::~Ledger() = default;

Ledger::Ledger(const std::string &path, int months, Date now) : m_path(path), m_opened(now)
{
    if (path.empty()) return;
    try {
        m_path = fullPath(path);
        makeFolder(textOf(pathOf(m_path).parent_path()));
        openFile();
        if (m_fault == LedgerFault::damaged) renewDamagedFile();
        if (m_database != nullptr) deleteOldRuns(months);
    } catch (const std::exception &) {
        fail(LedgerFault::unavailable);
    }
}

/// Opens the file, or sets the fault.
void Ledger::openFile()
try {
    auto database = std::make_unique<LedgerDatabase>(m_path, patienceAfter(m_fault));
    m_fault = LedgerFault::none;
    m_notice.clear();
    const SchemaResult schema = prepareSchema(*database, randomNumber());
    if (schema != SchemaResult::ready) {
        fail(schema == SchemaResult::newer ? LedgerFault::newer : LedgerFault::unavailable);
        return;
    }
    LedgerStatement number(*database, "SELECT number FROM ledger");
    m_number = number.step() ? static_cast<std::uint32_t>(number.integer(0)) : 0;
    number.reset();
    m_database = std::move(database);
    m_database->setPatience(patienceAfter(m_fault));
    if (m_database->isReadOnly()) fail(LedgerFault::readOnly);
} catch (const LedgerError &error) {
    fail(faultOf(error.code()));
}

/// Keeps a damaged file under another name and begins a new one.
void Ledger::renewDamagedFile()
{
    const std::string aside = putAsideDamaged(m_path, m_opened);
    openFile();
    if (aside.empty() || m_fault != LedgerFault::none) return;
    m_fault = LedgerFault::damaged;
    m_notice = fmt::format("台帳のファイルが壊れていたため、「{}」という名前で残し、新しい台帳を始めました。"
                           "これまでの印刷と返送の記録は表示されません。",
                           aside);
}

void Ledger::deleteOldRuns(int months)
{
    const int kept = std::clamp(months, kFewestMonths, kMostMonths);
    const std::string cutoff = timeText(DateSerial(Year(m_opened), Month(m_opened) - kept, Day(m_opened)));
    const bool isAnyOld = m_fault != LedgerFault::readOnly && query(false, [&](LedgerDatabase &database) {
                              LedgerStatement old(database, "SELECT EXISTS (SELECT 1 FROM run WHERE kept_from < ?)");
                              return old.bind(cutoff).step() && old.integer(0) != 0;
                          });
    if (!isAnyOld) return;
    change(false, [&](LedgerDatabase &database) {
        LedgerStatement(database, "DELETE FROM run WHERE kept_from < ?").bind(cutoff).run();
        return true;
    });
}

/// Opens a file again that was locked at the start, or had no room.
bool Ledger::isReady()
{
    if (m_database == nullptr && (m_fault == LedgerFault::locked || m_fault == LedgerFault::diskFull)) openFile();
    return m_database != nullptr;
}

void Ledger::fail(LedgerFault fault)
{
    m_fault = fault;
    m_notice = faultSentence(fault, m_path);
    if (m_database != nullptr) m_database->setPatience(patienceAfter(fault));
}

/// After damage the ledger is not used any more: the numbers of its runs mean nothing in a new file.
void Ledger::failWith(const std::exception &error)
{
    const auto *const known = dynamic_cast<const LedgerError *>(&error);
    fail(known == nullptr ? LedgerFault::unavailable : faultOf(known->code()));
    if (m_fault != LedgerFault::damaged) return;
    m_database.reset();
    (void)putAsideDamaged(m_path, m_opened); // if it fails, the next start tries again
}

/// A record has succeeded, so a temporary fault is over.
void Ledger::recover()
{
    if (m_fault != LedgerFault::locked && m_fault != LedgerFault::diskFull && m_fault != LedgerFault::unavailable)
        return;
    m_fault = LedgerFault::none;
    m_notice.clear();
    m_database->setPatience(patienceAfter(m_fault));
}

LedgerFault Ledger::fault() const
{
    return m_fault;
}

const std::string &Ledger::notice() const
{
    return m_notice;
}

std::chrono::milliseconds Ledger::patience() const
{
    return m_database == nullptr ? patienceAfter(m_fault) : m_database->patience();
}

bool Ledger::isReadable() const
{
    return m_database != nullptr;
}

const std::string &Ledger::path() const
{
    return m_path;
}

std::uint32_t Ledger::number() const
{
    return m_number;
}

bool Ledger::erase()
{
    const bool isErased = change(false, [](LedgerDatabase &database) {
        database.execute("DELETE FROM run");
        return true;
    });
    if (!isErased) return false;
    try {
        m_database->execute("VACUUM");
    } catch (const LedgerError &) {
        return true; // the records are overwritten; only the file keeps its size
    }
    return true;
}

} // namespace inin::viewer
