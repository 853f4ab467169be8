#pragma once

#include "platform/files.h"
#include "platform/profile.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace inin {

/// A file system in memory with paths as in the suite ("C:\SUITE\TMP\x.csv"); names are case-insensitive. The public
/// members inject faults.
class FakeFiles : public Files {
public:
    /// Creates a file with these bytes, and its folders.
    void put(const std::string &path, const std::string &bytes);
    /// Creates a file from UTF-8 text, converted to code page 932 with CR LF for "\n".
    void putText(const std::string &path, const std::string &utf8);
    void makeFolder(const std::string &path);
    [[nodiscard]] bool has(const std::string &path) const;
    [[nodiscard]] std::string bytes(const std::string &path) const;

    std::string appFolder = "C:\\SUITE";
    /// The n-th next call of write fails (1 is the next), counted over all files; 0 for never.
    int failingWrite = 0;
    std::int32_t failingWriteError = 61;
    /// The same for close; the written bytes stay.
    int failingClose = 0;
    std::int32_t failingCloseError = 61;
    /// The result of locking a file. If empty, a file in an existing folder is locked.
    std::function<LockedFile::State(const std::string &path)> lockState;
    /// Thrown by every write to a locked file when not 0; failingWrite does not apply to these.
    std::int32_t lockedWriteError = 0;
    /// Thrown whenever the path (as given, case-folded) is opened for output, opened for input or deleted.
    std::map<std::string, std::int32_t> openOutputErrors, openInputErrors, removeErrors;
    /// The calls in order: "open >path", "open <path", "lock path", "unlock path",
    /// "remove path", "search path", "chdrive path", ...
    std::vector<std::string> log;

    std::unique_ptr<OutputFile> openForOutput(const std::string &path) override;
    LockedFile openLocked(const std::string &path) override;
    std::unique_ptr<InputFile> openForInput(const std::string &path) override;
    std::string directorySearch(const std::string &path) override;
    bool isFolder(const std::string &path) override;
    void remove(const std::string &path) override;
    std::string applicationFolder() override { return appFolder; }
    void changeDrive(const std::string &path) override { log.push_back("chdrive " + path); }
    void changeFolder(const std::string &path) override;
    std::string currentFolder() override { return m_current; }

    /// Used by the fake files' own handles.
    void append(const std::string &key, std::string_view bytes);
    void close();

private:
    struct Entry {
        std::string name; ///< as first given
        std::string bytes;
        bool folder = false;
    };
    [[nodiscard]] static std::string keyOf(const std::string &path);

    std::map<std::string, Entry> m_entries;
    std::string m_current = "C:\\";
};

/// The profile calls over FakeFiles, by the rules of the platform.
class FakeProfile : public Profile {
public:
    explicit FakeProfile(FakeFiles &files) : m_files(files) {}
    std::int32_t GetPrivateProfileInt(const Text &section, const Text &key, std::int32_t defaultValue,
                                      const std::string &file) override;
    std::string GetPrivateProfileString(const Text &section, const Text &key, const std::string &defaultValue,
                                        std::size_t size, const std::string &file) override;
    std::int32_t WritePrivateProfileString(const Text &section, const Text &key, const Text &value,
                                           const std::string &file) override;

    bool refuseWrites = false;
    /// Thrown by every call when not 0.
    std::int32_t error = 0;

private:
    FakeFiles &m_files;
};

} // namespace inin
