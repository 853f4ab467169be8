#pragma once

#include "viewer/document/letter_names.h"
#include "viewer/pdf/pdf_file.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace inin::viewer {

/// The outline of a PDF of several letters: the insurers, in the order of their first letters, and their patients.
class PdfOutline {
public:
    /// `set` must outlive this.
    explicit PdfOutline(const LetterSet &set) : m_names(set) {}

    void add(std::size_t letter, int page);
    /// Writes the outline and returns the object of its root. A letter without an insurer is an entry of its own.
    [[nodiscard]] int write(PdfFile &file) const;

private:
    struct Entry {
        std::string title;
        int page;
        std::vector<Entry> entries;
    };
    struct Written {
        int first, last;
    };
    static Written writeEntries(const std::vector<Entry> &entries, int parent, PdfFile &file);

    LetterNames m_names;
    std::vector<Entry> m_entries;
    std::unordered_map<std::string_view, std::size_t> m_insurers; ///< indices of their entries
};

} // namespace inin::viewer
