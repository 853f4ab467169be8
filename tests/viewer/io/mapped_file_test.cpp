#include "viewer/io/mapped_file.h"

#include "support/temp_folder.h"
#include "viewer/io/file_stamp.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;

TEST_CASE("a mapped file has the bytes of the file, and a missing or empty one has none")
{
    const TempFolder folder;
    CHECK(MappedFile(folder.put("髙橋𠮷.ttf", "whole")).bytes() == "whole");
    CHECK(MappedFile(folder.put("empty", "")).bytes().empty());
    CHECK(MappedFile(folder / "missing").bytes().empty());
}

TEST_CASE("the stamp of a path in any case has the size of the file")
{
    const TempFolder folder;
    folder.put("髙橋𠮷.csv", "whole");
    CHECK(stampOf(folder / "髙橋𠮷.CSV").exists);
    CHECK(stampOf(folder / "髙橋𠮷.CSV").size == 5);
    CHECK_FALSE(stampOf(folder / "x").exists);
}
