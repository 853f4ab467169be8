#include "support/fake_files.h"

#include "runtime/runtime_error.h"
#include "runtime/text.h"
#include "suite_text/code_page_932.h"
#include "suite_text/profile_text.h"

#include <algorithm>
#include <new>
#include <stdexcept>
#include <utility>

namespace inin {

namespace {

class FakeOutput : public OutputFile {
public:
    FakeOutput(FakeFiles &files, std::string key) : m_files(files), m_key(std::move(key)) {}
    void write(std::string_view bytes) override { m_files.append(m_key, bytes); }
    void close() override { m_files.close(); }

private:
    FakeFiles &m_files;
    std::string m_key;
};

class FakeLockedOutput : public OutputFile {
public:
    FakeLockedOutput(FakeFiles &files, std::string path) : m_files(files), m_path(std::move(path))
    {
        m_files.put(m_path, "");
    }
    ~FakeLockedOutput() override
    {
        try {
            unlock();
        } catch (const std::bad_alloc &) {
            return; // only the log lacks a line
        }
    }
    void write(std::string_view bytes) override
    {
        if (m_files.lockedWriteError != 0) throw RuntimeError(m_files.lockedWriteError);
        m_files.put(m_path, m_files.bytes(m_path).append(bytes));
    }
    void close() override { unlock(); }

private:
    void unlock()
    {
        if (std::exchange(m_isLocked, false)) m_files.log.push_back("unlock " + m_path);
    }

    FakeFiles &m_files;
    std::string m_path;
    bool m_isLocked = true;
};

class FakeInput : public InputFile {
public:
    explicit FakeInput(std::string bytes) : m_bytes(std::move(bytes)) {}
    std::string read(std::size_t size) override
    {
        std::string part = m_bytes.substr(m_position, size);
        m_position += part.size();
        return part;
    }

private:
    std::string m_bytes;
    std::size_t m_position = 0;
};

std::string folderOf(const std::string &key)
{
    const auto slash = key.rfind('\\');
    return slash == std::string::npos ? std::string() : key.substr(0, slash);
}

bool fits(std::string_view name, std::string_view pattern)
{
    if (pattern.empty()) return name.empty();
    if (pattern.front() == '*')
        return fits(name, pattern.substr(1)) || (!name.empty() && fits(name.substr(1), pattern));
    return !name.empty() && (pattern.front() == '?' || pattern.front() == name.front()) &&
           fits(name.substr(1), pattern.substr(1));
}

} // namespace

std::string FakeFiles::keyOf(const std::string &path)
{
    std::string key = asciiLower(path);
    std::ranges::replace(key, '/', '\\');
    while (key.size() > 1 && key.ends_with('\\')) key.pop_back();
    return key;
}

void FakeFiles::put(const std::string &path, const std::string &bytes)
{
    makeFolder(path.substr(0, path.find_last_of("\\/")));
    m_entries[keyOf(path)] = Entry{path.substr(path.find_last_of("\\/") + 1), bytes, false};
}

void FakeFiles::putText(const std::string &path, const std::string &utf8)
{
    std::string lines;
    for (const char c : utf8) lines += c == '\n' ? std::string("\r\n") : std::string(1, c);
    put(path, encodeCp932(lines));
}

void FakeFiles::makeFolder(const std::string &path)
{
    if (path.empty() || path.find('\\') == std::string::npos) return;
    makeFolder(path.substr(0, path.find_last_of('\\')));
    m_entries.try_emplace(keyOf(path), Entry{path.substr(path.find_last_of('\\') + 1), {}, true});
}

bool FakeFiles::has(const std::string &path) const
{
    return m_entries.contains(keyOf(path));
}

std::string FakeFiles::bytes(const std::string &path) const
{
    const auto entry = m_entries.find(keyOf(path));
    if (entry == m_entries.end()) throw std::logic_error("no such fake file: " + path);
    return entry->second.bytes;
}

void FakeFiles::append(const std::string &key, std::string_view bytes)
{
    if (failingWrite > 0 && --failingWrite == 0) throw RuntimeError(failingWriteError);
    m_entries[key].bytes += bytes;
}

std::unique_ptr<OutputFile> FakeFiles::openForOutput(const std::string &path)
{
    log.push_back("open >" + path);
    const std::string key = keyOf(path);
    if (const auto fault = openOutputErrors.find(key); fault != openOutputErrors.end())
        throw RuntimeError(fault->second);
    if (!isFolder(folderOf(key)) && !folderOf(key).empty()) throw RuntimeError(error_number::pathNotFound);
    m_entries[key] = Entry{path.substr(path.find_last_of("\\/") + 1), {}, false};
    return std::make_unique<FakeOutput>(*this, key);
}

void FakeFiles::close()
{
    if (failingClose > 0 && --failingClose == 0) throw RuntimeError(failingCloseError);
}

LockedFile FakeFiles::openLocked(const std::string &path)
{
    using State = LockedFile::State;
    log.push_back("lock " + path);
    const State free = isFolder(folderOf(keyOf(path))) ? State::locked : State::unavailable;
    const State state = lockState ? lockState(path) : free;
    return {state, state == State::locked ? std::make_unique<FakeLockedOutput>(*this, path) : nullptr};
}

std::unique_ptr<InputFile> FakeFiles::openForInput(const std::string &path)
{
    log.push_back("open <" + path);
    const std::string key = keyOf(path);
    if (const auto fault = openInputErrors.find(key); fault != openInputErrors.end()) throw RuntimeError(fault->second);
    const auto entry = m_entries.find(key);
    if (entry == m_entries.end()) throw RuntimeError(error_number::fileNotFound);
    if (entry->second.folder) throw RuntimeError(error_number::pathAccess);
    return std::make_unique<FakeInput>(entry->second.bytes);
}

std::string FakeFiles::directorySearch(const std::string &path)
{
    log.push_back("search " + path);
    const bool folderContents = path.ends_with('\\') || path.ends_with('/');
    const std::string pattern = folderContents ? keyOf(path) + "\\*" : keyOf(path);
    for (const auto &[key, entry] : m_entries)
        if (!entry.folder && folderOf(key) == folderOf(pattern) &&
            fits(key.substr(folderOf(key).size()), pattern.substr(folderOf(pattern).size())))
            return entry.name;
    return {};
}

bool FakeFiles::isFolder(const std::string &path)
{
    const auto entry = m_entries.find(keyOf(path));
    return entry != m_entries.end() && entry->second.folder;
}

void FakeFiles::remove(const std::string &path)
{
    log.push_back("remove " + path);
    const std::string key = keyOf(path);
    if (const auto fault = removeErrors.find(key); fault != removeErrors.end()) throw RuntimeError(fault->second);
    if (m_entries.erase(key) == 0) throw RuntimeError(error_number::fileNotFound);
}

void FakeFiles::changeFolder(const std::string &path)
{
    log.push_back("chdir " + path);
    m_current = path;
}

namespace {
/// An argument in the code page; owns the bytes of its view.
struct Encoded {
    explicit Encoded(const Profile::Text &text) : bytes(text ? encodeCp932(*text) : std::string())
    {
        if (text) view = bytes;
    }
    Encoded(const Encoded &) = delete;
    Encoded &operator=(const Encoded &) = delete;
    std::string bytes;
    ProfileBytes view;
};
} // namespace

std::int32_t FakeProfile::GetPrivateProfileInt(const Text &section, const Text &key, std::int32_t defaultValue,
                                               const std::string &file)
{
    if (error != 0) throw RuntimeError(error);
    const std::string bytes = m_files.has(file) ? m_files.bytes(file) : std::string();
    return profileInt(bytes, Encoded(section).view, Encoded(key).view, defaultValue);
}

std::string FakeProfile::GetPrivateProfileString(const Text &section, const Text &key, const std::string &defaultValue,
                                                 std::size_t size, const std::string &file)
{
    if (error != 0) throw RuntimeError(error);
    const std::string bytes = m_files.has(file) ? m_files.bytes(file) : std::string();
    return decodeCp932(profileString(bytes, Encoded(section).view, Encoded(key).view, encodeCp932(defaultValue), size));
}

std::int32_t FakeProfile::WritePrivateProfileString(const Text &section, const Text &key, const Text &value,
                                                    const std::string &file)
{
    if (error != 0) throw RuntimeError(error);
    if (refuseWrites) return 0;
    const std::string bytes = m_files.has(file) ? m_files.bytes(file) : std::string();
    const auto after = profileWrite(bytes, Encoded(section).view, Encoded(key).view, Encoded(value).view);
    if (!after) return 0;
    m_files.put(file, *after);
    return 1;
}

} // namespace inin
