#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace inin {

// The runtime's file services on bytes. Paths are UTF-8 texts with backslashes (a slash does as well); a name is found
// whatever its ASCII case. Failures: 52, 53, 55, 57, 61, 62, 67, 70, 71, 75, 76 as the runtime numbers them.

/// A file open for output. Until close() succeeds the file does not end at a line end: line ends are held back until bytes
/// follow them, so a reader of an interrupted file can see that it was cut off. Destroying it without close() leaves
/// the file like that, as far as it was written, and drops a failure; close() reports it.
class OutputFile {
public:
    OutputFile() = default;
    OutputFile(const OutputFile &) = delete;
    OutputFile &operator=(const OutputFile &) = delete;
    virtual ~OutputFile() = default;
    virtual void write(std::string_view bytes) = 0;
    virtual void close() = 0;
};

/// A file open for input.
class InputFile {
public:
    InputFile() = default;
    InputFile(const InputFile &) = delete;
    InputFile &operator=(const InputFile &) = delete;
    virtual ~InputFile() = default;
    /// Up to `size` next bytes, empty at the end of the file.
    virtual std::string read(std::size_t size) = 0;
};

/// The result of Files::openLocked.
struct LockedFile {
    enum class State {
        locked,
        busy,       ///< another program holds the lock
        unavailable ///< the file cannot be created or locked here
    };
    State state = State::unavailable;
    std::unique_ptr<OutputFile> output; ///< null unless locked
};

class Files {
public:
    Files() = default;
    Files(const Files &) = delete;
    Files &operator=(const Files &) = delete;
    virtual ~Files() = default;

    /// Opens a new file or empties an old one. A link that bears the name is replaced, never followed. POSIX: only the
    /// owner may read a new file; a user's earlier file keeps its rights. Windows: a new file has the rights of its folder.
    [[nodiscard]] virtual std::unique_ptr<OutputFile> openForOutput(const std::string &path) = 0;
    /// Opens a file for output like openForOutput, under an advisory lock that one program holds at a time. Does not wait
    /// and does not throw when the lock cannot be had. Bytes are in the file as soon as they are written, and others can
    /// read them. The lock ends with close(), with the object, and with the process, however that ends; the file stays.
    [[nodiscard]] virtual LockedFile openLocked(const std::string &path) = 0;
    [[nodiscard]] virtual std::unique_ptr<InputFile> openForInput(const std::string &path) = 0;
    /// The runtime's directory search with normal attributes: the name of the first file that fits the path, which may
    /// hold * and ?, or of the first file in a folder when the path ends in a backslash; empty when there is none.
    [[nodiscard]] virtual std::string directorySearch(const std::string &path) = 0;
    [[nodiscard]] virtual bool isFolder(const std::string &path) = 0;
    /// Deletes a file: 53 no such file, 70 or 75 refused.
    virtual void remove(const std::string &path) = 0;
    /// The folder of the application as the runtime reports it, without a trailing separator.
    [[nodiscard]] virtual std::string applicationFolder() = 0;
    virtual void changeDrive(const std::string &path) = 0;
    virtual void changeFolder(const std::string &path) = 0;
    [[nodiscard]] virtual std::string currentFolder() = 0;
};

} // namespace inin
