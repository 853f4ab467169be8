#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace inin::viewer {

class UnfinishedFile;

/// The bytes of a file whose path is as the suite writes it: either slash, any ASCII case. A RuntimeError with a
/// sentence that names the path when it is missing, a folder, unreadable or larger than `limit` bytes.
[[nodiscard]] std::string readWholeFile(const std::string &path, std::size_t limit = std::size_t{1} << 30);
/// The path of the system, absolute, for a path as the suite writes it.
[[nodiscard]] std::string systemPathOf(const std::string &path);
/// Makes a folder of the system with all above it. A RuntimeError with a sentence when it cannot be made.
void makeFolder(const std::string &systemPath);

/// A file that takes its name only when it is complete and stored on the disk. One that is not finished leaves nothing
/// behind, and an older file of that name stays as it was. A new file is readable by its owner only (on Windows as its
/// folder says), one that replaces an older file has its rights. Failures are RuntimeErrors with a sentence that names
/// the path.
class FinishedFile {
public:
    /// The path is the system's and is used as it is, without the search for another case: a person may have typed it.
    explicit FinishedFile(const std::string &path);
    FinishedFile(const FinishedFile &) = delete;
    FinishedFile &operator=(const FinishedFile &) = delete;
    ~FinishedFile();

    void write(std::string_view bytes);
    /// Puts the file under its name; nothing may be written after that.
    void finish();

private:
    void flush();
    [[noreturn]] void fail() const;

    std::string m_path;
    std::unique_ptr<UnfinishedFile> m_file;
    std::string m_buffer;
};

} // namespace inin::viewer
