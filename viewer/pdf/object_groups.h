#pragma once

#include "viewer/pdf/pdf_file.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

/// The texts of a group of objects that occurs many times with other numbers. A number is identified by its index: those of
/// the group's own objects come first, in order.
class ObjectPattern {
public:
    void beginObject() { m_objects.push_back(m_text.size()); }
    void add(std::string_view text) { m_text += text; }
    /// Adds a reference to an object.
    void addReference(std::size_t index);

    struct Place {
        std::size_t at, index;
    };
    /// The text with blanks for the numbers, and the places of these blanks.
    [[nodiscard]] const std::string &text() const { return m_text; }
    [[nodiscard]] const std::vector<Place> &numbers() const { return m_numbers; }
    /// Where each object begins.
    [[nodiscard]] const std::vector<std::size_t> &objects() const { return m_objects; }

private:
    std::string m_text;
    std::vector<std::size_t> m_objects;
    std::vector<Place> m_numbers;
};

/// Groups of objects with one pattern, in streams of objects. Each group is a row, which is written as its difference from
/// the previous one. When the numbers of successive groups are a multiple of ten apart, it takes a few bytes.
class ObjectGroups {
public:
    /// `file` must outlive this.
    ObjectGroups(PdfFile &file, ObjectPattern pattern);

    /// `numbers` are those of the pattern.
    void add(std::span<const int> numbers);
    /// Writes the groups that are not yet in the file.
    void flush();

private:
    void addPlaces(std::span<const int> numbers);

    PdfFile &m_file;
    ObjectPattern m_pattern;
    ObjectStream m_objects;
    int m_stream = 0;
};

} // namespace inin::viewer
