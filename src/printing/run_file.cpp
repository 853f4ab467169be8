#include "printing/run_file.h"

#include "printing/csv_output.h"
#include "runtime/runtime_error.h"
#include "runtime/text.h"

#include <chrono>

namespace inin {

namespace {

constexpr const char *kRunFile = "委任状.run";
constexpr const char *kFirstLine = "PrintInin run 1\n";
constexpr std::string_view kHolder = "holder ";
constexpr std::size_t kComputerNameCapacity = 256;
constexpr std::size_t kMaxBytes = 1024; // far more than the lines of a run need

// Three seconds: most runs are over by then. Attempts are counted because a clock can stop or be set back.
constexpr int kAttempts = 30;
constexpr std::chrono::milliseconds kPause{100};

} // namespace

bool RunFile::lock()
try {
    m_path = transferPath(m_app, kRunFile, WarnIfMissing::no);
    while (isBusyForSeconds()) {
        const std::string text =
            (holder() + "が委任状を出力しています。")
                .append(kCr)
                .append("終わるのを待って「再試行」を押してください。「キャンセル」を押すと出力しません。");
        if (!m_app.platform.boxes.askRetry(text, Icon::exclamation)) return false;
    }
    if (!m_file) return true;
    const std::string computer = m_app.platform.processes.computerName(kComputerNameCapacity).value_or("?");
    write(kFirstLine + std::string(kHolder) + computer + " " + std::to_string(m_app.platform.processes.processId()) +
          "\n");
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
    const std::string text = m_app.platform.files.openForInput(m_path)->read(kMaxBytes);
    const std::size_t begin = text.find(kHolder);
    const std::size_t end = text.find('\n', begin);
    const std::size_t number = text.rfind(' ', end);
    const std::size_t name = begin + kHolder.size();
    if (begin == std::string::npos || end == std::string::npos || number < name) return "ほかのプログラム";
    return text.substr(name, number - name) + "（プロセス " + text.substr(number + 1, end - number - 1) + "）";
} catch (const RuntimeError &) {
    return "ほかのプログラム";
}

void RunFile::setLetters(std::uint64_t csvSize, std::int16_t letters)
{
    write("csv " + std::to_string(csvSize) + "\nletters " + std::to_string(letters) + "\n");
}

void RunFile::write(const std::string &lines)
try {
    if (m_file) m_file->write(lines);
} catch (const RuntimeError &) {
    // On a full disk the CSV fails as well and reports it. The lock remains.
}

} // namespace inin
