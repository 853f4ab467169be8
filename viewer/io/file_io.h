#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace inin::viewer {

class TemporaryFile;

/// The bytes of a file. The path is in the suite's form: either slash, any ASCII case. Throws a RuntimeError with a
/// sentence that names the path if it is missing, a folder, unreadable or larger than `limit` bytes.
[[nodiscard]] std::string readWholeFile(const std::string &path, std::size_t limit = std::size_t{1} << 30);
/// The absolute system path for a path in the suite's form.
[[nodiscard]] std::string systemPathOf(const std::string &path);
/// Creates a folder and its missing parents. Throws a RuntimeError with a sentence on failure.
void makeFolder(const std::string &systemPath);

/// An output file that gets its name on commit(), when it is complete and stored on the disk. Without a commit it is
/// removed, and an older file of that name stays unchanged. A new file is readable by its owner only (on Windows by the
/// folder's rules); a replacement keeps the rights of the older file. Throws RuntimeErrors with a sentence that names the
/// path.
class AtomicFile {
public:
    /// A system path, used exactly as given, because the user may have typed it.
    explicit AtomicFile(const std::string &path);
    AtomicFile(const AtomicFile &) = delete;
    AtomicFile &operator=(const AtomicFile &) = delete;
    ~AtomicFile();

    void write(std::string_view bytes);
    /// Gives the file its name. Nothing may be written afterwards.
    void commit();

private:
    void flush();
    [[noreturn]] void fail() const;

    std::string m_path;
    std::unique_ptr<TemporaryFile> m_file;
    std::string m_buffer;
};

} // namespace inin::viewer
