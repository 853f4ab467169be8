#include "system/directory_search.h"

#include "runtime/utf8.h"
#include "system/posix_io.h"

#include <string_view>
#include <utility>

namespace inin {

namespace {

/// True if the name matches a pattern of "*" and "?". On a mismatch only the last "*" is extended: no pattern is slow.
bool fits(std::string_view name, std::string_view pattern)
{
    std::string_view nameAtStar, patternAtStar;
    bool starred = false;
    while (!name.empty()) {
        if (pattern.starts_with('*')) {
            pattern.remove_prefix(1);
            patternAtStar = pattern;
            nameAtStar = name;
            starred = true;
        } else if (pattern.starts_with('?') || (!pattern.empty() && pattern.front() == name.front())) {
            name.remove_prefix(pattern.front() == '?' ? firstCharacter(name).bytes : 1);
            pattern.remove_prefix(1);
        } else if (starred) {
            nameAtStar.remove_prefix(firstCharacter(nameAtStar).bytes);
            name = nameAtStar;
            pattern = patternAtStar;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*') == std::string_view::npos;
}

} // namespace

std::string firstFile(const std::string &folder, const std::string &pattern)
{
    const FolderHandle open(opendir(folder.empty() ? "." : folder.c_str()));
    if (!open) return {};
    std::pair<std::string, std::string> first;
    while (const dirent *entry = readdir(open.get())) {
        const std::string name = entry->d_name;
        std::pair<std::string, std::string> candidate(foldedName(name), name);
        if (!fits(candidate.first, pattern) || !isFileAt(folder + name)) continue;
        if (first.second.empty() || candidate < first) first = std::move(candidate);
    }
    return first.second;
}

} // namespace inin
