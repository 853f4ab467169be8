#include "common/picture.h"

#include "support/errors.h"
#include "support/fake_platform.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace std::string_literals;

namespace {

/// The error of the check of a file with these bytes, 0 for none.
std::int32_t checked(const std::string &bytes)
{
    FakeWorld world;
    world.files.put("C:\\SUITE\\ICON\\p", bytes);
    return errorOf([&] { checkPictureFile(world.files, "C:\\SUITE\\ICON\\p"); });
}

bool isPainted(const std::string &bytes)
{
    FakeWorld world;
    world.files.put("C:\\SUITE\\ICON\\p", bytes);
    return canBePainted(world.files, "C:\\SUITE\\ICON\\p");
}

std::int32_t checkedPath(const std::string &path)
{
    FakeWorld world;
    return errorOf([&] { checkPictureFile(world.files, path); });
}

} // namespace

TEST_CASE("a picture is identified by its first bytes")
{
    CHECK(checked("BM\x36\0\0\0"s) == 0);
    CHECK(checked("\0\0\1\0\1\0"s) == 0);
    CHECK(checked("\0\0\2\0\1\0"s) == 0);
    CHECK(checked("GIF87a"s) == 0);
    CHECK(checked("GIF89a....") == 0);
    CHECK(checked("\xFF\xD8\xFF\xE0..JFIF") == 0);
    CHECK(checked("\x89PNG\r\n\x1A\n....") == 0);
    CHECK(checked("\xD7\xCD\xC6\x9A\0\0"s) == 0);
    CHECK(checked("\1\0\x09\0\0\3"s) == 0);
    CHECK(checked("\1\0\0\0"s + std::string(36, '\0') + " EMF") == 0);
}

TEST_CASE("anything else is not a picture")
{
    CHECK(checked("") == 481);
    CHECK(checked("B") == 481);
    CHECK(checked("text") == 481);
    CHECK(checked("GIF88a") == 481);
    CHECK(checked("\x89PNG\n\x1A\n") == 481);
    CHECK(checked(std::string(100, '\0')) == 481);
    CHECK(checked("\1\0\x08\0\0\3"s) == 481);
    CHECK(checked("<svg xmlns='http://www.w3.org/2000/svg'/>") == 481);
}

TEST_CASE("a metafile, and a picture with incomplete or wrong headers, cannot be painted")
{
    const std::string rest(60, '\1');
    CHECK(isPainted("BM"s + std::string(12, '\0') + "\x28\0\0\0"s + rest));
    CHECK(isPainted("BM"s + std::string(12, '\0') + "\x0C\0\0\0"s + rest));
    CHECK_FALSE(isPainted("BM"s + std::string(12, '\0') + "\x29\0\0\0"s + rest));
    CHECK_FALSE(isPainted("BMx"));

    CHECK(isPainted("\0\0\1\0\1\0"s + rest));
    CHECK_FALSE(isPainted("\0\0\1\0\1\0"s));
    CHECK(isPainted("GIF89a" + rest));
    CHECK_FALSE(isPainted("GIF89a"));
    CHECK(isPainted("\xFF\xD8\xFF\xE0" + rest));
    CHECK_FALSE(isPainted("\xFF\xD8\xFF"));
    CHECK(isPainted("\x89PNG\r\n\x1A\n" + rest));
    CHECK_FALSE(isPainted("\x89PNG\r\n\x1A\n"));

    CHECK_FALSE(isPainted("\xD7\xCD\xC6\x9A" + rest));
    CHECK_FALSE(isPainted("\1\0\x09\0"s + rest));
    CHECK_FALSE(isPainted("\1\0\0\0"s + std::string(36, '\0') + " EMF" + rest));
}

TEST_CASE("a missing picture is error 53, a folder error 75")
{
    CHECK(checkedPath("C:\\SUITE\\ICON\\none.bmp") == 53);
    CHECK(checkedPath("C:\\SUITE\\ICON") == 75);
}
