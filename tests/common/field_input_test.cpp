#include "common/field_input.h"

#include "support/errors.h"
#include "support/fake_platform.h"

#include <doctest/doctest.h>

#include <string>
#include <vector>

using namespace inin;

namespace {

std::vector<std::string> fieldsOf(const std::string &bytes)
{
    FakeWorld world;
    world.files.put("C:\\SUITE\\x.txt", bytes);
    FieldInput file(world.platform, "C:\\SUITE\\x.txt");
    std::vector<std::string> fields;
    while (!file.isAtEnd()) fields.push_back(file.next());
    return fields;
}

struct FieldCase {
    const char *claim;
    std::string bytes;
    std::vector<std::string> fields;
};

const FieldCase kCases[] = {
    {"an empty file has no field", "", {}},
    {"a line is a field", "a\r\nb\r\n", {"a", "b"}},
    {"the last line needs no end", "a\r\nb", {"a", "b"}},
    {"CR and LF each end a line by themselves", "a\rb\nc", {"a", "b", "c"}},
    {"a comma ends a field", "a,b\r\nc\r\n", {"a", "b", "c"}},
    {"a comma at the end of a line leaves an empty field behind it", "a,\r\nb\r\n", {"a", "", "b"}},
    {"a comma at the end of the file leaves none", "a,", {"a"}},
    {"a blank line is an empty field", "a\r\n\r\nb", {"a", "", "b"}},
    {"blanks and tabs before a field do not count", "  a,\t b\r\n", {"a", "b"}},
    {"blanks within and behind a field stay", "a b  \r\nc", {"a b  ", "c"}},
    {"quotes around a field go, and its comma stays", "\"a,b\"\r\nc\r\n", {"a,b", "c"}},
    {"blanks in quotes stay", "\" a \"\r\n", {" a "}},
    {"blanks behind the closing quote go", "\"a\"  ,b\r\n", {"a", "b"}},
    {"a quoted field goes over line ends", "\"a\r\nb\",c", {"a\r\nb", "c"}},
    {"what stands behind a closing quote is the next field", "\"a\"b\r\n", {"a", "b"}},
    {"a quote that is never closed takes the rest", "\"a,b\r\nc", {"a,b\r\nc"}},
    {"a quote within a field is a character", "a\"b\"\r\n", {"a\"b\""}},
    {"two quotes are an empty field", "\"\",b", {"", "b"}},
    {"double bytes are read whole", "\x95\x5C\x81\x5C,\x83\x5C\r\n", {"表―", "ソ"}},
};

/// Fails at the second block.
class BrokenInput : public InputFile {
public:
    std::string read(std::size_t) override
    {
        if (m_pieces++ == 0) return "a\r\nb";
        throw RuntimeError(error_number::deviceIo);
    }

private:
    int m_pieces = 0;
};

class BrokenFiles : public FakeFiles {
public:
    std::unique_ptr<InputFile> openForInput(const std::string &) override { return std::make_unique<BrokenInput>(); }
};

} // namespace

TEST_CASE("a field ends by the rules of the runtime's field input")
{
    for (const FieldCase &each : kCases) {
        CAPTURE(each.claim);
        CHECK(fieldsOf(each.bytes) == each.fields);
    }
}

TEST_CASE("a field longer than a block of the file is read completely")
{
    const std::string longField(200000, 'x');
    CHECK(fieldsOf(longField + "\r\nb") == std::vector<std::string>{longField, "b"});
}

TEST_CASE("a CR LF across two blocks is one line end")
{
    const std::string filled(65535, 'x');
    CHECK(fieldsOf(filled + "\r\nb") == std::vector<std::string>{filled, "b"});
}

TEST_CASE("a read after the last field is error 62")
{
    FakeWorld world;
    world.files.put("C:\\SUITE\\x.txt", "a");
    FieldInput file(world.platform, "C:\\SUITE\\x.txt");
    CHECK(file.next() == "a");
    CHECK(errorOf([&] { (void)file.next(); }) == 62);
}

TEST_CASE("a missing file is error 53 at the opening")
{
    FakeWorld world;
    CHECK(errorOf([&] { const FieldInput file(world.platform, "C:\\SUITE\\none.txt"); }) == 53);
}

TEST_CASE("a failed read goes to the caller")
{
    FakeWorld world;
    BrokenFiles files;
    const Platform platform{world.boxes,     world.windows, world.database, world.profile,   files,
                            world.processes, world.clock,   world.locale,   world.automation};
    FieldInput file(platform, "x");
    CHECK(file.next() == "a");
    CHECK(errorOf([&] { (void)file.next(); }) == 57);
}
