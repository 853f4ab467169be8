#include "adapters/native/native_platform.h"
#include "support/errors.h"
#include "support/temp_folder.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace std::string_literals;

// Behaviour of files on every system. Differences of one system are tested in its own folder.

namespace {

std::unique_ptr<Files> anyFiles()
{
    return makeSystemFiles(textOf(std::filesystem::current_path()));
}

std::int32_t outputError(const std::string &path)
{
    return errorOf([&] { return anyFiles()->openForOutput(path); });
}

std::int32_t inputError(const std::string &path)
{
    return errorOf([&] { return anyFiles()->openForInput(path); });
}

std::int32_t removeError(const std::string &path)
{
    return errorOf([&] { anyFiles()->remove(path); });
}

/// A folder with a read-only file, an ordinary file and a folder.
struct FullFolder {
    TempFolder folder;
    FullFolder()
    {
        folder.putReadOnly("readonly", "old");
        folder.put("file", "old");
        std::filesystem::create_directory(pathOf(folder / "sub"));
    }
    ~FullFolder()
    {
        CHECK(folder.bytes("readonly") == "old");
        CHECK(folder.bytes("file") == "old");
        CHECK(folder.entries() == 3);
    }
    FullFolder(const FullFolder &) = delete;
    FullFolder &operator=(const FullFolder &) = delete;
};

struct Refusal {
    std::string path;
    std::int32_t number;
};

} // namespace

TEST_CASE("an output file replaces the old one and contains every byte")
{
    const TempFolder folder;
    folder.put("委任状.csv", std::string(100000, 'x'));
    std::string expected;

    const auto file = anyFiles()->openForOutput(folder.path() + "\\委任状.CSV");
    for (int line = 0; line < 20000; ++line) {
        file->write("line\0\r\n"s);
        expected += "line\0\r\n"s;
    }
    file->write(std::string(200000, 'y'));
    file->close();

    CHECK(folder.bytes("委任状.csv") == expected + std::string(200000, 'y'));
    CHECK(folder.entries() == 1);
}

TEST_CASE("an opened output file is empty at once")
{
    const TempFolder folder;
    folder.put("x", "old");
    const auto file = anyFiles()->openForOutput(folder / "x");
    CHECK(folder.bytes("x") == "");
}

TEST_CASE("an output file never ends at a line end before it is closed")
{
    const TempFolder folder;
    std::string expected;
    // Lines that fill the buffer of an output file exactly, and lines that do not.
    for (const std::size_t length : {1024U, 333U}) {
        const std::string line = std::string(length - 2, 'x') + "\r\n";
        const auto file = anyFiles()->openForOutput(folder / "x");
        std::size_t seen = 0;
        for (expected.clear(); expected.size() < 300000; expected += line) {
            file->write(line);
            const std::string partial = folder.bytes("x");
            if (partial.empty()) continue;
            CHECK(partial.back() == 'x');
            seen = partial.size();
        }
        CHECK(seen > 200000);
        file->close();
        CHECK(folder.bytes("x") == expected);
    }
}

TEST_CASE("an output file that consists of line ends is complete once it is closed")
{
    const TempFolder folder;
    const auto file = anyFiles()->openForOutput(folder / "x");
    file->write(std::string(100000, '\n'));
    CHECK(folder.bytes("x") == "");
    file->close();
    CHECK(folder.bytes("x") == std::string(100000, '\n'));
}

TEST_CASE("a discarded output file contains every byte except its last line end")
{
    const TempFolder folder;
    anyFiles()->openForOutput(folder / "x")->write("abc");
    anyFiles()->openForOutput(folder / "y")->write("abc\r\ndef\r\n");
    CHECK(folder.bytes("x") == "abc");
    CHECK(folder.bytes("y") == "abc\r\ndef");
}

TEST_CASE("a file is locked by one user at a time, until it is closed or discarded")
{
    using State = LockedFile::State;
    const TempFolder folder;
    LockedFile first = anyFiles()->openLocked(folder.path() + "\\委任状.run");
    REQUIRE(first.state == State::locked);
    CHECK(anyFiles()->openLocked(folder / "委任状.run").state == State::busy);

    first.output->close();
    CHECK(anyFiles()->openLocked(folder / "委任状.run").state == State::locked); // and discarded at once
    CHECK(anyFiles()->openLocked(folder / "委任状.run").state == State::locked);
    CHECK(folder.entries() == 1);
}

TEST_CASE("locking a file empties it, and others can read it byte by byte as it grows")
{
    const TempFolder folder;
    folder.put("x", "a longer text of the run before");
    const LockedFile locked = anyFiles()->openLocked(folder / "x");
    REQUIRE(locked.output);
    CHECK(anyFiles()->openForInput(folder / "x")->read(10) == "");
    locked.output->write("one\n");
    CHECK(anyFiles()->openForInput(folder / "x")->read(10) == "one\n");
    locked.output->write("two\n");
    CHECK(anyFiles()->openLocked(folder / "x").state == LockedFile::State::busy);
    CHECK(anyFiles()->openForInput(folder / "x")->read(10) == "one\ntwo\n");
}

TEST_CASE("a file that cannot be created cannot be locked")
{
    const TempFolder folder;
    folder.put("file", "");
    for (const std::string &path : {folder / "missing/x", folder / "file/x", folder.path()})
        CHECK(anyFiles()->openLocked(path).state == LockedFile::State::unavailable);
    CHECK(folder.names() == std::vector<std::string>{"file"});
}

TEST_CASE("an input file returns its bytes piece by piece and then nothing")
{
    const TempFolder folder;
    folder.put("x", "abc\0d"s);
    const auto file = anyFiles()->openForInput(folder / "x");
    CHECK(file->read(2) == "ab");
    CHECK(file->read(10) == "c\0d"s);
    CHECK(file->read(10) == "");
    CHECK(file->read(10) == "");
}

TEST_CASE("a file that cannot be opened for output fails with the runtime's number")
{
    const FullFolder full;
    const Refusal refusals[] = {
        {full.folder / "readonly", 70},  {full.folder.path(), 75},     {full.folder.path() + "\\", 75},
        {full.folder / "missing/x", 76}, {full.folder / "file/x", 76}, {"", 52},
        {full.folder / "a\0b"s, 52},     {full.folder / "a?b", 52},
    };
    for (const Refusal &refusal : refusals) {
        INFO(refusal.path);
        CHECK(outputError(refusal.path) == refusal.number);
    }
}

TEST_CASE("a file that cannot be opened for input fails with the runtime's number")
{
    const FullFolder full;
    const Refusal refusals[] = {
        {full.folder / "missing", 53}, {full.folder / "missing/x", 76}, {full.folder / "file/x", 76},
        {full.folder.path(), 75},      {full.folder.path() + "\\", 75}, {"", 52},
        {full.folder / "*", 52},       {full.folder / "*.csv", 52},     {full.folder / "file", 0},
    };
    for (const Refusal &refusal : refusals) {
        INFO(refusal.path);
        CHECK(inputError(refusal.path) == refusal.number);
    }
}

TEST_CASE("a file that cannot be deleted fails with the runtime's number")
{
    const FullFolder full;
    const Refusal refusals[] = {
        {full.folder / "missing", 53},
        {full.folder / "missing/x", 76},
        {full.folder / "sub", 75},
        {full.folder.path(), 75},
        {full.folder / "readonly", 70},
        {full.folder / "*", 52},
        {"", 52},
    };
    for (const Refusal &refusal : refusals) {
        INFO(refusal.path);
        CHECK(removeError(refusal.path) == refusal.number);
    }
}

TEST_CASE("a file is deleted by its name in any case")
{
    const TempFolder folder;
    folder.put("x.csv", "");
    folder.put("髙橋.csv", "");
    CHECK(removeError(folder / "X.CSV") == 0);
    CHECK(removeError(folder / "髙橋.csv") == 0);
    CHECK(folder.entries() == 0);
    CHECK(removeError(folder / "髙橋.csv") == 53);
}

TEST_CASE("a directory search finds one file by its name")
{
    const TempFolder folder;
    folder.put("委任状37_01.wfd", "");
    std::filesystem::create_directory(pathOf(folder / "sub"));
    const auto files = anyFiles();
    CHECK(files->directorySearch(folder.path() + "\\委任状37_01.WFD") == "委任状37_01.wfd");
    CHECK(files->directorySearch(folder.path() + "\\委任状37_01.wfd") == "委任状37_01.wfd");
    CHECK(files->directorySearch(folder / "none") == "");
    CHECK(files->directorySearch(folder / "none/委任状37_01.wfd") == "");
    CHECK(files->directorySearch(folder / "sub") == "");
    CHECK(files->directorySearch("") == "");
}

TEST_CASE("a directory search finds a file that matches the pattern")
{
    const TempFolder folder;
    folder.put("委任状37_01.wfd", "");
    std::filesystem::create_directory(pathOf(folder / "a.csv"));
    const auto files = anyFiles();
    CHECK(files->directorySearch(folder / "委任状*.wfd") == "委任状37_01.wfd");
    CHECK(files->directorySearch(folder / "*37?01.WFD") == "委任状37_01.wfd");
    CHECK(files->directorySearch(folder / "*.csv") == "");
    CHECK(files->directorySearch(folder / "none/*") == "");
}

TEST_CASE("a directory search of a folder with a trailing backslash finds its first file")
{
    const TempFolder folder;
    const auto files = anyFiles();
    std::filesystem::create_directory(pathOf(folder / "sub"));
    CHECK(files->directorySearch(folder.path() + "\\") == "");
    folder.put("b", "");
    folder.put("A", "");
    CHECK(files->directorySearch(folder.path() + "\\") == "A");
    CHECK(files->directorySearch(folder.path() + "\\SUB\\") == "");
}

TEST_CASE("only a folder counts as a folder")
{
    const TempFolder folder;
    folder.put("x", "");
    std::filesystem::create_directory(pathOf(folder / "Sub"));
    const auto files = anyFiles();
    CHECK(files->isFolder(folder.path()));
    CHECK(files->isFolder(folder.path() + "\\SUB\\"));
    CHECK_FALSE(files->isFolder(folder / "x"));
    CHECK_FALSE(files->isFolder(folder / "none"));
}

TEST_CASE("the current folder is what the operating system reports after a change")
{
    const TempFolder folder;
    const CurrentFolder back(folder.folder());
    std::filesystem::create_directory(pathOf(folder / "髙橋Sub"));
    folder.put("file", "");
    const auto files = anyFiles();

    files->changeDrive(folder.path());
    files->changeFolder(folder.path() + "\\髙橋sub");
    const std::filesystem::path there = pathOf(folder / "髙橋Sub");
    CHECK(std::filesystem::equivalent(pathOf(files->currentFolder()), there));
    CHECK(files->currentFolder() == textOf(std::filesystem::current_path()));

    for (const std::string &refused : {folder / "none", folder / "file"}) {
        INFO(refused);
        CHECK(errorOf([&] { files->changeFolder(refused); }) == 76);
    }
    CHECK(std::filesystem::equivalent(pathOf(files->currentFolder()), there));
}

TEST_CASE("the application folder has no trailing separator, except a root")
{
    const TempFolder folder;
    const std::string root = textOf(folder.folder().root_path());
    const auto separator = static_cast<char>(std::filesystem::path::preferred_separator);
    CHECK(makeSystemFiles(folder.path())->applicationFolder() == folder.path());
    CHECK(makeSystemFiles(folder.path() + "/")->applicationFolder() == folder.path());
    CHECK(makeSystemFiles(folder.path() + separator)->applicationFolder() == folder.path());
    CHECK(makeSystemFiles(root)->applicationFolder() == root);
}
