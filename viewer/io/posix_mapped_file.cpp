#include "viewer/io/mapped_file.h"

#include "system/posix_io.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>

namespace inin::viewer {

MappedFile::MappedFile(const std::string &systemPath)
{
    const FileDescriptor file(open(systemPath.c_str(), O_RDONLY | O_CLOEXEC));
    struct stat status {};
    if (!file.isOpen() || fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) return;
    const auto size = static_cast<std::size_t>(status.st_size);
    void *const memory = size == 0 ? nullptr : mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file.get(), 0);
    if (memory == nullptr || memory == MAP_FAILED) return;
    m_bytes = {static_cast<const char *>(memory), size};
}

MappedFile::~MappedFile()
{
    if (!m_bytes.empty()) munmap(const_cast<char *>(m_bytes.data()), m_bytes.size());
}

} // namespace inin::viewer
