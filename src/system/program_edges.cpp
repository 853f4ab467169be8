#include "system/program_edges.h"

#include "runtime/runtime_error.h"

#include <iostream>
#include <new>

namespace inin {

namespace {

constexpr int kSuccess = 0;

} // namespace

std::vector<std::string> programArguments(int argc, char **argv)
{
    std::vector<std::string> words = commandWords(argc, argv);
    if (!words.empty()) words.erase(words.begin());
    return words;
}

void printLine(std::FILE *stream, std::string_view line) noexcept
{
    printText(stream, line);
    printText(stream, "\n");
}

bool flushOutput() noexcept
{
    // A failure of std::cout before it passes its bytes on does not set the error flag of stdout.
    return std::cout.flush().good() && std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
}

int runProgram(int failureCode, const std::function<int()> &body,
               const std::function<void(const std::string &message)> &report)
try {
    const int code = body();
    if (flushOutput()) return code;
    report("標準出力に書き込めません。");
    return code == kSuccess ? failureCode : code;
} catch (const std::bad_alloc &) {
    report(runtimeDescription(error_number::outOfMemory));
    return failureCode;
} catch (const std::exception &error) {
    report(error.what());
    return failureCode;
}

} // namespace inin
