#pragma once

#include "support/file_bytes.h"

#include <algorithm>
#include <random>
#include <vector>

namespace inin {

/// A temporary folder for one test, deleted by the destructor.
class TempFolder {
public:
    TempFolder() = default;
    TempFolder(const TempFolder &) = delete;
    TempFolder &operator=(const TempFolder &) = delete;
    ~TempFolder()
    {
        std::error_code ignored;
        // Windows deletes no read-only file, a POSIX system no entry of a read-only folder.
        std::filesystem::permissions(m_folder, std::filesystem::perms::owner_all, ignored);
        for (const auto &entry : std::filesystem::recursive_directory_iterator(m_folder, ignored))
            if (!entry.is_symlink())
                std::filesystem::permissions(entry, std::filesystem::perms::owner_all,
                                             std::filesystem::perm_options::add, ignored);
        std::filesystem::remove_all(m_folder, ignored);
    }

    [[nodiscard]] const std::filesystem::path &folder() const { return m_folder; }
    [[nodiscard]] const std::string &path() const { return m_path; }
    [[nodiscard]] std::string operator/(const std::string &name) const { return m_path + "/" + name; }

    /// Writes a file and returns its path.
    std::string put(const std::string &name, const std::string &bytes) const
    {
        writeBytes(*this / name, bytes);
        return *this / name;
    }
    /// Writes a read-only file and returns its path.
    std::string putReadOnly(const std::string &name, const std::string &bytes) const
    {
        using std::filesystem::perms;
        std::string path = put(name, bytes);
        std::filesystem::permissions(pathOf(path), perms::owner_read | perms::group_read | perms::others_read);
        return path;
    }
    /// Empty when the file is missing or not readable yet, so that a test can wait for it.
    [[nodiscard]] std::string bytes(const std::string &name) const
    {
        std::ifstream file(pathOf(*this / name), std::ios::binary);
        return restOf(file);
    }
    [[nodiscard]] bool has(const std::string &name) const { return std::filesystem::exists(pathOf(*this / name)); }
    /// The names of the entries, sorted.
    [[nodiscard]] std::vector<std::string> names() const
    {
        std::vector<std::string> names;
        for (const auto &entry : std::filesystem::directory_iterator(m_folder))
            names.push_back(textOf(entry.path().filename()));
        std::ranges::sort(names);
        return names;
    }
    [[nodiscard]] std::size_t entries() const { return names().size(); }

private:
    /// A name in 8.3 format is its own short name. Wine generates the short names of longer ones by a hash that two
    /// folders can share, and then confuses the two.
    static std::filesystem::path made()
    {
        constexpr int kAttempts = 100;
        std::random_device random;
        for (int attempt = 0; attempt < kAttempts; ++attempt) {
            std::string name = "in";
            while (name.size() < 8) name += static_cast<char>('a' + random() % 26);
            std::filesystem::path folder = std::filesystem::temp_directory_path() / name;
            if (std::filesystem::create_directory(folder)) return std::filesystem::canonical(folder);
        }
        throw std::runtime_error("no temporary folder");
    }

    std::filesystem::path m_folder = made();
    std::string m_path = textOf(m_folder);
};

/// Restores the current folder.
class CurrentFolder {
public:
    CurrentFolder() = default;
    /// Changes the current folder for one test.
    explicit CurrentFolder(const std::filesystem::path &folder) { std::filesystem::current_path(folder); }
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
