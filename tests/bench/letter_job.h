#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

namespace inin::bench {

/// A folder with a script, a letter file of so many letters and what a bench puts beside them; it goes away with this.
class LetterJob {
public:
    explicit LetterJob(std::size_t letters);
    ~LetterJob();
    LetterJob(const LetterJob &) = delete;
    LetterJob &operator=(const LetterJob &) = delete;
    [[nodiscard]] std::string file(const char *name) const { return (m_path / name).string(); }
    [[nodiscard]] std::string script() const { return file("script.dat"); }

private:
    std::filesystem::path m_path;
};

} // namespace inin::bench
