#pragma once

#include "platform/files.h"
#include "platform/profile.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace inin {

/// A file system in memory. Paths are texts of the suite ("C:\SUITE\TMP\x.csv"); names are found whatever their case.
/// Faults: see the switches.
class FakeFiles : public Files {
public:
    /// Puts a file with these bytes; its folders come into being with it.
    void put(const std::string &path, const std::string &bytes);
    /// Puts a text of UTF-8 in code page 932, "\n" turned into CR LF.
    void putText(const std::string &path, const std::string &utf8);
    void makeFolder(const std::string &path);
    [[nodiscard]] bool has(const std::string &path) const;
    [[nodiscard]] std::string bytes(const std::string &path) const;

    std::string appFolder = "C:\\SUITE";
    /// Raised by the n-th next call of write (1 is the next), counted over all files; 0 never.
    int failingWrite = 0;
    std::int32_t failingWriteError = 61;
    /// Likewise for close; what was written stays.
    int failingClose = 0;
    std::int32_t failingCloseError = 61;
    /// Whether another program holds the lock of a file, or why there is no lock; without it a lock is free.
    std::function<LockedFile::State(const std::string &path)> lockState;
    /// Raised by every write to a locked file when not 0; failingWrite leaves these alone.
    std::int32_t lockedWriteError = 0;
    /// Raised whenever the path (as given, case folded) is opened for output, opened for input or deleted.
    std::map<std::string, std::int32_t> openOutputErrors, openInputErrors, removeErrors;
    /// What was asked, in order: "open >path", "open <path", "lock path", "unlock path",
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

    /// For the fake files' own handles.
    void append(const std::string &key, std::string_view bytes);
    void close();

private:
    struct Entry {
        std::string name; ///< as it was first given
        std::string bytes;
        bool folder = false;
    };
    [[nodiscard]] static std::string keyOf(const std::string &path);

    std::map<std::string, Entry> m_entries;
    std::string m_current = "C:\\";
};

/// The profile calls over a FakeFiles, by the rules of the platform.
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
    /// Raised by every call when not 0.
    std::int32_t error = 0;

private:
    FakeFiles &m_files;
};

} // namespace inin
