#pragma once

#include <QString>

#include <vector>

class QWidget;

namespace inin::viewer {

/// The heading of the manual about a widget, by the nearest named widget around it.
[[nodiscard]] QString helpHeading(const QWidget *place);
/// All headings that helpHeading() returns.
[[nodiscard]] std::vector<QString> helpHeadings();

/// The manual's Markdown as a reader wants it: a line break between Japanese characters is no blank.
[[nodiscard]] QString joinedLines(QString markdown);
/// The name by which links lead to a heading: lower case, blanks as "-", no punctuation.
[[nodiscard]] QString headingAnchor(const QString &heading);

} // namespace inin::viewer
