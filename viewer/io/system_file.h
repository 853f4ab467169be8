#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

// What reading, writing and watching ask of the system; each system has a body of its own. Paths are the system's, as
// foundPath() gives them. Failures are told by the result: the sentence is the caller's.

/// The path of the system for one as the suite writes it: either slash, any ASCII case.
[[nodiscard]] std::string foundPath(const std::string &path);
[[nodiscard]] std::string absolutePath(const std::string &systemPath);

struct EntryFacts {
    /// A folder, a device or a pipe is `other`.
    enum class Kind : std::uint8_t { missing, file, other };
    Kind kind = Kind::missing;
    std::uint64_t size = 0;
    std::int64_t changed = 0; ///< nanoseconds since the system's own beginning of time
};
[[nodiscard]] EntryFacts entryFacts(const std::string &systemPath);

/// Appends up to `size` bytes, fewer only at the end of the file. Keeps nobody else from the file.
[[nodiscard]] bool readBytes(const std::string &systemPath, std::size_t size, std::string &bytes);

/// The folder with all above it; true when it is there afterwards.
[[nodiscard]] bool makeFolders(const std::string &systemPath);
/// The names in a folder; none when it cannot be looked into.
[[nodiscard]] std::vector<std::string> namesIn(const std::string &systemFolder);

/// A file that does not have its name yet. It goes away, with a killed process too, unless it took that name.
class UnfinishedFile {
public:
    explicit UnfinishedFile(const std::string &systemPath);
    UnfinishedFile(const UnfinishedFile &) = delete;
    UnfinishedFile &operator=(const UnfinishedFile &) = delete;
    ~UnfinishedFile();

    [[nodiscard]] bool isOpen() const;
    [[nodiscard]] bool write(std::string_view bytes);
    /// Stores the file on the disk and puts it in the place of an older one at once: no reader sees a part of it. On
    /// POSIX systems it takes over the older file's rights, and a new file is readable by its owner only.
    [[nodiscard]] bool takeName();

private:
    struct State;
    std::unique_ptr<State> m_state;
};

} // namespace inin::viewer
