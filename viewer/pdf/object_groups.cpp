#include "viewer/pdf/object_groups.h"

#include "viewer/pdf/pdf_text.h"

#include <algorithm>
#include <utility>

namespace inin::viewer {

namespace {

/// A reader must expand a whole stream for one of its objects.
constexpr std::size_t kGroupedObjects = 1000;

/// Rounds up to a number with one digit other than 0. The offsets of successive rows then differ in few digits.
std::size_t roundedUp(std::size_t number)
{
    std::size_t unit = 1;
    while (number / unit >= 10) unit *= 10;
    return (number + unit - 1) / unit * unit;
}

} // namespace

void ObjectPattern::addReference(std::size_t index)
{
    m_numbers.push_back({m_text.size(), index});
    m_text.append(ObjectStream::kNumberDigits, ' ');
    m_text += " 0 R";
}

ObjectGroups::ObjectGroups(PdfFile &file, ObjectPattern pattern) : m_file(file), m_pattern(std::move(pattern))
{
    const std::size_t body = m_pattern.text().size();
    m_objects.rowWidth = roundedUp(std::max(body, m_pattern.objects().size() * ObjectStream::kPlaceWidth));
    m_pattern.add(std::string(m_objects.rowWidth - body, ' '));
}

void ObjectGroups::add(std::span<const int> numbers)
{
    if (m_objects.count == 0) m_stream = m_file.reserve();
    addPlaces(numbers);
    const std::size_t begin = m_objects.bodies.size();
    m_objects.bodies += m_pattern.text();
    for (const ObjectPattern::Place &place : m_pattern.numbers())
        writePadded(std::span(m_objects.bodies).subspan(begin + place.at, ObjectStream::kNumberDigits),
                    static_cast<std::size_t>(numbers[place.index]));
    if (m_objects.count >= kGroupedObjects) flush();
}

/// A row has the places of as many whole groups as it can, so that they repeat from row to row.
void ObjectGroups::addPlaces(std::span<const int> numbers)
{
    const std::size_t room = m_objects.rowWidth - m_objects.places.size() % m_objects.rowWidth;
    if (room < m_pattern.objects().size() * ObjectStream::kPlaceWidth) m_objects.places.append(room, ' ');
    for (std::size_t i = 0; i < m_pattern.objects().size(); ++i) {
        m_file.placeInStream(numbers[i], m_stream, m_objects.count);
        m_objects.addPlace(static_cast<std::size_t>(numbers[i]), m_objects.bodies.size() + m_pattern.objects()[i]);
    }
}

void ObjectGroups::flush()
{
    if (m_objects.count == 0) return;
    const std::size_t width = m_objects.rowWidth;
    m_objects.places.resize((m_objects.places.size() + width - 1) / width * width, ' ');
    m_file.writeObjectStream(m_stream, m_objects);
    m_objects.clear();
}

} // namespace inin::viewer
