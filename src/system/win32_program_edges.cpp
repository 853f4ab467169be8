#include "system/program_edges.h"

#include "runtime/utf8.h"
#include "system/win32_text.h"

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <memory>
#include <optional>
#include <streambuf>
#include <utility>

#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <shellapi.h>

namespace inin {

namespace {

struct FreeLocal {
    void operator()(void *memory) const { LocalFree(memory); }
};

/// The console that a stream prints to; null for a file, a pipe and a closed stream.
HANDLE consoleOf(std::FILE *stream)
{
    if (_fileno(stream) < 0) return nullptr;
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the runtime library returns the handle as a number
    const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)));
    DWORD mode = 0;
    return GetConsoleMode(handle, &mode) != 0 ? handle : nullptr;
}

/// Prints in parts, because older consoles refuse long texts. A part does not end within a surrogate pair.
void printOnConsole(HANDLE console, std::wstring_view text)
{
    constexpr std::size_t longestPart = 8192;
    while (!text.empty()) {
        std::size_t size = std::min(text.size(), longestPart);
        if (size < text.size() && isHighSurrogate(text[size - 1])) --size;
        DWORD written = 0;
        if (WriteConsoleW(console, text.data(), static_cast<DWORD>(size), &written, nullptr) == 0) return;
        text.remove_prefix(size);
    }
}

/// Makes a standard stream print by printText() as long as the object exists.
class ConsoleBuffer : public std::streambuf {
public:
    ConsoleBuffer(std::ostream &stream, std::FILE *file) : m_stream(stream), m_file(file), m_before(stream.rdbuf(this))
    {
    }
    ConsoleBuffer(const ConsoleBuffer &) = delete;
    ConsoleBuffer &operator=(const ConsoleBuffer &) = delete;
    ~ConsoleBuffer() override
    {
        m_stream.flush();
        m_stream.rdbuf(m_before);
    }

protected:
    int_type overflow(int_type character) override
    {
        if (!traits_type::eq_int_type(character, traits_type::eof())) m_text += traits_type::to_char_type(character);
        return traits_type::not_eof(character);
    }
    std::streamsize xsputn(const char *text, std::streamsize size) override
    {
        m_text.append(text, static_cast<std::size_t>(size));
        return size;
    }
    int sync() override
    {
        printText(m_file, std::exchange(m_text, {}));
        return 0;
    }

private:
    std::ostream &m_stream;
    std::FILE *m_file;
    std::streambuf *m_before;
    std::string m_text;
};

} // namespace

/// main() receives its arguments in the ANSI code page, which may lack a character of a path.
std::vector<std::string> commandWords(int, char **)
{
    int count = 0;
    const std::unique_ptr<wchar_t *, FreeLocal> wide(CommandLineToArgvW(GetCommandLineW(), &count));
    std::vector<std::string> words;
    for (int at = 0; wide && at < count; ++at) words.push_back(utf8FromWide(wide.get()[at]));
    return words;
}

std::string environmentText(const std::string &name)
{
    const wchar_t *value = _wgetenv(wideFromUtf8(name).c_str());
    return value == nullptr ? std::string() : utf8FromWide(value);
}

std::filesystem::path programFile()
{
    constexpr std::size_t longestPath = 32768;
    std::wstring file(longestPath, L'\0');
    file.resize(GetModuleFileNameW(nullptr, file.data(), static_cast<DWORD>(file.size())));
    // Wine 8 leaves this of the prefix "\\?\UNC\" before the name of a server.
    constexpr std::wstring_view cutPrefix = L"UNC\\";
    if (file.starts_with(cutPrefix)) file.replace(0, cutPrefix.size(), L"\\\\");
    return file;
}

// The run-time library reserves the descriptors of closed standard streams: no file gets them.
void prepareStandardStreams()
{
    // A window program may be started without any streams.
    for (std::FILE *stream : {stdin, stdout, stderr})
        if (_fileno(stream) >= 0) _setmode(_fileno(stream), _O_BINARY);
    // Destroyed before the streams are flushed for the last time.
    static std::optional<ConsoleBuffer> output, errors;
    if (consoleOf(stdout) != nullptr) output.emplace(std::cout, stdout);
    if (consoleOf(stderr) != nullptr) errors.emplace(std::cerr, stderr);
}

void printText(std::FILE *stream, std::string_view text) noexcept
{
    if (const HANDLE console = consoleOf(stream); console != nullptr)
        printOnConsole(console, wideFromUtf8(text));
    else
        (void)std::fwrite(text.data(), 1, text.size(), stream);
}

} // namespace inin
