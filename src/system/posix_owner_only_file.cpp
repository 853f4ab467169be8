#include "system/file_path.h"
#include "system/posix_io.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace inin {

void createForOwner(const std::string &path)
{
    const FileDescriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR));
}

} // namespace inin
