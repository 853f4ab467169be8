#include "viewer/ledger/letter_code.h"

#include <doctest/doctest.h>

#include <random>

using namespace inin::viewer;

namespace {

constexpr LetterCode kCode{123'456, 1'234};

} // namespace

TEST_CASE("a code has fifteen digits, the last two of which check the others")
{
    CHECK(codeDigits(kCode) == "123456000123459");
    CHECK(codeText(kCode) == "123456-0001234-59");
    CHECK(readLetterCode("123456000123459") == kCode);
    CHECK(codeDigits({kLastLedger, kLastCodedLetter}).size() == 15);
}

TEST_CASE("a code is read as a person or a scanner types it")
{
    for (const char *const text : {"123456-0001234-59", "１２３４５６－０００１２３４－５９", " 123456 0001234 59\r\n",
                                   "123456ー0001234ー59", "123456‐0001234−59"})
        CHECK_MESSAGE(readLetterCode(text) == kCode, text);
}

TEST_CASE("any other text is not a code")
{
    for (const char *const text : {"", "12345600012342", "1234560001234250", "A23456000123459", "123456-0001234-58",
                                   "012345000123400", "http://example.com/", "123456.0001234.59"})
        CHECK_MESSAGE(!readLetterCode(text), text);
}

TEST_CASE("each wrong digit and each exchange of neighbours is found")
{
    std::mt19937 random(1);
    for (int round = 0; round < 200; ++round) {
        const LetterCode code{std::uniform_int_distribution<std::uint32_t>(kFirstLedger, kLastLedger)(random),
                              std::uniform_int_distribution<std::uint32_t>(1, kLastCodedLetter)(random)};
        const std::string digits = codeDigits(code);
        REQUIRE(readLetterCode(digits) == code);
        for (std::size_t at = 0; at < digits.size(); ++at) {
            for (char digit = '0'; digit <= '9'; ++digit) {
                std::string wrong = digits;
                wrong[at] = digit;
                if (wrong != digits) REQUIRE(!readLetterCode(wrong));
            }
            std::string swapped = digits;
            if (at > 0) std::swap(swapped[at - 1], swapped[at]);
            if (swapped != digits) REQUIRE(!readLetterCode(swapped));
        }
    }
}
