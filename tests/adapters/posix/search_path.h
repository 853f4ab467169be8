#pragma once

#include <cstdlib>
#include <string>

namespace inin {

/// Puts `first` in front of the system's PATH for one test.
class SearchPath {
public:
    explicit SearchPath(const std::string &first)
    {
        if (const char *before = std::getenv("PATH")) m_before = before;
        setenv("PATH", (first + ":/usr/bin:/bin").c_str(), 1);
    }
    SearchPath(const SearchPath &) = delete;
    SearchPath &operator=(const SearchPath &) = delete;
    ~SearchPath() { setenv("PATH", m_before.c_str(), 1); }

private:
    std::string m_before;
};

} // namespace inin
