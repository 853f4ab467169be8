#include "printing/run_file.h"

#include "printing/csv_output.h"
#include "runtime/runtime_error.h"
#include "runtime/text.h"
#include "transfer/run_record.h"

#include <chrono>

namespace inin {

namespace {

constexpr const char *kUnknownHolder = "ほかのプログラム";
constexpr std::size_t kComputerNameCapacity = 256;

// Three seconds: most runs are over by then. Attempts are counted because a clock can stop or be set back.
constexpr int kAttempts = 30;
constexpr std::chrono::milliseconds kPause{100};

} // namespace

bool RunFile::lock()
try {
    m_path = runRecordPath(transferPath(m_app, kCsvFile, WarnIfMissing::no));
    while (isBusyForSeconds()) {
        const std::string text =
            (holder() + "が委任状を出力しています。")
                .append(kCr)
                .append("終わるのを待って「再試行」を押してください。「キャンセル」を押すと出力しません。");
        if (!m_app.platform.boxes.askRetry(text, Icon::exclamation)) return false;
    }
    if (!m_file) return true;
    Processes &processes = m_app.platform.processes;
    write(runStartLines(
        {processes.computerName(kComputerNameCapacity).value_or("?"), std::to_string(processes.processId())}));
    return true;
} catch (const RuntimeError &) {
    return true; // the CSV reports an unusable path
}

bool RunFile::isBusy()
{
    LockedFile locked = m_app.platform.files.openLocked(m_path);
    m_file = std::move(locked.output);
    return locked.state == LockedFile::State::busy;
}

bool RunFile::isBusyForSeconds()
{
    for (int attempt = 1; isBusy(); ++attempt) {
        if (attempt == kAttempts) return true;
        m_app.platform.clock.pause(kPause);
    }
    return false;
}

/// The holder for the operator: "RECEPTION1（プロセス 1234）".
std::string RunFile::holder()
try {
    const auto found = readRunHolder(m_app.platform.files.openForInput(m_path)->read(kLargestRunRecord));
    return found ? found->computer + "（プロセス " + found->process + "）" : kUnknownHolder;
} catch (const RuntimeError &) {
    return kUnknownHolder;
}

void RunFile::setLetters(std::uint64_t csvSize, std::int16_t letters)
{
    write(runEndLines({csvSize, static_cast<std::uint64_t>(letters)}));
}

void RunFile::write(const std::string &lines)
try {
    if (m_file) m_file->write(lines);
} catch (const RuntimeError &) {
    // On a full disk the CSV fails as well and reports it. The lock remains.
}

} // namespace inin
