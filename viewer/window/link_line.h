#pragma once

#include <QLabel>

#include <functional>

namespace inin::viewer {

/// A part of a line: plain text, or a link if it has a target.
struct LinkPart {
    QString text;
    QString target = {};
};

/// A sentence with links, which Tab reaches one by one and Enter follows.
class LinkLine : public QLabel {
public:
    explicit LinkLine(QWidget *parent = nullptr);

    /// Hides the line if it has no parts.
    void setParts(const QList<LinkPart> &parts);
    /// The sentence without its links.
    [[nodiscard]] QString plainText() const { return m_plainText; }
    std::function<void(const QString &target)> onLink;

private:
    QString m_plainText;
};

} // namespace inin::viewer
