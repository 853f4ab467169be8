#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace inin {

// Files that are read or written whole. The suite's own files are not: texts are printed line by line and profile files are
// changed entry by entry, each with the failures of the suite's calls (platform/files.h, platform/profile.h).
//
// Reading refuses folders, devices and pipes, which could block forever. Writing replaces the file: a reader, and a power
// failure, leave either the old bytes or the new ones. A failure changes nothing and leaves nothing. A link is replaced,
// not followed. A file that is replaced keeps its rights; see NewFile for a new one.
//
// A system path is used exactly as given; systemPath() makes one from a path of the suite. Errors are RuntimeErrors with a
// sentence that names the path.

struct FileInfo {
    /// Folders, devices and pipes are `other`.
    enum class Kind : std::uint8_t { missing, file, other };
    Kind kind = Kind::missing;
    std::uint64_t size = 0;
    std::int64_t changed = 0; ///< nanoseconds since the beginning of 1970, UTC
};
[[nodiscard]] FileInfo fileInfo(const std::string &systemPath);

inline constexpr std::size_t kLargestWholeFile = std::size_t{1} << 30;

/// The bytes of a file at a path of the suite. Throws if it is missing, not a file, unreadable or larger than `limit` bytes.
[[nodiscard]] std::string readWholeFile(const std::string &path, std::size_t limit = kLargestWholeFile);
/// The bytes of a file at a system path; nothing in the cases in which readWholeFile() throws.
[[nodiscard]] std::optional<std::string> tryReadWholeFile(const std::filesystem::path &systemPath);
/// The first bytes of a file, at most `size`; none if it cannot be read.
[[nodiscard]] std::string startOfFile(const std::filesystem::path &systemPath, std::size_t size);

/// Who may use a file that did not exist before. On Windows the folder decides in either case.
enum class NewFile : std::uint8_t {
    ownerOnly, ///< read and written by its owner: personal data and passwords
    byTheMask, ///< as any other new file of the process
};

/// Replaces a file. Throws if its folder does not permit it.
void writeWholeFile(const std::filesystem::path &systemPath, std::string_view bytes, NewFile rights);

class PendingFile;

/// A file that is written in parts and replaces the file of its name on commit(). Without a commit it is removed, also
/// when the process is killed.
class AtomicFile {
public:
    explicit AtomicFile(const std::string &systemPath, NewFile rights = NewFile::ownerOnly);
    AtomicFile(const AtomicFile &) = delete;
    AtomicFile &operator=(const AtomicFile &) = delete;
    ~AtomicFile();

    void write(std::string_view bytes);
    /// Stores the file on the disk and gives it its name. Nothing may be written afterwards.
    void commit();

private:
    void flush();
    [[noreturn]] void fail() const;

    std::string m_path;
    std::unique_ptr<PendingFile> m_file;
    std::string m_buffer;
};

/// Creates an empty file for its owner only, for a program part that opens it by name. An existing file keeps its rights
/// and content. A failure shows when the caller opens the file.
void createForOwner(const std::string &systemPath);
/// Creates a folder and its missing parents.
void makeFolder(const std::string &systemPath);

} // namespace inin
