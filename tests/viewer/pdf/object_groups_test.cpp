#include "runtime/runtime_error.h"
#include "support/temp_folder.h"
#include "system/whole_file.h"
#include "viewer/pdf/object_groups.h"
#include "viewer/pdf/pdf_objects.h"
#include "viewer/pdf/pdf_text.h"

#include <doctest/doctest.h>
#include <fmt/format.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

/// A group of a head and its parts, which refer to it and to an object outside the group.
ObjectPattern headWithParts(std::size_t parts)
{
    ObjectPattern pattern;
    pattern.beginObject();
    pattern.add("<</Type/Head/Outside ");
    pattern.addReference(parts + 1);
    pattern.add(">> ");
    for (std::size_t part = 1; part <= parts; ++part) {
        pattern.beginObject();
        pattern.add("<</Type/Part/Head ");
        pattern.addReference(0);
        pattern.add("/Number " + std::to_string(part) + ">> ");
    }
    return pattern;
}

} // namespace

TEST_CASE("another program reads the objects of groups in streams, whether one group or many have room in a stream")
{
    for (const std::size_t parts : {0U, 1U, 40U, 1200U}) {
        CAPTURE(parts);
        constexpr int kGroups = 60;
        const TempFolder folder;
        const std::string path = folder / "groups.pdf";
        std::vector<int> heads;
        AtomicFile out(path);
        PdfFile file(out);
        const int catalog = file.reserve(), pages = file.reserve(), info = file.reserve();
        ObjectGroups groups(file, headWithParts(parts));
        for (int group = 0; group < kGroups; ++group) {
            file.skipToMultipleOf(10);
            std::vector<int> numbers;
            for (std::size_t i = 0; i <= parts; ++i) numbers.push_back(file.reserve());
            heads.push_back(numbers.front());
            CHECK(numbers.front() % 10 == 0);
            numbers.push_back(pages);
            groups.add(numbers);
        }
        groups.flush();
        std::string all = "<</Type/Catalog/Pages " + std::to_string(pages) + " 0 R/Heads[";
        for (const int head : heads) all += std::to_string(head) + " 0 R ";
        file.writeObject(catalog, all + "]>>");
        file.writeObject(pages, "<</Type/Pages/Count 0/Kids[]>>");
        // From version 12 on, qpdf reads no more objects than a third of the bytes of the file.
        constexpr std::size_t kBytesPerObject = 4, kUnused = 10;
        const std::string filling(kBytesPerObject * kGroups * (parts + kUnused), 'x');
        file.writeObject(info, "<</Title(" + filling + ")>>");
        file.close(catalog, info);
        out.commit();

        // The copy has only what the catalogue refers to: the heads. The file itself has the parts too.
        const PdfObjects read(path);
        CHECK(read.having("/Type /Head").size() == kGroups);
        CHECK(PdfObjects::reference(read.object(read.having("/Type /Head").back()), "Outside") ==
              PdfObjects::reference(read.catalog(), "Pages"));
        for (const int head : {heads.front(), heads.back()}) {
            const auto shown = [&](std::size_t object) {
                const std::string number = std::to_string(head + static_cast<int>(object));
                const std::string command = fmt::format("qpdf --show-object={} '{}' > '{}.out'", number, path, path);
                REQUIRE(std::system(command.c_str()) == 0);
                return bytesOf(path + ".out");
            };
            if (parts > 0)
                CHECK(shown(parts) == "<< /Head " + std::to_string(head) + " 0 R /Number " + std::to_string(parts) +
                                          " /Type /Part >>\n");
        }
    }
}

TEST_CASE("a file refuses more objects than readers accept")
{
    const TempFolder folder;
    AtomicFile out(folder / "a.pdf");
    PdfFile file(out);
    file.skipToMultipleOf(8'388'607);
    CHECK(file.reserve() == 8'388'607);
    CHECK_THROWS_AS(static_cast<void>(file.reserve()), RuntimeError);
    file.skipToMultipleOf(10);
    CHECK_THROWS_AS(static_cast<void>(file.reserve()), RuntimeError);
}

TEST_CASE("a file refuses more objects in one stream than its table has digits for")
{
    const TempFolder folder;
    AtomicFile out(folder / "a.pdf");
    PdfFile file(out);
    const int stream = file.reserve(), object = file.reserve();
    CHECK_NOTHROW(file.placeInStream(object, stream, 65'535));
    CHECK_THROWS_AS(file.placeInStream(object, stream, 65'536), RuntimeError);
}

TEST_CASE("a padded number has blanks before it, and is never shortened when it is appended")
{
    struct Case {
        std::size_t number;
        const char *text;
    };
    for (const Case &each : {Case{0, "   0"}, {7, "   7"}, {1234, "1234"}, {12345, "12345"}}) {
        std::string out = "x";
        appendPadded(out, each.number, 4);
        CHECK(out.substr(1) == each.text);
    }
    std::string field = "#####";
    writePadded(field, 120);
    CHECK(field == "  120");
    writePadded(field, 0);
    CHECK(field == "    0");
}
