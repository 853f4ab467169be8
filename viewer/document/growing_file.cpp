#include "viewer/document/growing_file.h"

#include "system/whole_file.h"

#include <chrono>
#include <thread>

namespace inin::viewer {

namespace {

constexpr std::chrono::milliseconds kPause{100};
constexpr int kSettledChecks = 10; ///< a file that is unchanged at this many checks counts as complete
constexpr int kMaxChecks = 50;
constexpr int kChecksForFile = 30;

} // namespace

void sleepBriefly()
{
    std::this_thread::sleep_for(kPause);
}

ReadFile readStampedFile(const std::string &path, std::size_t limit)
{
    // Take the stamp first, so that a change during the read is detected.
    const FileStamp stamp = stampOf(path);
    return {readWholeFile(path, limit), stamp};
}

bool isUnfinished(const std::string &bytes)
{
    return !bytes.ends_with('\n');
}

ReadFile readGrowingFile(const std::string &path, std::size_t limit, const Pause &pause)
{
    ReadFile file = readStampedFile(path, limit);
    for (int checks = 0, settled = 0; isUnfinished(file.bytes) && checks < kMaxChecks && settled < kSettledChecks;
         ++checks) {
        pause();
        const FileStamp now = stampOf(path);
        // A deleted file is about to be created again.
        const bool isChanged = now.exists && now != file.stamp;
        settled = isChanged ? 0 : settled + 1;
        if (isChanged) file = readStampedFile(path, limit);
    }
    return file;
}

ReadFile waitForFile(const std::string &path, std::size_t limit, const Pause &pause)
{
    for (int checks = 0; checks < kChecksForFile && !stampOf(path).exists; ++checks) pause();
    return readStampedFile(path, limit);
}

} // namespace inin::viewer
