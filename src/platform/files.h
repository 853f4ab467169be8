#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace inin {

// The file operations of the runtime, on bytes. Paths are UTF-8 with backslashes or slashes; names ignore ASCII case.
// Failures are RuntimeErrors 52, 53, 55, 57, 61, 62, 67, 70, 71, 75 and 76 with the runtime's meaning. Files are opened, written
// and closed in steps, because each step fails with an error of its own; system/whole_file.h is for all other files.

/// A file open for output. Trailing line ends are held back until more bytes follow or close() succeeds, so the file of
/// an interrupted program is recognized by its missing line end. The destructor without close() leaves such a file and
/// ignores a failure; close() reports it.
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
    /// The next bytes, at most `size`; empty at the end of the file.
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

    /// Creates or empties a file; replaces a symbolic link instead of following it. POSIX: only the owner may read a new
    /// file, an existing one keeps its permissions. Windows: a new file inherits the permissions of its folder.
    [[nodiscard]] virtual std::unique_ptr<OutputFile> openForOutput(const std::string &path) = 0;
    /// Opens a file like openForOutput, under an advisory lock that only one program can have. Does not wait for the
    /// lock and does not throw without it. Bytes are written immediately, and others can read them. The lock ends with
    /// close(), with the object or with the process; the file remains.
    [[nodiscard]] virtual LockedFile openLocked(const std::string &path) = 0;
    [[nodiscard]] virtual std::unique_ptr<InputFile> openForInput(const std::string &path) = 0;
    /// The runtime's directory search with normal attributes. Returns the name of the first file that matches the path,
    /// which may contain * and ?, or of the first file in the folder when the path ends in a backslash; empty for none.
    [[nodiscard]] virtual std::string directorySearch(const std::string &path) = 0;
    [[nodiscard]] virtual bool isFolder(const std::string &path) = 0;
    /// Deletes a file. Errors: 53 no such file, 70 or 75 access denied.
    virtual void remove(const std::string &path) = 0;
    /// The folder of the application as the runtime reports it, without a trailing separator.
    [[nodiscard]] virtual std::string applicationFolder() = 0;
    virtual void changeDrive(const std::string &path) = 0;
    virtual void changeFolder(const std::string &path) = 0;
    [[nodiscard]] virtual std::string currentFolder() = 0;
};

} // namespace inin
