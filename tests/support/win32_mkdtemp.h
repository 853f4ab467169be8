#pragma once

// Included ahead of every test source on Windows, which has no mkdtemp.

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>

/// Makes a folder under the pattern's name, whose last six letters, "XXXXXX", become others.
inline char *mkdtemp(char *pattern)
{
    const std::string text = pattern;
    static std::mt19937 random{std::random_device{}()};
    for (int attempt = 0; attempt < 100; ++attempt) {
        for (std::size_t at = text.size() - 6; at < text.size(); ++at)
            pattern[at] = static_cast<char>('a' + random() % 26);
        std::error_code error;
        if (std::filesystem::create_directory(pattern, error)) return pattern;
    }
    errno = EEXIST;
    return nullptr;
}
