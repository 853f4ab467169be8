#include "system/file_path.h"

#include <fstream>

namespace inin {

std::string startOfFile(const std::filesystem::path &path, std::size_t size)
{
    std::string bytes(size, '\0');
    std::ifstream file(path, std::ios::binary);
    file.read(bytes.data(), static_cast<std::streamsize>(size));
    bytes.resize(static_cast<std::size_t>(file.gcount()));
    return bytes;
}

} // namespace inin
