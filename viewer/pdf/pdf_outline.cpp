#include "viewer/pdf/pdf_outline.h"

#include "viewer/pdf/pdf_text.h"

#include <fmt/format.h>

#include <iterator>

namespace inin::viewer {

void PdfOutline::add(std::size_t letter, int page)
{
    const std::string_view insurer = m_names.insurer(letter), patient = m_names.patient(letter);
    Entry entry{patient.empty() ? m_names.titleOf(letter) : std::string(patient), page, {}};
    if (insurer.empty()) {
        m_entries.push_back(std::move(entry));
        return;
    }
    const auto [found, isNew] = m_insurers.emplace(insurer, m_entries.size());
    if (isNew) m_entries.push_back({std::string(insurer), page, {}});
    m_entries[found->second].entries.push_back(std::move(entry));
}

PdfOutline::Written PdfOutline::writeEntries(const std::vector<Entry> &entries, int parent, PdfFile &file)
{
    const int first = file.reserve();
    int previous = 0, number = first;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const Entry &entry = entries[i];
        const bool isLast = i + 1 == entries.size();
        std::string body = fmt::format("<</Parent {} 0 R/Dest[{} 0 R/Fit]", parent, entry.page);
        const auto out = std::back_inserter(body);
        if (!entry.entries.empty()) {
            const Written children = writeEntries(entry.entries, number, file);
            // A negative count is that of a closed entry.
            fmt::format_to(out, "/Count -{}/First {} 0 R/Last {} 0 R", entry.entries.size(), children.first,
                           children.last);
        }
        if (previous != 0) fmt::format_to(out, "/Prev {} 0 R", previous);
        const int next = isLast ? 0 : file.reserve();
        if (!isLast) fmt::format_to(out, "/Next {} 0 R", next);
        body += "/Title";
        appendTextString(body, entry.title);
        file.packObject(number, body + ">>");
        previous = number;
        if (!isLast) number = next;
    }
    return {first, number};
}

int PdfOutline::write(PdfFile &file) const
{
    const int root = file.reserve();
    const Written written = writeEntries(m_entries, root, file);
    file.packObject(root, fmt::format("<</Type/Outlines/First {} 0 R/Last {} 0 R/Count {}>>", written.first,
                                      written.last, m_entries.size()));
    return root;
}

} // namespace inin::viewer
