// The small languages of a form document: placeholders, date patterns, style sheets and combined forms, and the sentences
// about characters without a glyph.

#include "fuzz/fuzz_input.h"
#include "runtime/utf8.h"
#include "viewer/document/combined_form.h"
#include "viewer/document/mark_text.h"
#include "viewer/form/date_pattern.h"
#include "viewer/form/placeholder.h"
#include "viewer/form/svg_style_sheet.h"

#include <set>
#include <string>

using namespace inin;
using namespace inin::viewer;
using inin::fuzz::require;

namespace {

std::string textOf(const std::vector<TextPiece> &pieces)
{
    std::string text;
    for (const TextPiece &piece : pieces) {
        if (piece.isField())
            text.append("{{" + piece.column + "|" + piece.pattern + "|" + piece.whenBlank + "}}");
        else
            text += piece.literal;
    }
    return text;
}

void checkPlaceholders(std::string_view input)
{
    const std::vector<TextPiece> pieces = readPieces(input);
    const std::string written = textOf(pieces);
    require(textOf(readPieces(written)) == written, "placeholders that are written out are read as the same pieces");
    for (const TextPiece &piece : pieces)
        require(piece.isField() || piece.literal.find("{{") == std::string::npos, "literal text has no open braces");
}

/// A line with a date, then a pattern.
void checkDatePattern(std::string_view input)
{
    const std::string_view date = fuzz::takePart(input);
    constexpr std::size_t kLongestPart = 64; // of what one character of a pattern writes
    const auto written = formattedDate(date, input);
    require(!written || written->size() <= (input.size() + 1) * kLongestPart,
            "a written date is as long as its pattern");
}

void checkMarkText(std::string_view input)
{
    constexpr std::size_t kMaxCharacters = 1000, kLongestSentence = 600;
    FieldMark mark;
    mark.shrunk = input.starts_with('a');
    mark.doesNotFit = input.starts_with('b');
    mark.noDate = input.starts_with('c');
    std::u32string characters;
    (void)appendCharacters(characters, input, kMaxCharacters);
    mark.missing.assign(characters.begin(), characters.end());
    const std::string sentence = markText(mark);
    require(sentence.size() <= kLongestSentence, "a sentence shows ten characters at most");
    for (const char c : sentence)
        require(static_cast<unsigned char>(c) >= 0x20 && c != '\x7F', "a sentence has no control characters");
}

void checkStyleSheet(std::string_view input)
{
    StyleSheet sheet;
    std::set<std::string> notices;
    sheet.add(input, [&notices](const std::string &notice) { notices.insert(notice); });
    require(sheet.charactersRead() <= 5 * input.size() + 64, "a style sheet is read in proportion to its size");
    XmlAttributes attributes;
    attributes.add("class", "a b");
    attributes.add("id", "c");
    for (const StyleDeclaration *declaration : sheet.declarationsFor("text", attributes))
        require(declaration->name.size() + declaration->value.size() <= input.size(),
                "a declaration is part of its sheet");
    (void)readDeclarations(input);
}

void checkCombinedForm(std::string_view input)
{
    (void)isCombinedForm(input);
    const std::string written = combinedFormText(readCombinedForm(input));
    require(isCombinedForm(written), "a written combined form is recognized");
    require(combinedFormText(readCombinedForm(written)) == written, "a written combined form is read the same");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    return fuzz::runChoice({checkPlaceholders, checkDatePattern, checkMarkText, checkStyleSheet, checkCombinedForm},
                           data, size);
}
