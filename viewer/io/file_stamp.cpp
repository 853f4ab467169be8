#include "viewer/io/file_stamp.h"

#include "system/file_path.h"
#include "system/whole_file.h"

namespace inin::viewer {

FileStamp stampOf(const std::string &path)
{
    const FileInfo info = fileInfo(systemPath(path));
    if (info.kind == FileInfo::Kind::missing) return {};
    return {true, info.changed, static_cast<std::int64_t>(info.size)};
}

} // namespace inin::viewer
