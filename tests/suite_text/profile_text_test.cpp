#include "suite_text/profile_text.h"

#include <string>

#include <doctest/doctest.h>

using namespace inin;
using namespace std::string_literals;

namespace {

std::string textOf(const std::string &bytes, const std::string &section = "s", const std::string &key = "k")
{
    return profileString(bytes, section, key, "", 256);
}

std::string written(const std::string &bytes, const std::string &section, const std::string &key,
                    const std::string &value)
{
    return profileWrite(bytes, section, key, value).value();
}

} // namespace

TEST_CASE("a number is the leading integer of the value")
{
    struct Row {
        std::string value;
        std::int32_t number;
    };
    const Row rows[] = {
        {"12abc", 12}, {"0x10", 0}, {"-0x10", 0}, {"0b1", 0}, {"", 0},    {"x", 0},   {"+5", 5}, {"- 5", 0},
        {"\" 7\"", 7}, {"-1", -1},  {"1 2", 1},   {"'3'", 3}, {"0o7", 0}, {"1.9", 1}, {"２", 0}, {"-0", 0},
    };
    for (const Row &row : rows) {
        INFO(row.value);
        CHECK(profileInt("[s]\r\nk=" + row.value + "\r\n", "s", "k", 99) == row.number);
    }
}

TEST_CASE("a number outside 32 bits wraps")
{
    CHECK(profileInt("[s]\r\nk=2147483648\r\n", "s", "k", 0) == -2147483647 - 1);
    CHECK(profileInt("[s]\r\nk=18446744073709551617\r\n", "s", "k", 0) == 1);
}

TEST_CASE("the default is returned for a missing file, section, key and value")
{
    CHECK(profileInt("", "s", "k", 7) == 7);
    CHECK(profileInt("[t]\r\nk=1\r\n", "s", "k", 7) == 7);
    CHECK(profileInt("[s]\r\nm=1\r\n", "s", "k", 7) == 7);
    CHECK(profileInt("[s]\r\nk\r\n", "s", "k", 7) == 7);
    CHECK(profileInt("[s]\r\nk=1\r\n", std::nullopt, "k", 7) == 7);
    CHECK(profileInt("[s]\r\nk=1\r\n", "s", std::nullopt, 7) == 7);
    CHECK(profileString("[s]\r\nm=1\r\n", "s", "k", "\x82\xA0  ", 256) == "\x82\xA0");
    CHECK(profileString("[s]\r\nk=\r\n", "s", "k", "x", 256) == "");
}

TEST_CASE("an empty key matches no blank line")
{
    CHECK(textOf("[s]\r\n\r\nk=1\r\n", "s", "") == "");
    CHECK(written("[s]\r\n\r\nk=1\r\n", "s", "", "v") == "[s]\r\n\r\nk=1\r\n=v\r\n");
}

TEST_CASE("a value ends at its first NUL")
{
    CHECK(textOf("[s]\r\nk=a\0b\r\n"s) == "a");
}

TEST_CASE("0x1A around a name or value counts as a blank")
{
    const std::string bytes = "\x1A[\x1As \x1A]\x1A\r\n \x1Ak\x1A =\x1A\x31\x1A\r\n\x1A\r\n\x1A";
    CHECK(textOf(bytes) == "1");
    CHECK(textOf(bytes, "\x1As", "k\x1A") == "1");
    CHECK(profileInt(bytes, "s", "k", 99) == 1);
    CHECK(textOf("[s]\r\nk=\" 1\x1A\"\x1A") == " 1\x1A");
    CHECK(written("[s]\r\nx=1\r\n\x1A", "s", "k", "v") == "[s]\r\nx=1\r\nk=v\r\n\x1A");
}

TEST_CASE("a NUL ends the name of a section or key")
{
    CHECK(textOf("[s\0t]\r\nk=1\r\n"s) == "1");
    CHECK(textOf("[s\0]t]\r\nk=1\r\n"s) == "1");
    CHECK(textOf("[s]\r\nk\0x=1\r\n"s) == "1");
    CHECK(textOf("[s]\r\nk=1\r\n", "s\0t"s, "k\0x"s) == "1");
    CHECK(textOf("\0[s]\r\nk=1\r\n"s) == "");
    // The blanks around the name are trimmed before the NUL is searched.
    CHECK(textOf("[s]\r\nk \0=1\r\n"s) == "");
    CHECK(profileString("[s\0t]\r\n"s, std::nullopt, std::nullopt, "", 256) == "s\0"s);
    CHECK(written("[s]\r\nk\0x\r\n"s, "s", "k", "v") == "[s]\r\nk=v\r\n");
    CHECK(written("[s]\r\n", "s", "k\0x"s, "v\0w"s) == "[s]\r\nk=v\r\n");
}

TEST_CASE("a quoted value that a NUL ends loses its quotes")
{
    CHECK(textOf("[s]\r\nk=\"1\"\0x\r\n"s) == "1");
}

TEST_CASE("a written value loses leading blanks and keeps trailing ones")
{
    for (const std::string value : {" v \t", "\t\v v \t", "\r\n v \t", "\x1Av \t"}) {
        CHECK(written("[s]\r\nk=1\r\n", "s", "k", value) == "[s]\r\nk=v \t\r\n");
        CHECK(written("[s]\r\n", "s", "k", value) == "[s]\r\nk=v \t\r\n");
        CHECK(written("[s]\r\nk\r\n", "s", "k", value) == "[s]\r\nk=v \t\r\n");
    }
    CHECK(written("[s]\r\n", "s", "k", "\x81\x40v") == "[s]\r\nk=\x81\x40v\r\n");
}

TEST_CASE("a list of names that is too long is cut and still ends in two NULs")
{
    const std::string bytes = "[s]\r\nabcd=1\r\nefgh=2\r\n";
    CHECK(profileString(bytes, "s", std::nullopt, "", 256) == "abcd\0efgh\0"s);
    CHECK(profileString(bytes, "s", std::nullopt, "", 11) == "abcd\0efgh\0"s);
    CHECK(profileString(bytes, "s", std::nullopt, "", 10) == "abcd\0efg\0"s);
    CHECK(profileString(bytes, "s", std::nullopt, "", 2) == "\0"s);
    CHECK(profileString(bytes, "s", std::nullopt, "", 1) == "");
    CHECK(profileString("[\x88\xCF]\r\n", std::nullopt, std::nullopt, "", 3) == "\0"s);
    CHECK(profileString(bytes, "missing", std::nullopt, "", 256) == "");
}

TEST_CASE("a write keeps line ends, blank lines, comments, order and spelling of everything else")
{
    const std::string before = "; top\n\n[ A ]\nX = 1\r\n\r\n  Key\t=  old ; why\n; c=1\n\n[b]\ny=2";
    CHECK(written(before, "a", "KEY", "new") == "; top\n\n[ A ]\nX = 1\r\n\r\n  Key\t=new\n; c=1\n\n[b]\ny=2");
    CHECK(written(before, "a", "n", "3") ==
          "; top\n\n[ A ]\nX = 1\r\n\r\n  Key\t=  old ; why\n; c=1\nn=3\r\n\n[b]\ny=2");
    CHECK(written(before, "b", "n", "3") ==
          "; top\n\n[ A ]\nX = 1\r\n\r\n  Key\t=  old ; why\n; c=1\n\n[b]\ny=2\r\nn=3\r\n");
    CHECK(profileWrite(before, "a", "x", std::nullopt) == "; top\n\n[ A ]\n\r\n  Key\t=  old ; why\n; c=1\n\n[b]\ny=2");
    CHECK(profileWrite(before, "a", std::nullopt, std::nullopt) == "; top\n\n[b]\ny=2");
}

TEST_CASE("a section and a key with Japanese names are added to a file with other ones")
{
    // [委任状] 対象期間=1
    CHECK(written("[a]\r\nx=1\r\n\r\n", "\x88\xCF\x94\x43\x8F\xF3", "\x91\xCE\x8F\xDB\x8A\xFA\x8A\xD4", "1") ==
          "[a]\r\nx=1\r\n\r\n[\x88\xCF\x94\x43\x8F\xF3]\r\n\x91\xCE\x8F\xDB\x8A\xFA\x8A\xD4=1\r\n");
}

TEST_CASE("a trail byte is never a bracket, an equals sign or a blank")
{
    // [ソ] with the key ー (81 5B), then ＝ inside a key, which is 81 81.
    CHECK(textOf("[\x83\x5C]\r\n\x81\x5B=1\r\n", "\x83\x5C", "\x81\x5B") == "1");
    CHECK(textOf("[\x83\x5D]\r\nk=1\r\n", "\x83\x5D") == "1");
    // 83 3D is not a character; its second byte does not end the key either.
    CHECK(textOf("[s]\r\n\x83\x3Dk=1\r\n", "s", "\x83\x3Dk") == "1");
    CHECK(textOf("[s]\r\n\x83\x3Dk=1\r\n", "s", "k") == "");
}

TEST_CASE("names ignore case in ASCII letters but not in trail bytes")
{
    // ア is 83 41 and チ is 83 61: their trail bytes differ like "A" and "a".
    CHECK(textOf("[s]\r\n\x83\x41=1\r\n", "s", "\x83\x41") == "1");
    CHECK(textOf("[s]\r\n\x83\x41=1\r\n", "s", "\x83\x61") == "");
    CHECK(textOf("[S]\r\nK=1\r\n") == "1");
}

TEST_CASE("a value of 255 bytes is complete, one of 256 bytes is cut, and a double byte is never split")
{
    CHECK(textOf("[s]\r\nk=" + std::string(255, 'x')) == std::string(255, 'x'));
    CHECK(textOf("[s]\r\nk=" + std::string(256, 'x')) == std::string(255, 'x'));
    CHECK(textOf("[s]\r\nk=" + std::string(253, 'x') + "\x88\xCF") == std::string(253, 'x') + "\x88\xCF");
    CHECK(textOf("[s]\r\nk=" + std::string(254, 'x') + "\x88\xCF") == std::string(254, 'x'));
}

TEST_CASE("a value that ends in half a character does not absorb the key that is added after it")
{
    CHECK(written("[s]\nx=1\x81\n", "s", "k", "v") == "[s]\nx=1\x81\n\r\nk=v\r\n");
    CHECK(textOf("[s]\nx=1\x81\n\r\nk=v\r\n") == "v");
}

TEST_CASE("a file with a byte order mark is read in its encoding")
{
    const std::string files[] = {
        "\xEF\xBB\xBF[委]\r\nk=状7\r\n",
        "\xFF\xFE[\0\xD4\x59]\0\r\0\n\0k\0=\0\xB6\x72\x37\0\r\0\n\0"s,
        "\xFE\xFF\0[\x59\xD4\0]\0\r\0\n\0k\0=\x72\xB6\0\x37\0\r\0\n"s,
    };
    for (const std::string &bytes : files) CHECK(textOf(bytes, "\x88\xCF") == "\x8F\xF3\x37");
}

TEST_CASE("a write to a file with a byte order mark keeps its encoding")
{
    CHECK(written("\xEF\xBB\xBF[委]\r\nk=状\r\n", "\x88\xCF", "k", "\x93\xE0") == "\xEF\xBB\xBF[委]\r\nk=内\r\n");
    CHECK(written("\xFF\xFE[\0a\0]\0"s, "a", "k", "\xB1") == "\xFF\xFE[\0a\0]\0\r\0\n\0k\0=\0\x71\xFF\r\0\n\0"s);
    CHECK(written("\xFE\xFF\0[\0a\0]"s, "a", "k", "\x93\xE0") == "\xFE\xFF\0[\0a\0]\0\r\0\n\0k\0=\x51\x85\0\r\0\n"s);
}

TEST_CASE("a write that would lose a character of a file with a byte order mark is refused")
{
    CHECK(profileWrite("\xEF\xBB\xBF; café\r\n", "s", "k", "v") == std::nullopt);
    CHECK(profileWrite("\xFF\xFE;\0\x42\xD8\xB7\xDF"s, "s", "k", "v") == std::nullopt);
    CHECK(profileWrite("\xFF\xFE;\0\xB7\xDF"s, "s", "k", "v") == std::nullopt);
    CHECK(profileWrite("\xFF\xFE;\0;"s, "s", "k", "v") == std::nullopt);
}

TEST_CASE("reading arbitrary bytes ends and finds nothing")
{
    const std::string files[] = {
        "no equals sign at all",
        std::string(1000, '\0'),
        "[",
        "]",
        "=",
        "[]\r\n=\r\n",
        "\xEF\xBB\xBF",
        "\xFE\xFF",
        std::string(999, '\x81'),
        std::string(998, '[') + "\x81",
    };
    for (const std::string &bytes : files) {
        CHECK(textOf(bytes) == "");
        CHECK(profileInt(bytes, "s", "k", 3) == 3);
        CHECK(textOf(written(bytes, "s", "k", "v")) == "v");
    }
}
