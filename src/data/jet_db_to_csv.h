#pragma once

#include "data/ado_session.h"
#include "platform/database.h"
#include "runtime/regional.h"

#include <array>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace inin {

/// How the fields of a column are written.
enum class CsvCell { number, date, text };

/// Formats the rows of a record set as lines of a CSV file.
class CsvRows {
public:
    /// Determines the kind of each field; error 9 if there are more fields than the suite's table of types can hold. A
    /// branch name, if given, becomes an additional last column.
    CsvRows(Recordset &rsData, const Regional &regional, std::optional<std::string> cKyoten);
    [[nodiscard]] std::string headingLine() const;
    [[nodiscard]] bool isEndOfFile() const { return m_rsData.isEndOfFile(); }
    /// Returns the line of the current row and advances to the next row.
    [[nodiscard]] std::string nextLine();

private:
    [[nodiscard]] std::string cell(std::size_t index) const;

    Recordset &m_rsData;
    const Regional &m_regional;
    std::optional<std::string> m_cKyoten;
    std::vector<CsvCell> m_kinds;
};

/// Whether a CSV file begins with a line of column names.
enum class Midasi { nasi, ari };

/// Exports the rows of one or two statements to a CSV file of the suite: code page 932, lines ended by CR LF, fields of
/// character types in double quotes. Despite its name it reads through cT_ADODB. Statuses are 0 or -1; every failure is
/// shown in a critical box with the operation's name. For the suite's other programs.
class cls_JetDB2CSV {
public:
    explicit cls_JetDB2CSV(App &app) : m_app(app) {}
    cls_JetDB2CSV(const cls_JetDB2CSV &) = delete;
    cls_JetDB2CSV &operator=(const cls_JetDB2CSV &) = delete;
    /// Closes like iEndJ2C.
    ~cls_JetDB2CSV();

    /// Opens the statement on a session of its own and counts its rows. A failure leaves nothing open.
    [[nodiscard]] std::int16_t iInitJ2C(const std::string &csSql, const std::string &csOutCsvFile,
                                        std::int32_t &nRecSuu);
    /// The same for two statements, under the same heading; their rows are counted together.
    [[nodiscard]] std::int16_t iInitJ2C_WSQL(const std::string &csSql1, const std::string &csSql2,
                                             const std::string &csOutCsvFile, std::int32_t &nRecSuu);
    /// Creates the file anew with all rows of the first statement.
    [[nodiscard]] std::int16_t iExecJ2C(Midasi b1stMidasiAri);
    /// The same; returns the number of rows, or -1 on a failure. A branch name, if given, is written to a last column
    /// "拠点名" of every row.
    [[nodiscard]] std::int32_t nExecJ2C(Midasi b1stMidasiAri, const std::optional<std::string> &cKyoten = {});
    /// The rows of both statements, one after the other, under the column names of the first.
    [[nodiscard]] std::int32_t nExecJ2C_WSQL(Midasi b1stMidasiAri);
    /// Closes everything that is open; with nothing open it succeeds without effect.
    [[nodiscard]] std::int16_t iEndJ2C();

private:
    [[nodiscard]] std::int16_t init(const std::string &csOutCsvFile, std::initializer_list<std::string> statements,
                                    std::int32_t &nRecSuu);
    [[nodiscard]] bool open(const std::string &heading, const std::string &sql, std::unique_ptr<Recordset> &rsData);
    [[nodiscard]] std::int32_t exec(const std::string &operation, std::size_t statements, Midasi b1stMidasiAri,
                                    const std::optional<std::string> &cKyoten);
    void drop();

    App &m_app;
    std::string m_outCsvFile;
    std::unique_ptr<cT_ADODB> m_session;
    std::array<std::unique_ptr<Recordset>, 2> m_recordsets;
};

} // namespace inin
