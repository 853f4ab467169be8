#include "viewer/window/link_line.h"

namespace inin::viewer {

using namespace Qt::StringLiterals;

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
        const QString text = part.text.toHtmlEscaped();
        html += part.target.isEmpty() ? text : u"<a href=\"%1\">%2</a>"_s.arg(part.target.toHtmlEscaped(), text);
        hasLink = hasLink || !part.target.isEmpty();
    }
    setText(html);
    setFocusPolicy(hasLink ? Qt::StrongFocus : Qt::NoFocus);
    setAccessibleDescription(m_plainText);
    setVisible(!parts.isEmpty());
}

} // namespace inin::viewer
