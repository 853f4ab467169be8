#include "demo_site/demo_data.h"

#include "demo_site/embedded.h"

#include <map>
#include <stdexcept>
#include <string>

namespace inin::site {

namespace {

using Sections = std::map<std::string_view, DataSection>;

Sections readSections()
{
    Sections sections;
    DataSection *section = nullptr;
    for (const std::string_view line : split(demoDataText(), '\n')) {
        if (line.empty() || line.starts_with('#')) continue;
        if (line.starts_with('[')) {
            const std::size_t end = line.find(']');
            section = &sections[line.substr(1, end - 1)];
            section->columns = split(line.substr(end + 2), ',');
        } else {
            section->rows.push_back(split(line, ','));
            if (section->rows.back().size() != section->columns.size()) throw std::logic_error(std::string(line));
        }
    }
    return sections;
}

} // namespace

DataRow split(std::string_view text, char separator)
{
    DataRow parts;
    while (true) {
        const std::size_t end = text.find(separator);
        parts.push_back(text.substr(0, end));
        if (end == text.npos) return parts;
        text.remove_prefix(end + 1);
    }
}

const DataSection &dataSection(std::string_view name)
{
    static const Sections sections = readSections();
    return sections.at(name);
}

} // namespace inin::site
