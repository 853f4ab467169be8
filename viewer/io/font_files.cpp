#include "viewer/io/font_files.h"

#include "runtime/text.h"
#include "system/file_path.h"

#include <fmt/format.h>

#include <algorithm>

namespace inin::viewer {

namespace {

constexpr std::string_view kEndings[] = {".ttf", ".ttc", ".otf", ".otc"};

bool isFontName(const std::string &name)
{
    return std::ranges::any_of(kEndings, [&](std::string_view ending) { return asciiLower(name).ends_with(ending); });
}

} // namespace

std::vector<FontFile> fontFilesIn(const std::string &systemFolder)
{
    std::vector<FontFile> files;
    std::error_code error;
    std::filesystem::directory_iterator entry(longPathOf(systemFolder), error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        const std::string name = textOf(entry->path().filename());
        if (isFontName(name)) files.push_back({fmt::format("{}/{}", systemFolder, name), {}});
    }
    std::ranges::sort(files, {}, &FontFile::path);
    return files;
}

} // namespace inin::viewer
