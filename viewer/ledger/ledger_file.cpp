#include "viewer/ledger/ledger_file.h"

#include "runtime/date_text.h"
#include "runtime/regional.h"
#include "system/file_path.h"
#include "viewer/ledger/ledger_database.h"

#include <fmt/format.h>
#include <sqlite3.h>

#include <filesystem>
#include <system_error>

namespace inin::viewer {

namespace {

bool isDamaged(const std::string &path)
try {
    LedgerDatabase database(path);
    return !database.isSound();
} catch (const LedgerError &error) {
    return faultOf(error.code()) == LedgerFault::damaged;
}

bool moveFile(const std::string &from, const std::string &to)
{
    std::error_code fault;
    std::filesystem::rename(longPathOf(from), longPathOf(to), fault);
    return !fault;
}

} // namespace

std::string timeText(Date time)
{
    const DateParts parts = partsOf(time);
    return fmt::format("{:04}-{:02}-{:02} {:02}:{:02}:{:02}", parts.year, parts.month, parts.day, parts.hour,
                       parts.minute, parts.second);
}

Date timeOf(std::string_view text)
{
    return readDate(text, Regional{}).value_or(Date());
}

LedgerFault faultOf(int code)
{
    switch (code) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return LedgerFault::locked;
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_AUTH:
        return LedgerFault::readOnly;
    case SQLITE_FULL:
        return LedgerFault::diskFull;
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        return LedgerFault::damaged;
    default:
        return LedgerFault::unavailable;
    }
}

std::chrono::milliseconds patienceAfter(LedgerFault fault)
{
    return fault == LedgerFault::locked ? kShortPatience : kPatience;
}

std::string faultSentence(LedgerFault fault, const std::string &path)
{
    switch (fault) {
    case LedgerFault::none:
    case LedgerFault::off:
        return {};
    case LedgerFault::locked:
        return "台帳をほかのプログラムが使っているため、印刷や返送は台帳に記録されません。";
    case LedgerFault::readOnly:
        return "台帳に書き込む権限がないため、印刷や返送は台帳に記録されません。";
    case LedgerFault::diskFull:
        return "台帳のあるディスクに空きがないため、印刷や返送は台帳に記録されません。";
    case LedgerFault::damaged:
        return "台帳のファイルが壊れているため、印刷や返送は台帳に記録されません。";
    case LedgerFault::newer:
        return "台帳がこのプログラムより新しい版のものなので、印刷や返送は台帳に記録されません。";
    case LedgerFault::unavailable:
        return fmt::format("台帳のファイル「{}」を読み書きできないため、印刷や返送は台帳に記録されません。", path);
    }
    return {};
}

std::string putAsideDamaged(const std::string &path, Date now)
{
    if (!isDamaged(path)) return {};
    const std::filesystem::path file = pathOf(path);
    std::string time = timeText(now);
    std::erase(time, ':');
    const std::string name = fmt::format("{}（壊れたファイル {}）", textOf(file.stem()), time);
    std::error_code ignored;
    for (int attempt = 1; attempt < 100; ++attempt) {
        const std::string number = attempt == 1 ? std::string() : fmt::format(" {}", attempt);
        std::string newName = name + number + textOf(file.extension());
        const std::string aside = textOf(file.parent_path() / pathOf(newName));
        if (std::filesystem::exists(longPathOf(aside), ignored)) continue;
        if (!moveFile(path, aside)) return {};
        (void)moveFile(path + "-journal", aside + "-journal"); // usually there is none
        return newName;
    }
    return {};
}

} // namespace inin::viewer
