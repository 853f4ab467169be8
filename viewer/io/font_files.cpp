#include "viewer/io/font_files.h"

#include "runtime/text.h"
#include "viewer/io/system_file.h"

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
    for (const std::string &name : namesIn(systemFolder))
        if (isFontName(name)) files.push_back({fmt::format("{}/{}", systemFolder, name), {}});
    std::ranges::sort(files, {}, &FontFile::path);
    return files;
}

} // namespace inin::viewer
