#pragma once

#include "support/temp_folder.h"
#include "system/win32_path.h"
#include "system/windows_names.h"

#include <string>
#include <vector>

#include <doctest/doctest.h>

namespace inin {

/// A folder with a path far longer than 300 characters, half of them Japanese, with blanks.
class DeepFolder {
public:
    DeepFolder()
    {
        constexpr int kLevels = 10;
        std::string path = m_folder.path();
        for (int level = 0; level < kLevels; ++level) {
            path += "\\委任 状の とても長い名前 of a folder の";
            REQUIRE(CreateDirectoryW(widePath(path).c_str(), nullptr) != 0);
            m_levels.push_back(path);
        }
    }
    DeepFolder(const DeepFolder &) = delete;
    DeepFolder &operator=(const DeepFolder &) = delete;
    ~DeepFolder()
    {
        for (; !m_levels.empty(); m_levels.pop_back()) RemoveDirectoryW(widePath(m_levels.back()).c_str());
    }
    [[nodiscard]] const std::string &path() const { return m_levels.back(); }
    [[nodiscard]] std::string operator/(const std::string &name) const { return path() + "\\" + name; }
    /// The outermost folder, which has a short path.
    [[nodiscard]] const TempFolder &top() const { return m_folder; }

private:
    TempFolder m_folder;
    std::vector<std::string> m_levels;
};

} // namespace inin
