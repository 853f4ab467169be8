#pragma once

#include "viewer/window/ledger_desk.h"
#include "viewer/window/link_line.h"

namespace inin::viewer {

// The sentences about the ledger, and the targets of their links.

inline constexpr const char *kAddedLink = "added", *kChangedLink = "changed", *kGoneLink = "gone", *kRunsLink = "runs";
inline constexpr const char *kPrintedLink = "printed", *kUntickLink = "untick";

/// "11月20日 10:32", with the year if it is not the present one.
[[nodiscard]] QString momentText(Date moment, Date now);
/// "11月20日 10:32　273通"
[[nodiscard]] QString runText(const RunSummary &run, Date now);
/// How the letters differ from the run that they are compared with. Empty without one.
[[nodiscard]] QList<LinkPart> comparedLine(const LedgerDesk &desk, Date now);
/// How many persons have a printed letter of this period already.
[[nodiscard]] QString printedSentence(std::size_t letters);
/// The same for all letters, with links. Empty for none.
[[nodiscard]] QList<LinkPart> printedLine(const LedgerDesk &desk);
/// Asks for the sheets of a print; one that was made before the letters were opened is named by its time.
[[nodiscard]] QString paperQuestion(const OpenOutput &print, bool isFromBefore, Date now);
/// Field, old and new text of a changed letter, one line for each field.
[[nodiscard]] QString changesText(const ChangedLetter &letter);

} // namespace inin::viewer
