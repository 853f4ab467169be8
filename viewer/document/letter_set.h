#pragma once

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
    std::string formPath;        ///< as written in the script
    std::string formFingerprint; ///< of the form document's file
    FormDocument form;
    bool isListing = false; ///< the form document is unknown: the rows are shown as plain lists instead
    /// The first data source: each row is a letter.
    LetterTable letters;
    /// Further sources: row k belongs to letter k, a single row to every letter. Columns are called `name.column`.
    std::vector<LetterTable> others;
    /// The names of all columns, those of `letters` first.
    std::vector<std::string> columns;
    std::vector<std::string> letterWarnings; ///< about the letter files

    [[nodiscard]] std::string_view value(std::size_t row, std::size_t column) const;
    /// The name of the form document's file without its folder.
    [[nodiscard]] std::string formFileName() const;
};

/// All the files that one script names, read once: later changes on disk have no effect.
struct LetterSet {
    std::string title;
    std::vector<LetterReport> reports;
    std::vector<ItemText> items; ///< texts that replace texts of the forms
    std::vector<std::string> scriptNotices;
    std::vector<std::string> notices;     ///< of the script, the forms and the letter files
    std::vector<std::string> warnings;    ///< the notices to read before printing
    std::vector<StampedFile> letterFiles; ///< as they were just before they were read
    std::vector<StampedFile> formFiles;   ///< the forms and the pictures beside them, likewise
    bool isSample = false;                ///< the letters are examples, which no script names and no ledger records
    bool hasSampleCovers = false;         ///< the examples are covers of bundles, for a cover form
    Paper paper = Paper::A4;
    bool usesFormPaper = false; ///< the script names no paper: each form is printed on paper of its own size
    Ending ending = Ending::none;
    std::int32_t offsetX = 0, offsetY = 0; ///< tenths of a millimetre

    struct Place {
        std::size_t report = 0, row = 0;
    };
    [[nodiscard]] std::size_t size() const;
    /// Whether a page of a form is printed on paper of its own size instead of the script's paper.
    [[nodiscard]] bool hasOwnPaper(const FormDocument &form, std::size_t page) const;
    /// Width and height of the paper for a page of a form.
    [[nodiscard]] Point paperOf(const FormDocument &form, std::size_t page) const;
    /// The title, or a default when the script gives none.
    [[nodiscard]] std::string shownTitle() const;
    /// The kind of the letters, "委任状（標準）": the first form's title, or the name of its file.
    [[nodiscard]] std::string kindTitle() const;
    /// The kind and number of the letters, "委任状（標準）　300通", which distinguishes runs.
    [[nodiscard]] std::string runTitle() const;
    /// Letters are counted from 0 across all reports.
    [[nodiscard]] Place placeOf(std::size_t letter) const;
};

} // namespace inin::viewer
