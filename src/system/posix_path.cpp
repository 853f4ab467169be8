#include "system/file_path.h"
#include "system/posix_io.h"

#include <sys/stat.h>

namespace inin {

namespace {

bool exists(const std::string &systemPath)
{
    struct stat status {};
    return lstat(systemPath.c_str(), &status) == 0;
}

/// The folder's entry with this name in any case, the first in byte order if there are several; empty if there is none.
std::string entryOf(const std::string &folder, const std::string &name)
{
    const FolderHandle open(opendir(folder.empty() ? "." : folder.c_str()));
    if (!open) return {};
    const std::string folded = foldedName(name);
    std::string found;
    while (const dirent *entry = readdir(open.get()))
        if (foldedName(entry->d_name) == folded && (found.empty() || entry->d_name < found)) found = entry->d_name;
    return found;
}

/// Removes trailing blanks and dots, which are not part of a name, except in "." and "..".
std::string withoutTail(const std::string &name)
{
    const auto last = name.find_last_not_of(" .");
    return last == std::string::npos ? name : name.substr(0, last + 1);
}

std::string foundName(const std::string &folder, const std::string &name)
{
    if (exists(folder + name)) return name;
    const std::string found = entryOf(folder, name);
    const std::string cut = withoutTail(name);
    return found.empty() && cut != name ? entryOf(folder, cut) : found;
}

} // namespace

bool isAbsolutePath(const std::string &path)
{
    return path.starts_with('\\') || path.starts_with('/');
}

std::string fullPath(const std::string &path)
{
    std::error_code error;
    const std::filesystem::path found = std::filesystem::canonical(pathOf(path), error);
    return textOf(error ? std::filesystem::absolute(pathOf(path)).lexically_normal() : found);
}

std::string absoluteSystemPath(const std::string &path)
{
    std::error_code error;
    const std::string found = systemPath(path);
    const std::filesystem::path absolute = std::filesystem::absolute(found, error);
    return error ? found : absolute.lexically_normal().string();
}

std::string pathWithoutLinks(const std::string &systemPath)
{
    std::error_code error;
    const std::filesystem::path found = std::filesystem::canonical(pathOf(systemPath), error);
    return error ? std::string() : textOf(found);
}

std::filesystem::path longPathOf(const std::string &systemPath)
{
    return systemPath;
}

std::string systemPath(const std::string &path)
{
    std::string asGiven = withSlashes(path);
    if (asGiven.empty() || exists(asGiven)) return asGiven;
    std::string found;
    for (std::size_t at = 0; at < asGiven.size();) {
        if (asGiven[at] == '/') {
            found += asGiven[at++];
            continue;
        }
        const std::string part = asGiven.substr(at, asGiven.find('/', at) - at);
        const std::string name = foundName(found, part);
        if (name.empty()) return found + asGiven.substr(at);
        found += name;
        at += part.size();
    }
    return found;
}

} // namespace inin
