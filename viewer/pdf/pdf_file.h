#pragma once

#include "system/whole_file.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

/// Fast for the page streams of a file for printing, small for those of a file to be kept; best for streams that occur once
/// in a file.
enum class Compression { fast, small, best };

/// The content of a stream of objects, as text.
struct ObjectStream {
    static constexpr std::size_t kNumberDigits = 7, kOffsetDigits = 6;
    static constexpr std::size_t kPlaceWidth = kNumberDigits + 1 + kOffsetDigits + 1;

    std::size_t rowWidth = 0; ///< rows are written as their differences from the previous ones; 0 for no rows
    std::size_t count = 0;    ///< of the objects
    std::string places = {}, bodies = {};

    /// Adds the number of an object and its offset in the bodies, kPlaceWidth characters.
    void addPlace(std::size_t number, std::size_t offset);
    /// Removes the objects.
    void clear();
};

class PdfFile;

/// Objects that are compressed together, in streams of objects. Objects that differ only in a few digits take few bytes as
/// rows of a fixed width.
class PackedObjects {
public:
    /// Longer objects than the width of a row take several rows. `file` must outlive this.
    explicit PackedObjects(PdfFile &file, std::size_t rowWidth = 0) : m_file(file), m_objects{.rowWidth = rowWidth} {}

    void add(int number, std::string_view body);
    /// Writes the objects that are not yet in the file.
    void flush();

private:
    void fillRow(std::string &text) const;

    PdfFile &m_file;
    ObjectStream m_objects;
    int m_stream = 0;
};

/// Writes the objects of a PDF file immediately and keeps only their places.
class PdfFile {
public:
    explicit PdfFile(AtomicFile &out);
    PdfFile(const PdfFile &) = delete;
    PdfFile &operator=(const PdfFile &) = delete;
    ~PdfFile();

    /// Returns the number of an object that will be written later. Throws a RuntimeError beyond the numbers that readers
    /// accept.
    [[nodiscard]] int reserve();
    /// Skips to the next number that is a multiple of `unit`.
    void skipToMultipleOf(std::size_t unit);
    void writeObject(int number, std::string_view body);
    /// Adds an object to the file's own packed objects.
    void packObject(int number, std::string_view body) { m_packed.add(number, body); }
    /// Notes that an object is in a stream of objects. Throws a RuntimeError for an index above 65,535.
    void placeInStream(int number, int stream, std::size_t index);
    void writeObjectStream(int number, const ObjectStream &objects);
    /// `entries` are added to the stream's dictionary, which has its length and filter.
    void writeStream(int number, std::string_view entries, std::string_view content, Compression compression);
    /// The same for data that is already encoded; `entries` name its filter. Without a filter, readers without a
    /// decompressor can find the data.
    void writeEncodedStream(int number, std::string_view entries, std::string_view data);
    /// Writes the cross-reference stream. The owner of `out` commits it.
    void close(int catalog, int info);

private:
    class Deflater;
    void begin(int number);
    void write(std::string_view bytes);
    [[nodiscard]] std::string placesTable() const;
    [[nodiscard]] std::string fileId() const;

    AtomicFile &m_out;
    std::vector<std::uint64_t> m_places; ///< rows of the cross-reference stream
    std::uint64_t m_written = 0;
    std::uint32_t m_checksum = 0, m_otherChecksum = 1; ///< of the bytes written
    std::unique_ptr<Deflater> m_fast, m_small, m_best;
    std::string m_head;
    PackedObjects m_packed{*this};
};

} // namespace inin::viewer
