// The columns together: their list, all filled, all NULL, each one missing or failing.

#include "master/patient_columns.h"
#include "master/patient_fixture.h"
#include "master/patient_record.h"

#include <doctest/doctest.h>

#include <optional>

using namespace inin;

namespace {

/// All columns except one with their values.
PatientCells filledCells(const PatientCase *left = nullptr, const std::optional<Variant> &instead = {})
{
    PatientCells cells;
    for (const PatientCase &row : patientCases()) {
        if (&row != left)
            cells.emplace_back(row.column, row.value);
        else if (instead)
            cells.emplace_back(row.column, *instead);
    }
    return cells;
}

RIYOUSHA_REC filledRecord(const PatientCase *left = nullptr)
{
    RIYOUSHA_REC rec;
    for (const PatientCase &row : patientCases())
        if (&row != left) row.expect(rec);
    return rec;
}

PatientCells cellsOf(Stored stored, const Variant &value)
{
    PatientCells cells;
    for (const PatientCase &row : patientCases())
        if (row.stored == stored) cells.emplace_back(row.column, value);
    return cells;
}

char letterOf(NullRule rule)
{
    return rule == NullRule::guarded ? 'G' : rule == NullRule::empty ? 'E' : 'Z';
}

} // namespace

TEST_CASE("the table has 181 columns in the suite's order with their rules")
{
    REQUIRE(patientColumns().size() == 181);
    REQUIRE(patientCases().size() == 181);
    for (std::size_t i = 0; i < 181; ++i) {
        CAPTURE(i + 1);
        CHECK(std::string(patientColumns()[i].name) == patientCases()[i].column);
        CHECK(letterOf(patientColumns()[i].rule) == patientCases()[i].rule);
    }
}

TEST_CASE("a row with all 181 columns filled fills the whole record")
{
    CHECK(recordOf(filledCells()) == filledRecord());
}

TEST_CASE("a row with all 181 columns NULL leaves the record blank except for fixed texts of blanks")
{
    PatientCells cells;
    for (const PatientCase &row : patientCases()) cells.emplace_back(row.column, Null{});
    const RIYOUSHA_REC rec = recordOf(cells);

    RIYOUSHA_REC expected;
    for (FixedText<8> RIYOUSHA_REC::*field :
         {&RIYOUSHA_REC::cYubinNo, &RIYOUSHA_REC::cSetaiYubinNo, &RIYOUSHA_REC::cHTIryoYubin,
          &RIYOUSHA_REC::cSyoumeiYubin, &RIYOUSHA_REC::cSinseiYubin})
        expected.*field = "        ";
    for (FixedText<14> RIYOUSHA_REC::*field :
         {&RIYOUSHA_REC::cTelNo, &RIYOUSHA_REC::cFaxNo, &RIYOUSHA_REC::cMobNo, &RIYOUSHA_REC::cSetaiTelNo,
          &RIYOUSHA_REC::cSetaiFaxNo, &RIYOUSHA_REC::cSetaiMobNo, &RIYOUSHA_REC::cSyoumeiTel,
          &RIYOUSHA_REC::cSinseiTel})
        expected.*field = "              ";
    CHECK(rec == expected);
}

TEST_CASE("a row without any known column is still a patient, with a blank record")
{
    CHECK(recordOf({{"tExpireDay", Date(45000)}}) == RIYOUSHA_REC());
}

TEST_CASE("a missing column leaves its field unchanged and all others are filled")
{
    for (const PatientCase &row : patientCases()) {
        CAPTURE(row.column);
        CHECK(recordOf(filledCells(&row)) == filledRecord(&row));
    }
}

TEST_CASE("a column that does not convert leaves its field unchanged and all others are filled")
{
    // Bytes convert neither to text nor to number nor to date.
    const Variant bytes = Binary{std::byte{1}};
    for (const PatientCase &row : patientCases()) {
        CAPTURE(row.column);
        CHECK(recordOf(filledCells(&row, bytes)) == filledRecord(&row));
    }
}

TEST_CASE("a column after the failing ones is still read")
{
    PatientCells cells;
    for (const PatientCase &row : patientCases()) cells.emplace_back(row.column, Binary{std::byte{1}});
    cells.back() = {"cFMCode", 7};
    RIYOUSHA_REC expected;
    expected.cFMCode = 7;
    CHECK(recordOf(cells) == expected);
}

TEST_CASE("a number beyond 16 bits leaves every 16-bit field at 0")
{
    CHECK(cellsOf(Stored::whole16, 32768).size() == 44);
    CHECK(recordOf(cellsOf(Stored::whole16, 32768)) == RIYOUSHA_REC());
    CHECK(recordOf(cellsOf(Stored::whole16, -32769)) == RIYOUSHA_REC());
}

TEST_CASE("a number beyond 32 bits leaves every 32-bit field at 0")
{
    CHECK(recordOf(cellsOf(Stored::whole32, 2147483648.0)) == RIYOUSHA_REC());
}

TEST_CASE("a non-numeric text leaves every number at 0")
{
    CHECK(recordOf(cellsOf(Stored::whole16, "無し")) == RIYOUSHA_REC());
    CHECK(recordOf(cellsOf(Stored::whole32, "無し")) == RIYOUSHA_REC());
}

TEST_CASE("a text without a date leaves every date at zero")
{
    CHECK(recordOf(cellsOf(Stored::date, "無し")) == RIYOUSHA_REC());
}
