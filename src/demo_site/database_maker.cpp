#include "demo_site/database_maker.h"

#include "adapters/native/native_platform.h"
#include "demo_site/code_tables.h"
#include "demo_site/companies.h"
#include "demo_site/embedded.h"
#include "demo_site/patients.h"
#include "demo_site/sqlite_writer.h"
#include "demo_site/staff.h"
#include "demo_site/visits.h"
#include "system/file_path.h"

namespace inin::site {

namespace {

struct SchemaParts {
    std::string tables;
    std::string indexes;
};

/// Create the indexes after the data: that is faster.
SchemaParts splitSchema(std::string_view schema)
{
    SchemaParts parts;
    while (!schema.empty()) {
        const std::size_t end = schema.find(';');
        const std::string_view statement = schema.substr(0, end == schema.npos ? end : end + 1);
        const bool isIndex = statement.find("CREATE INDEX") != statement.npos;
        (isIndex ? parts.indexes : parts.tables).append(statement);
        schema.remove_prefix(statement.size());
    }
    return parts;
}

} // namespace

void writeDemoRows(RowTarget &target, const SiteOrder &order)
{
    writeCodeTables(target, order);
    writeCompanies(target, order);
    writeStaff(target, order);
    writeConsultations(target, order);
    writePatients(target, order);
    writeVisits(target, order);
}

void makeDatabase(const std::string &path, const SiteOrder &order)
{
    const SchemaParts schema = splitSchema(schemaText());
    createForOwner(path); // a journal inherits the permissions of its database
    SqliteWriter database(path);
    // No journal: the file is new and gets its final name only when it is complete.
    database.run("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; BEGIN;");
    database.run(schema.tables);
    writeDemoRows(database, order);
    database.run(schema.indexes + "COMMIT;");
}

} // namespace inin::site
