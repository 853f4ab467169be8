#pragma once

#include "runtime/file_path.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace inin {

/// A folder of its own for one test, gone with it.
class TempFolder {
public:
    TempFolder()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "inin-XXXXXX").string();
        if (!mkdtemp(pattern.data())) throw std::runtime_error("no temporary folder");
        m_path = pattern;
    }
    TempFolder(const TempFolder &) = delete;
    TempFolder &operator=(const TempFolder &) = delete;
    ~TempFolder()
    {
        std::error_code ignored;
        std::filesystem::permissions(m_path, std::filesystem::perms::owner_all, ignored);
        std::filesystem::remove_all(m_path, ignored);
    }

    [[nodiscard]] const std::string &path() const { return m_path; }
    [[nodiscard]] std::string operator/(const std::string &name) const { return m_path + "/" + name; }

    /// Writes a file and gives its path.
    std::string put(const std::string &name, const std::string &bytes) const
    {
        std::ofstream(pathOf(*this / name), std::ios::binary) << bytes;
        return *this / name;
    }
    [[nodiscard]] std::string bytes(const std::string &name) const
    {
        std::ifstream file(pathOf(*this / name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    [[nodiscard]] bool has(const std::string &name) const { return std::filesystem::exists(pathOf(*this / name)); }
    [[nodiscard]] std::size_t entries() const
    {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(m_path), {}));
    }

private:
    std::string m_path;
};

/// Makes a folder current for one test.
class CurrentFolder {
public:
    explicit CurrentFolder(const std::string &path) { std::filesystem::current_path(path); }
    CurrentFolder(const CurrentFolder &) = delete;
    CurrentFolder &operator=(const CurrentFolder &) = delete;
    ~CurrentFolder()
    {
        std::error_code ignored;
        std::filesystem::current_path(m_before, ignored);
    }

private:
    std::filesystem::path m_before = std::filesystem::current_path();
};

} // namespace inin
