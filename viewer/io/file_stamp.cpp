#include "viewer/io/file_stamp.h"

#include "viewer/io/system_file.h"

namespace inin::viewer {

FileStamp stampOf(const std::string &path)
{
    const EntryFacts facts = entryFacts(foundPath(path));
    if (facts.kind == EntryFacts::Kind::missing) return {};
    return {true, facts.changed, static_cast<std::int64_t>(facts.size)};
}

} // namespace inin::viewer
