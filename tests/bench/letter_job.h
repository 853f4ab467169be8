#pragma once

#include "support/temp_folder.h"

#include <cstddef>
#include <string>

namespace inin::bench {

/// A folder with a script, a letter file of so many letters and what a bench puts beside them; it goes away with this.
class LetterJob {
public:
    explicit LetterJob(std::size_t letters);
    [[nodiscard]] std::string file(const char *name) const { return m_folder / name; }
    [[nodiscard]] std::string script() const { return file("script.dat"); }

private:
    TempFolder m_folder;
};

} // namespace inin::bench
