#include "runtime/runtime_error.h"
#include "support/errors.h"
#include "system/win32_handle.h"
#include "system/win32_text.h"
#include "viewer/io/file_io.h"
#include "viewer/io/font_files.h"
#include "viewer/io/mapped_file.h"
#include "viewer/io/system_edges.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <filesystem>
#include <set>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

/// Opens a file as a program that displays it does.
Win32FileHandle openFor(const std::string &path, DWORD shared)
{
    return Win32FileHandle(CreateFileW(wideFromUtf8(path).c_str(), GENERIC_READ, shared, nullptr, OPEN_EXISTING,
                                       FILE_ATTRIBUTE_NORMAL, nullptr));
}

std::string refusalToWrite(const std::string &path)
{
    return errorWordsOf([&] {
        AtomicFile file(path);
        file.write("new");
        file.commit();
    });
}

/// A folder that Wine shows as a share of a server: it looks for shares in a folder of its prefix.
class SharedFolder {
public:
    SharedFolder() { std::filesystem::create_directories(m_folder); }
    SharedFolder(const SharedFolder &) = delete;
    SharedFolder &operator=(const SharedFolder &) = delete;
    ~SharedFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_folder.parent_path(), ignored);
    }
    [[nodiscard]] std::string name() const { return "\\\\" + m_server + "\\share"; }
    [[nodiscard]] std::string put(const std::string &file, const std::string &bytes) const
    {
        std::string path = textOf(m_folder / file);
        writeBytes(path, bytes);
        return path;
    }

private:
    std::string m_server = "inin-" + std::to_string(GetCurrentProcessId());
    std::filesystem::path m_folder =
        std::filesystem::path("Z:" + environmentText("WINEPREFIX")) / "dosdevices" / "unc" / m_server / "share";
};

} // namespace

TEST_CASE("a PDF that another program has open is kept, and the failure leaves no partial file")
{
    const TempFolder folder;
    const std::string path = folder / "委任状.pdf";
    writeBytes(path, "old");
    {
        const Win32FileHandle reader = openFor(path, FILE_SHARE_READ);
        REQUIRE(reader.isOpen());
        CHECK(refusalToWrite(path) == "ファイル「" + path + "」に書き込めません。");
    }
    CHECK(bytesOf(path) == "old");
    CHECK(folder.names() == std::vector<std::string>{"委任状.pdf"});
    CHECK(refusalToWrite(path).empty());
    CHECK(bytesOf(path) == "new");
}

TEST_CASE("a locked file is reported as unreadable, and a shared file is read")
{
    const TempFolder folder;
    folder.put("a.csv", "rows");
    {
        const Win32FileHandle alone = openFor(folder / "a.csv", 0);
        REQUIRE(alone.isOpen());
        CHECK_THROWS_WITH_AS((void)readWholeFile(folder / "a.csv"),
                             ("ファイル「" + folder / "a.csv" + "」を読めません。").c_str(), RuntimeError);
    }
    const Win32FileHandle shared = openFor(folder / "a.csv", FILE_SHARE_READ);
    CHECK(readWholeFile(folder / "a.csv") == "rows");
}

TEST_CASE("the name of a device is neither read nor written")
{
    const TempFolder folder;
    for (const char *device : {"NUL", "con", "COM1"}) {
        CAPTURE(std::string(device));
        CHECK_THROWS_AS((void)readWholeFile(device), RuntimeError);
        CHECK(refusalToWrite(device) == "ファイル「" + std::string(device) + "」に書き込めません。");
    }
}

TEST_CASE("each listed font file is returned once, without vertical names and brackets")
{
    const std::vector<FontFile> files = installedFontFiles();
    CHECK_FALSE(files.empty());
    std::set<std::string> paths;
    for (const FontFile &file : files) {
        CHECK(paths.insert(file.path).second);
        CHECK_FALSE(file.listedAs.starts_with("@"));
        CHECK_FALSE(file.listedAs.ends_with(")"));
    }
}

TEST_CASE("the bytes of a file on a share remain when it vanishes")
{
    const SharedFolder share;
    const std::string path = share.put("font.ttf", std::string(100000, 'x'));
    const MappedFile file(share.name() + "\\font.ttf");
    REQUIRE(file.bytes() == std::string(100000, 'x'));
    std::filesystem::resize_file(inin::pathOf(path), 0);
    CHECK(file.bytes() == std::string(100000, 'x'));
}

TEST_CASE("a file on a share that does not exist is empty")
{
    CHECK(MappedFile("\\\\no-such-server\\share\\font.ttf").bytes().empty());
}
