// The read from a site's tables on the embedded database.

#include "master/patient_columns.h"
#include "runtime/format.h"
#include "support/embedded_world.h"

#include <doctest/doctest.h>

using namespace inin;

namespace {

std::string literal(const Variant &value, const Regional &regional)
{
    if (value.isNull()) return "NULL";
    if (const auto *text = value.getIf<std::string>()) return "'" + *text + "'";
    if (const auto *number = value.getIf<std::int32_t>()) return std::to_string(*number);
    return "'" + formatText(value, "yyyy-mm-dd", regional) + " 00:00:00'";
}

struct EmbeddedPatients : EmbeddedWorld {
    /// A patient of branch 1, 2 with the values of all columns, or NULL in all except the keys.
    void insert(std::int32_t nIDNo, bool isFilled) const
    {
        std::string columns = "iKyotenCd, iKyotenEb, nIDNo";
        std::string values = "1, 2, " + std::to_string(nIDNo);
        for (const PatientCase &row : patientCases()) {
            if (std::string(row.column) == "nIDNo") continue;
            columns.append(", ").append(row.column);
            values += ", " + literal(isFilled ? row.value : Variant(Null{}), app.regional);
        }
        run("INSERT INTO RIYOUSHA (" + columns + ") VALUES (" + values + ")");
    }
    std::int16_t read(std::int32_t nCode) { return iGetRiyoushaRec(site, nCode, rec); }

    RIYOUSHA_REC rec;
};

RIYOUSHA_REC fullRow()
{
    RIYOUSHA_REC rec;
    for (const PatientCase &row : patientCases()) row.expect(rec);
    return rec;
}

} // namespace

TEST_CASE("a site's patient table has all 181 columns, and a filled row is read back completely")
{
    EmbeddedPatients patients;
    patients.insert(100001, true);
    CHECK(patients.read(100001) == -1);
    CHECK(patients.rec == fullRow());
    CHECK(patients.boxes.shown.empty());
}

TEST_CASE("a row of NULLs is read from a site's patient table")
{
    EmbeddedPatients patients;
    patients.insert(7, false);
    CHECK(patients.read(7) == -1);
    CHECK(patients.rec.nIDNo == 7);
    CHECK(patients.rec.cName.empty());
    CHECK(patients.rec.cTelNo.text() == "              ");
    CHECK(patients.rec.tBirthday == Date(0));
}

TEST_CASE("a patient of another branch or sub-branch is not found")
{
    EmbeddedPatients patients;
    patients.run(
        "INSERT INTO RIYOUSHA (iKyotenCd, iKyotenEb, nIDNo, cName) VALUES (1, 2, 5, 'ここ'), (1, 3, 6, '枝番'),"
        " (2, 2, 7, '拠点')");
    CHECK(patients.read(5) == -1);
    CHECK(patients.rec.cName == "ここ");
    CHECK(patients.read(6) == 0);
    CHECK(patients.read(7) == 0);
    CHECK(patients.read(8) == 0);
    CHECK(patients.rec.cName == "ここ");
    CHECK(patients.boxes.shown.empty());
}

TEST_CASE("patients of a site without the later columns are read all the same")
{
    EmbeddedPatients patients;
    patients.insert(100001, true);
    patients.run("ALTER TABLE RIYOUSHA DROP COLUMN cFMCode; ALTER TABLE RIYOUSHA DROP COLUMN iRoomAnbunUmu;"
                 "ALTER TABLE RIYOUSHA DROP COLUMN cNameRyaku");
    RIYOUSHA_REC expected = fullRow();
    expected.cFMCode = 0;
    expected.cNameRyaku.clear();
    expected.tDouishoSaishutokuTo = Date(40168);
    CHECK(patients.read(100001) == -1);
    CHECK(patients.rec == expected);
}

TEST_CASE("a site without the table has no patient, without a message")
{
    EmbeddedPatients patients;
    patients.run("DROP TABLE RIYOUSHA");
    CHECK(patients.read(1) == 0);
    CHECK(patients.boxes.shown.empty());
}
