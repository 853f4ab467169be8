#include "printing/extraction.h"
#include "printing/letter_reader.h"

namespace inin {

namespace {

/// Deliberate: four of the five extractions show this heading, which is the name of none of them.
constexpr const char *kFailureHeading = "iGetKanjaData でエラー";
constexpr std::string_view kHeadWithNumber =
    "SELECT HOKENJA.cName as HokenName, RIYOUSHA.cName AS RiyouName, RIYOUSHA.cAdress1 as RiyouAdd, RIYOUSHA.nIDNo, ";
constexpr std::string_view kAccount = " CORP.iKozaType, CORP.cKozaBangou, CORP.cKozaMeigi1, ";
/// Only the extractions by day choose by the staff member of the visit, the others by the patient's main one.
constexpr std::string_view kMainStaff = " AND RIYOUSHA.nTantou = ";
/// Deliberate: no second key. The letters of one staff member are in the order of the database.
constexpr std::string_view kOrderByMainStaff = " ORDER BY RIYOUSHA.nTantou";

constexpr SqlPiece kLatestPlannedOfMonth[] = {
    {" AND s1.iKyotenCd = ", AppendedValue::iKyotenCd},
    {" AND s1.iKyotenEb = ", AppendedValue::iKyotenEb},
    {" AND s1.nIDRiyoushaNo = RIYOUSHA.nIDNo "},
    {" AND s1.nDate = (select max(nDate) from SCHEDULE s2 where s1.nIDRiyoushaNo = s2.nIDRiyoushaNo "},
    {" AND s2.iKyotenCd = ", AppendedValue::iKyotenCd},
    {" AND s2.iKyotenEb = ", AppendedValue::iKyotenEb},
    {" AND s2.nDate BETWEEN ", AppendedValue::lowerBound},
    {" AND ", AppendedValue::upperBound},
    {")"},
};
constexpr SqlPiece kLatestActualOfMonth[] = {
    {" AND j1.iKyotenCd = ", AppendedValue::iKyotenCd},
    {" AND j1.iKyotenEb = ", AppendedValue::iKyotenEb},
    {" AND j1.nRiyoushaIDNo = RIYOUSHA.nIDNo "},
    {" AND j1.tServicyDayStart = (select max(tServicyDayStart) from JISSEKI j2 where j1.nRiyoushaIDNo = "
     "j2.nRiyoushaIDNo "},
    {" AND j2.iKyotenCd = ", AppendedValue::iKyotenCd},
    {" AND j2.iKyotenEb = ", AppendedValue::iKyotenEb},
    {" AND j2.tServicyDayStart >=  '", AppendedValue::lowerBound},
    {"' "},
    {" AND j2.tServicyDayStart <  '", AppendedValue::upperBound},
    {"') "},
};
constexpr SqlPiece kPlannedOnDay[] = {
    {" AND SCHEDULE.iKyotenCd = ", AppendedValue::iKyotenCd},
    {" AND SCHEDULE.iKyotenEb = ", AppendedValue::iKyotenEb},
    {" AND SCHEDULE.nIDRiyoushaNo = RIYOUSHA.nIDNo "},
    {" AND SCHEDULE.nDate = ", AppendedValue::lowerBound},
};
constexpr SqlPiece kActualOnDay[] = {
    {" AND JISSEKI.iKyotenCd = ", AppendedValue::iKyotenCd},
    {" AND JISSEKI.iKyotenEb = ", AppendedValue::iKyotenEb},
    {" AND JISSEKI.nRiyoushaIDNo = RIYOUSHA.nIDNo "},
    {" AND JISSEKI.tServicyDayStart >= '", AppendedValue::lowerBound},
    {"' "},
    {" AND JISSEKI.tServicyDayStart < '", AppendedValue::upperBound},
    {"' "},
};
/// Deliberate: ended patients are left out whatever the state of chkExpireDay.
constexpr SqlPiece kNotEnded[] = {{" AND RIYOUSHA.tExpireDay IS NULL  "}};

constexpr SqlPiece kScheduleOfPatient[] = {
    {"SELECT * FROM SCHEDULE "},
    {" WHERE "},
    {"     iKyotenCd = ", AppendedValue::iKyotenCd},
    {" AND iKyotenEb = ", AppendedValue::iKyotenEb},
    {" AND nIDRiyoushaNo = ", AppendedValue::nKanjaNo},
    {" AND nDate BETWEEN ", AppendedValue::lowerBound},
    {" AND ", AppendedValue::upperBound},
    {" ORDER BY nDate DESC"},
};
constexpr SqlPiece kJissekiOfPatient[] = {
    {"SELECT * FROM JISSEKI "},
    {" WHERE "},
    {"     iKyotenCd = ", AppendedValue::iKyotenCd},
    {" AND iKyotenEb = ", AppendedValue::iKyotenEb},
    {" AND nRiyoushaIDNo = ", AppendedValue::nKanjaNo},
    {" AND tServicyDayStart >= '", AppendedValue::lowerBound},
    {"' "},
    {" AND tServicyDayStart < '", AppendedValue::upperBound},
    {"' "},
    {" ORDER BY tServicyDayStart DESC"},
};

} // namespace

const LastVisitRule kLastScheduleDay{
    .procedure = "getLastScheduleDay",
    .pieces = kScheduleOfPatient,
    .column = "nDate",
    .bounds = &VisitMonth::scheduleFromZero,
    .dayOf = &VisitMonth::dayOfNumber,
};

const LastVisitRule kLastJissekieDay{
    .procedure = "getLastJissekieDay",
    .pieces = kJissekiOfPatient,
    .column = "tServicyDayStart",
    .bounds = &VisitMonth::jissekiByDates,
    .dayOf = &VisitMonth::dayOfText,
};

const ExtractionRule kKanjaDataMonth{
    .procedure = "iGetKanjaDataMonth",
    .openFailureHeading = kFailureHeading,
    .head = "SELECT HOKENJA.cName as HokenName, RIYOUSHA.cName AS RiyouName, RIYOUSHA.cAdress1 as RiyouAdd, "
            " s1.nDate, ",
    .singleHead = {},
    .accountPiece = " CORP.iKozaType, CORP.cKozaBangou, CORP.cKozaMeigi1, s1.nDate, ",
    .from = " FROM HOKENJA, SCHEDULE s1, RIYOUSHA ",
    .visitCondition = kLatestPlannedOfMonth,
    .staffColumn = kMainStaff,
    // Deliberate: chkExpireDay has an effect on this extraction only.
    .openEndedOnly = " AND RIYOUSHA.tExpireday is NULL",
    .order = kOrderByMainStaff,
    .bounds = &TargetDate::scheduleMonth,
    .lastVisit = nullptr,
    .lastTreatmentDay = &LetterReader::lastDayOfSchedule,
};

const ExtractionRule kKanjaDataMonth_Jisseki{
    .procedure = "iGetKanjaDataMonth_Jisseki",
    .openFailureHeading = kFailureHeading,
    .head = "SELECT HOKENJA.cName as HokenName,RIYOUSHA.nIDNo, RIYOUSHA.cName AS RiyouName, RIYOUSHA.cAdress1 as "
            "RiyouAdd, "
            " j1.tServicyDayStart, ",
    .singleHead = {},
    .accountPiece = " CORP.iKozaType, CORP.cKozaBangou, CORP.cKozaMeigi1, j1.tServicyDayStart, ",
    .from = " FROM  HOKENJA, JISSEKI j1, RIYOUSHA ",
    .visitCondition = kLatestActualOfMonth,
    .staffColumn = kMainStaff,
    .openEndedOnly = {},
    .order = kOrderByMainStaff,
    .bounds = &TargetDate::jissekiMonth,
    .lastVisit = nullptr,
    .lastTreatmentDay = &LetterReader::lastDayOfJisseki,
};

const ExtractionRule kKanjaDataDay{
    .procedure = "iGetKanjaDataDay",
    .openFailureHeading = kFailureHeading,
    .head = kHeadWithNumber,
    .singleHead = {},
    .accountPiece = kAccount,
    .from = " FROM HOKENJA, SCHEDULE, RIYOUSHA ",
    .visitCondition = kPlannedOnDay,
    .staffColumn = " AND SCHEDULE.nIDStaffNo = ",
    .openEndedOnly = {},
    .order = " ORDER BY SCHEDULE.nIDStaffNo",
    .bounds = &TargetDate::scheduleDay,
    .lastVisit = &kLastScheduleDay,
    .lastTreatmentDay = &LetterReader::targetDay,
};

const ExtractionRule kKanjaDataDay_Jisseki{
    .procedure = "iGetKanjaDataDay_Jisseki",
    .openFailureHeading = "iGetKanjaDataDay_Jisseki でエラー",
    .head = kHeadWithNumber,
    .singleHead = {},
    .accountPiece = kAccount,
    .from = " FROM HOKENJA, JISSEKI, RIYOUSHA ",
    .visitCondition = kActualOnDay,
    .staffColumn = " AND JISSEKI.nStaffIDNo = ",
    .openEndedOnly = {},
    .order = " ORDER BY JISSEKI.nStaffIDNo",
    .bounds = &TargetDate::jissekiDay,
    .lastVisit = &kLastJissekieDay,
    .lastTreatmentDay = &LetterReader::targetDay,
};

const ExtractionRule kKanjaDataNoPeriod{
    .procedure = "iGetKanjaDataNoPeriod",
    .openFailureHeading = kFailureHeading,
    .head = kHeadWithNumber,
    .singleHead = "SELECT TOP 1 HOKENJA.cName as HokenName, RIYOUSHA.cName AS RiyouName, RIYOUSHA.cAdress1 as "
                  "RiyouAdd, RIYOUSHA.nIDNo, ",
    .accountPiece = kAccount,
    .from = " FROM HOKENJA, RIYOUSHA ",
    .visitCondition = kNotEnded,
    .staffColumn = kMainStaff,
    .openEndedOnly = {},
    .order = kOrderByMainStaff,
    .bounds = &TargetDate::noBounds,
    .lastVisit = nullptr,
    .lastTreatmentDay = &LetterReader::endOfPeriod,
};

} // namespace inin
