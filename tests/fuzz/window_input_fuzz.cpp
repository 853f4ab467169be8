// Typed dates and plain bitmaps, as the windows read them.

#include "adapters/qt/plain_bitmap.h"
#include "fuzz/fuzz_input.h"
#include "screen/era_date_text.h"

#include <string>

using namespace inin;
using namespace inin::qt;
using inin::fuzz::require;

namespace {

/// Two bytes for today, counted from the first day of 明治; then the typed text.
Date takeToday(std::string_view &input)
{
    const double first = eras().front().first.days();
    const double days = static_cast<double>(fuzz::takeChoice(input, 256) * 256 + fuzz::takeChoice(input, 256));
    return Date(first + days);
}

void checkTypedDate(std::string_view input, DateGrain grain)
{
    constexpr std::size_t kLongestSentence = 400;
    DateContext context;
    context.today = takeToday(input);
    context.grain = grain;
    const TypedDate typed = readTypedDate(input, context);
    require(!typed.date || typed.complaint.empty(), "a text is a date or has a complaint");
    require(typed.complaint.size() <= kLongestSentence && typed.notice.size() <= kLongestSentence,
            "a sentence shows twenty characters of the text at most");
    if (!typed.date) return;
    const bool isDay = grain == DateGrain::day;
    const DateParts first = partsOf(eras().front().first);
    require(*typed.date >= (isDay ? eras().front().first : DateSerial(first.year, first.month, 1)),
            "no date is before the first era");
    const TypedDate again = readTypedDate(typedDateText(*typed.date, isDay ? "yyyy/mm/dd" : "yyyy/mm"), context);
    require(again.date && (*again.date == *typed.date || !isDay), "a shown date is read as the same date");
}

void checkTypedDay(std::string_view input)
{
    checkTypedDate(input, DateGrain::day);
}

void checkTypedMonth(std::string_view input)
{
    checkTypedDate(input, DateGrain::month);
}

void checkDatePlaces(std::string_view input)
{
    const Date date = takeToday(input);
    const std::size_t position = fuzz::takeChoice(input, 256);
    const std::string text = typedDateText(date, input);
    require(text.size() <= 8 + 16 * input.size(), "a shown date is as long as its pattern");
    const DatePartPlace place = partAt(date, input, position);
    require(place.begin <= place.end && place.end <= text.size(), "a part is within the text");
    for (const int by : {-1, 1})
        require(stepped(date, place.part, by) >= eras().front().first, "no step leaves the first era");
}

void checkBitmap(std::string_view input)
{
    const QImage picture = plainBitmap(QByteArray(input.data(), static_cast<qsizetype>(input.size())));
    if (picture.isNull()) return;
    const auto pixels = static_cast<std::size_t>(picture.width()) * static_cast<std::size_t>(picture.height());
    require(3 * pixels + 54 <= input.size(), "the file has all pixels of its picture");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    return fuzz::runChoice({checkTypedDay, checkTypedMonth, checkDatePlaces, checkBitmap}, data, size);
}
