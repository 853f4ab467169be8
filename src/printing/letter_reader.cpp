#include "printing/letter_reader.h"

#include "common/helpers.h"
#include "runtime/conversion.h"
#include "runtime/format.h"

namespace inin {

namespace {

/// Indexed by Column.
constexpr std::string_view kColumnNames[] = {
    "nIDNo",         "HokenName",   "RiyouName",     "RiyouAdd",      "CorpName",         "CorpAdd",
    "cDaihyo",       "cTelNo",      "cKinyuName",    "iKinSyubetsu",  "cKinyuSiten",      "iKinSiten",
    "iKozaType",     "cKozaBangou", "cKozaMeigi1",   "nDate",         "tServicyDayStart", "cSubAddress",
    "HOKENSHUBETSU", "cSetaiName",  "RiyouSetaiTel", "cSetaiAdress1",
};
static_assert(std::size(kColumnNames) == static_cast<std::size_t>(Column::count));

struct PlainText {
    IninField field;
    Column column;
};
constexpr PlainText kBeforeBank[] = {
    {&IninRow::保険者名, Column::HokenName},  {&IninRow::利用者氏名, Column::RiyouName},
    {&IninRow::利用者住所, Column::RiyouAdd}, {&IninRow::会社名称, Column::CorpName},
    {&IninRow::会社住所, Column::CorpAdd},    {&IninRow::代表者名, Column::cDaihyo},
    {&IninRow::会社電話番号, Column::cTelNo},
};
constexpr PlainText kAfterLastDay[] = {
    {&IninRow::保険者地区名, Column::cSubAddress}, {&IninRow::保険種別, Column::HOKENSHUBETSU},
    {&IninRow::世帯主名, Column::cSetaiName},      {&IninRow::世帯主電話, Column::RiyouSetaiTel},
    {&IninRow::世帯主住所, Column::cSetaiAdress1},
};

} // namespace

Variant LetterReader::value(Column column)
{
    const auto index = static_cast<std::size_t>(column);
    if (!m_places[index]) m_places[index] = m_rsData.fieldIndex(kColumnNames[index]);
    return m_rsData.Value(*m_places[index]);
}

std::string LetterReader::text(Column column)
{
    return csNullToStr(value(column), m_regional);
}

std::int32_t LetterReader::number(Column column)
{
    return nNullToLong(value(column));
}

void LetterReader::fill(IninRow &letter, const ExtractionRule &rule, const LetterDates &dates)
{
    set(letter, &IninRow::対象開始日, dates.periodStart);
    set(letter, &IninRow::対象終了日, dates.periodEnd);
    for (const PlainText &plain : kBeforeBank) fillText(letter, plain.field, plain.column);
    fillBank(letter);
    set(letter, &IninRow::口座番号, accountLine(number(Column::iKozaType), text(Column::cKozaBangou)));
    fillText(letter, &IninRow::口座名義, Column::cKozaMeigi1);
    set(letter, &IninRow::最終施術日, (this->*rule.lastTreatmentDay)(dates));
    for (const PlainText &plain : kAfterLastDay) fillText(letter, plain.field, plain.column);
    set(letter, &IninRow::署名日, dates.signature);
}

/// Consecutive letters mostly have the same company, bank and period: they share these texts.
void LetterReader::set(IninRow &letter, IninField field, std::string_view text)
{
    if ((m_last.*field).view() != text) m_last.*field = SharedText(text); // copies the bytes
    letter.*field = m_last.*field;
}

/// Most columns are texts already; converting one would copy it.
void LetterReader::fillText(IninRow &letter, IninField field, Column column)
{
    const Variant held = value(column);
    if (const auto *text = held.getIf<std::string>())
        set(letter, field, *text);
    else
        set(letter, field, csNullToStr(held, m_regional));
}

void LetterReader::fillBank(IninRow &letter)
{
    const std::string cKinyuName = text(Column::cKinyuName);
    const std::int16_t iKinSyubetsu = narrow(number(Column::iKinSyubetsu));
    const std::string cKinyuSiten = text(Column::cKinyuSiten);
    const std::int16_t iKinSiten = narrow(number(Column::iKinSiten));
    const std::string line = bankLine(cKinyuName, iKinSyubetsu, cKinyuSiten, iKinSiten);
    set(letter, &IninRow::金融機関名, line);
    set(letter, &IninRow::金融機関名２, secondBankLine(line, cKinyuName, cKinyuSiten));
}

std::string LetterReader::lastDayOfSchedule(const LetterDates &dates)
{
    const std::int32_t day = number(Column::nDate) % 100;
    return dateText(DateSerial(dates.target.year, dates.target.month, day), m_regional);
}

/// Deliberate: a two-digit year, unlike every other date of the letter.
std::string LetterReader::lastDayOfJisseki(const LetterDates & /*dates*/)
{
    return formatText(text(Column::tServicyDayStart), "yy/MM/dd", m_regional);
}

std::string LetterReader::targetDay(const LetterDates &dates)
{
    return dates.target.text;
}

/// This extraction reads no visits, so the end of the period replaces the last treatment day.
std::string LetterReader::endOfPeriod(const LetterDates &dates)
{
    return dates.periodEnd;
}

} // namespace inin
