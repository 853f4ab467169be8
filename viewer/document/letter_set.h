#pragma once

#include "viewer/document/growing_file.h"
#include "viewer/form/form_document.h"
#include "viewer/io/file_stamp.h"
#include "viewer/letters/letter_table.h"
#include "viewer/script/command_script.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

/// One form with the letters that fill it.
struct LetterReport {
    std::string formPath; ///< as the script has it
    FormDocument form;
    bool isListing = false; ///< the form was none of ours: the rows are shown as plain lists instead
    /// The first data source: a row is a letter.
    LetterTable letters;
    /// More sources: row k goes with letter k, a single row with every letter. Their columns are called `name.column`.
    std::vector<LetterTable> others;
    /// The names of all columns, those of `letters` first.
    std::vector<std::string> columns;

    [[nodiscard]] std::string_view value(std::size_t row, std::size_t column) const;
};

/// Everything that one script asks for, read once: nothing in here changes when a file on disk does.
struct LetterSet {
    std::string title;
    std::vector<LetterReport> reports;
    std::vector<std::string> notices;     ///< of the script, the forms and the letter files
    std::vector<std::string> warnings;    ///< those of the notices by which letters may be missing or too many
    std::vector<StampedFile> letterFiles; ///< as they were just before they were read
    Paper paper = Paper::A4;
    Ending ending = Ending::none;
    std::int32_t offsetX = 0, offsetY = 0; ///< tenths of a millimetre

    struct Place {
        std::size_t report = 0, row = 0;
    };
    [[nodiscard]] std::size_t size() const;
    /// The title, or what the letters are called where the script gives none.
    [[nodiscard]] std::string shownTitle() const;
    /// Letters are counted from 0 through all reports.
    [[nodiscard]] Place placeOf(std::size_t letter) const;
};

/// Opens what a script names. A form or letter file that is missing or unreadable, a placeholder without its column, a
/// file without letters: RuntimeErrors with a sentence that names the path. A file that is still being written is waited
/// for, a few seconds at most.
[[nodiscard]] LetterSet openScript(const std::string &path, const Pause &pause = sleepBriefly);
[[nodiscard]] LetterSet openLetters(const CommandScript &script, const Pause &pause = sleepBriefly);

} // namespace inin::viewer
