#include "common/text_file.h"

#include "runtime/runtime_error.h"
#include "support/fake_platform.h"

#include <vector>

#include <doctest/doctest.h>

using namespace inin;
using namespace std::string_literals;

namespace {

const std::string kTextPath = "C:\\SUITE\\TMP\\x.txt";

std::vector<std::string> linesOf(const std::string &bytes)
{
    FakeWorld world;
    world.files.put(kTextPath, bytes);
    TextInput file(world.platform, kTextPath);
    std::vector<std::string> lines;
    for (std::string line; file.readLine(line);) lines.push_back(line);
    return lines;
}

using Texts = std::vector<std::string>;

} // namespace

TEST_CASE("each printed line is in the code page and ends with CR LF")
{
    FakeWorld world;
    TextOutput file(world.platform, kTextPath);
    file.printLine("\"委任状\",\"é\"");
    file.printLine("");
    file.close();
    CHECK(world.files.bytes(kTextPath) == "\"\x88\xCF\x94\x43\x8F\xF3\",\"?\"\r\n\r\n");
}

TEST_CASE("a line is written in one call")
{
    FakeWorld world;
    world.files.failingWrite = 2;
    TextOutput file(world.platform, kTextPath);
    file.printLine("first");
    CHECK_THROWS_AS(file.printLine("second"), RuntimeError);
    CHECK(world.files.bytes(kTextPath) == "first\r\n");
}

TEST_CASE("an existing file is truncated")
{
    FakeWorld world;
    world.files.put(kTextPath, "old");
    TextOutput(world.platform, kTextPath).close();
    CHECK(world.files.bytes(kTextPath) == "");
}

TEST_CASE("errors of the file go to the caller")
{
    FakeWorld world;
    CHECK_THROWS_AS(TextOutput(world.platform, "C:\\NONE\\x.txt"), RuntimeError);
    CHECK_THROWS_AS(TextInput(world.platform, "C:\\SUITE\\none.txt"), RuntimeError);
}

TEST_CASE("a line ends at CR LF, at CR and at LF")
{
    CHECK(linesOf("a\r\nb\rc\nd") == Texts{"a", "b", "c", "d"});
    CHECK(linesOf("a\r\n\r\nb\n\nc\r\rd\r\n") == Texts{"a", "", "b", "", "c", "", "d"});
    CHECK(linesOf("a\n\rb") == Texts{"a", "", "b"});
}

TEST_CASE("a last line without an end is a line, and an end alone is an empty one")
{
    CHECK(linesOf("") == Texts{});
    CHECK(linesOf("a") == Texts{"a"});
    CHECK(linesOf("\r") == Texts{""});
    CHECK(linesOf("\n") == Texts{""});
    CHECK(linesOf("\r\n") == Texts{""});
}

TEST_CASE("a CR LF across two blocks of the file is one line end")
{
    for (const std::size_t size : {65533U, 65534U, 65535U, 65536U, 65537U}) {
        INFO(size);
        const std::string first(size, 'x');
        CHECK(linesOf(first + "\r\n\r\nb") == Texts{first, "", "b"});
        CHECK(linesOf(first + "\rb") == Texts{first, "b"});
        CHECK(linesOf(first + "\r") == Texts{first});
    }
}

TEST_CASE("lines are decoded, and an invalid byte does not end the reading")
{
    CHECK(linesOf("\x88\xCF\x94\x43\x8F\xF3\r\n\x81\r\nx\xFFy\n") == Texts{"委任状", "\uFFFD", "x\uFFFDy"});
}

TEST_CASE("a double byte across two blocks of the file is one character")
{
    const std::string first(65535, 'x');
    CHECK(linesOf(first + "\x88\xCF\n") == Texts{first + "委"});
}

TEST_CASE("NUL bytes are part of a line")
{
    CHECK(linesOf("a\0b\n\0"s) == Texts{"a\0b"s, "\0"s});
}

TEST_CASE("a line of 10 MB is read completely")
{
    const std::string line(10 << 20, 'x');
    const Texts lines = linesOf(line + "\r\nb");
    REQUIRE(lines.size() == 2);
    CHECK(lines[0].size() == line.size());
    CHECK(lines[1] == "b");
}
