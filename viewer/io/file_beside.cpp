#include "viewer/io/file_beside.h"

#include "runtime/runtime_error.h"
#include "system/file_path.h"
#include "system/whole_file.h"

#include <fmt/format.h>

#include <optional>
#include <string_view>

namespace inin::viewer {

namespace {

constexpr std::string_view kSlashes = "/\\";

bool isSlash(char c)
{
    return kSlashes.find(c) != std::string_view::npos;
}

/// True for a name that is relative and has no part that leads upwards.
bool staysInside(std::string_view name)
{
    // A colon names a drive or a stream of a file.
    if (name.empty() || name.find_first_of(std::string_view(":\0", 2)) != std::string_view::npos) return false;
    while (true) {
        const std::size_t end = name.find_first_of(kSlashes);
        const std::string_view part = name.substr(0, end);
        if (part.empty() || part == "." || part == "..") return false;
        if (end == std::string_view::npos) return true;
        name.remove_prefix(end + 1);
    }
}

[[noreturn]] void refuseOutside()
{
    throw RuntimeError(error_number::pathAccess, "帳票のフォルダーの外にあるファイルは読み込みません。");
}

/// The folder of a file, with a slash at its end.
std::string folderOf(const std::string &path)
{
    const std::size_t slash = path.find_last_of(kSlashes);
    return slash == std::string::npos ? "./" : path.substr(0, slash + 1);
}

/// The system path of an existing file after all links are followed.
std::string linkedFileBeside(const std::string &path, const std::string &name)
{
    std::string whole = pathWithoutLinks(systemPath(pathBeside(path, name)));
    if (whole.empty() || fileInfo(whole).kind != FileInfo::Kind::file)
        throw RuntimeError(error_number::fileNotFound, "ファイルがありません。");
    const std::string root = pathWithoutLinks(systemPath(folderOf(path)));
    const bool isInside = !root.empty() && whole.starts_with(root) &&
                          (isSlash(root.back()) || (whole.size() > root.size() && isSlash(whole[root.size()])));
    if (!isInside) refuseOutside();
    return whole;
}

} // namespace

std::string pathBeside(const std::string &path, const std::string &name)
{
    if (!staysInside(name)) refuseOutside();
    return folderOf(path) + name;
}

std::string readFileBeside(const std::string &path, const std::string &name, std::size_t limit)
{
    const std::string file = linkedFileBeside(path, name);
    if (fileInfo(file).size > limit)
        throw RuntimeError(error_number::outOfMemory,
                           fmt::format("ファイルが大きすぎます（{} MB まで）。", limit >> 20U));
    const std::optional<std::string> bytes = tryReadWholeFile(longPathOf(file));
    if (!bytes) throw RuntimeError(error_number::pathAccess, "ファイルを読み取れません。");
    return *bytes;
}

} // namespace inin::viewer
