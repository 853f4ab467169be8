#pragma once

#include "support/temp_folder.h"

#include <cstddef>
#include <string>

namespace inin::bench {

/// A temporary folder with a script, a letter file with that many letters and further files of a benchmark.
class LetterJob {
public:
    explicit LetterJob(std::size_t letters);
    [[nodiscard]] std::string file(const char *name) const { return m_folder / name; }
    [[nodiscard]] std::string script() const { return file("script.dat"); }

private:
    TempFolder m_folder;
};

} // namespace inin::bench
