#include "runtime/runtime_error.h"
#include "support/errors.h"
#include "support/temp_folder.h"
#include "system/file_path.h"
#include "system/whole_file.h"
#include "system/win32_handle.h"
#include "system/win32_text.h"

#include <doctest/doctest.h>

#include <windows.h>

using namespace inin;

namespace {

/// Opens a file as a program that displays it does.
Win32FileHandle openFor(const std::string &path, DWORD shared)
{
    return Win32FileHandle(CreateFileW(wideFromUtf8(path).c_str(), GENERIC_READ, shared, nullptr, OPEN_EXISTING,
                                       FILE_ATTRIBUTE_NORMAL, nullptr));
}

std::string refusalToWrite(const std::string &path)
{
    return errorWordsOf([&] { writeWholeFile(pathOf(path), "new", NewFile::ownerOnly); });
}

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
