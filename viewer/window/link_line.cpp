#include "viewer/window/link_line.h"

namespace inin::viewer {

using namespace Qt::StringLiterals;

namespace {

/// A text that stays on one line: word joiners between its characters, and blanks that do not break.
QString unbroken(const QString &text)
{
    constexpr QChar kWordJoiner(0x2060);
    QString joined;
    for (const QChar c : text) {
        if (!joined.isEmpty() && !c.isLowSurrogate()) joined += kWordJoiner;
        joined += c == u' ' ? QChar(QChar::Nbsp) : c;
    }
    return joined;
}

} // namespace

LinkLine::LinkLine(QWidget *parent) : QLabel(parent)
{
    setTextFormat(Qt::RichText);
    setWordWrap(true);
    setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    QObject::connect(this, &QLabel::linkActivated, this, [this](const QString &target) {
        if (onLink) onLink(target);
    });
    hide();
}

void LinkLine::setParts(const QList<LinkPart> &parts)
{
    QString html;
    m_plainText.clear();
    bool hasLink = false;
    for (const LinkPart &part : parts) {
        m_plainText += part.text;
        html += part.target.isEmpty()
                    ? part.text.toHtmlEscaped()
                    : u"<a href=\"%1\">%2</a>"_s.arg(part.target.toHtmlEscaped(), unbroken(part.text).toHtmlEscaped());
        hasLink = hasLink || !part.target.isEmpty();
    }
    setText(html);
    setFocusPolicy(hasLink ? Qt::StrongFocus : Qt::NoFocus);
    setAccessibleDescription(m_plainText);
    setVisible(!parts.isEmpty());
}

} // namespace inin::viewer
