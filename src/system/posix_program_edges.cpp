#include "system/program_edges.h"

#include <cstdlib>

#include <fcntl.h>
#include <unistd.h>

namespace inin {

std::vector<std::string> commandWords(int argc, char **argv)
{
    return {argv, argv + argc};
}

std::string environmentText(const std::string &name)
{
    const char *value = std::getenv(name.c_str());
    return value == nullptr ? std::string() : value;
}

std::filesystem::path programFile()
{
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error);
}

void prepareStandardStreams()
{
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(descriptor, F_GETFD) != -1) continue;
        // open() returns this descriptor, the lowest free one. With the wrong access mode every use fails.
        const int wrongWay = descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY;
        (void)open("/dev/null", wrongWay); // without /dev/null nothing can be done
    }
}

void printText(std::FILE *stream, std::string_view text) noexcept
{
    (void)std::fwrite(text.data(), 1, text.size(), stream);
}

} // namespace inin
