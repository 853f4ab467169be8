#include "demo_site/patients.h"

#include "demo_site/demo_irregularities.h"

#include <vector>

namespace inin::site {

namespace {

/// iKyotenCd, iKyotenEb and nIDNo are the first columns and never NULL.
constexpr std::size_t kKeyColumns = 3;

std::vector<DemoPatientColumn> allColumns()
{
    std::vector<DemoPatientColumn> columns(personColumns().begin(), personColumns().end());
    columns.insert(columns.end(), careColumns().begin(), careColumns().end());
    return columns;
}

std::vector<std::string_view> namesOf(std::span<const DemoPatientColumn> columns)
{
    std::vector<std::string_view> names;
    for (const DemoPatientColumn &column : columns) names.push_back(column.name);
    return names;
}

Cell sideFlag(std::int64_t number)
{
    if (kUnknownGroup.has(number)) return kNull;
    return std::int64_t{kGroupBilled.has(number)};
}

} // namespace

void writePatients(RowTarget &database, const SiteOrder &order)
{
    constexpr std::string_view kSideColumns[] = {"iKyotenCd", "iKyotenEb", "nIDNo", "iDantaiUmu"};
    const std::vector<DemoPatientColumn> columns = allColumns();
    Insert patients(database, "RIYOUSHA", namesOf(columns));
    Insert sides(database, "RIYOUSHA_SUB", kSideColumns);
    std::vector<Cell> row(columns.size());
    for (std::int64_t number = 1; number <= order.patients; ++number) {
        const Patient patient = makePatient(order, number);
        Dice dice = diceFor(order, Kind::patientColumns, number);
        for (std::size_t i = 0; i < columns.size(); ++i) {
            row[i] = columns[i].value(patient, dice);
            if (i >= kKeyColumns && isNullHere(number, static_cast<std::int64_t>(i))) row[i] = kNull;
        }
        patients.row(row);
        if (!kWithoutSide.has(number)) sides.row({kBranchCode, kBranchSubCode, number, sideFlag(number)});
    }
}

} // namespace inin::site
