#include "transfer/run_record.h"

#include <doctest/doctest.h>

#include <string>

using namespace inin;

TEST_CASE("the record of a complete run has the size of the letter file and the number of letters")
{
    for (const char *text : {"PrintInin run 1\r\nholder PC-1 1234\r\ncsv 54321\r\nletters 273\r\n",
                             "PrintInin run 1\nletters 273\ncsv 54321\n"}) {
        CAPTURE(std::string(text));
        const auto run = readRunRecord(text);
        REQUIRE(run);
        CHECK(run->fileSize == 54321);
        CHECK(run->letters == 273);
    }
}

TEST_CASE("a record of an incomplete run, of another format or with an invalid number is ignored")
{
    for (const char *text :
         {"", "PrintInin run 1\n", "PrintInin run 1\nholder PC-1 1\n", "PrintInin run 1\ncsv 5\n",
          "PrintInin run 1\nletters 5\n", "PrintInin run 2\ncsv 5\nletters 5\n", "PrintInin run 10\ncsv 5\nletters 5\n",
          "csv 5\nletters 5\n", "PrintInin run 1\ncsv 5\nletters 27", "PrintInin run 1\ncsv 5\ncsv 5\nletters 5\n",
          "PrintInin run 1\ncsv 5\nletters 5\nletters 6\n", "PrintInin run 1\ncsv 5\nletters \n",
          "PrintInin run 1\ncsv 5\nletters -5\n", "PrintInin run 1\ncsv 5\nletters 5x\n",
          "PrintInin run 1\ncsv 5 \nletters 5\n", "PrintInin run 1\ncsv 99999999999999999999\nletters 5\n"}) {
        CAPTURE(std::string(text));
        CHECK_FALSE(readRunRecord(text));
    }
}

TEST_CASE("a record has the path of the letter file with another extension")
{
    CHECK(runRecordPath("C:\\TMP\\委任状.csv") == "C:\\TMP\\委任状.run");
    CHECK(runRecordPath("./TMP.d/委任状") == "./TMP.d/委任状.run");
    CHECK(runRecordPath("a.b.csv") == "a.b.run");
}

TEST_CASE("a run writes its holder at the start, and the numbers when the CSV is finished")
{
    CHECK(runStartLines({"RECEPTION1", "1234"}) == "PrintInin run 1\nholder RECEPTION1 1234\n");
    CHECK(runEndLines({54321, 273}) == "csv 54321\nletters 273\n");
}

TEST_CASE("the holder is read from the record of a run that has not ended")
{
    const auto holder = readRunHolder("PrintInin run 1\nholder 受付 1 1234\ncsv 5");
    REQUIRE(holder);
    CHECK(holder->computer == "受付 1");
    CHECK(holder->process == "1234");
    for (const char *text :
         {"", "PrintInin run 1\n", "PrintInin run 1\nholder PC 12", "PrintInin run 1\nholder PC\n"}) {
        CAPTURE(std::string(text));
        CHECK_FALSE(readRunHolder(text));
    }
}
