#include "adapters/common/program_edges.h"

namespace inin {

std::vector<std::string> programArguments(int argc, char **argv)
{
    return {argv + (argc > 0 ? 1 : 0), argv + argc};
}

std::filesystem::path programFile()
{
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error);
}

void useUtf8Streams() {} // they are so

} // namespace inin
