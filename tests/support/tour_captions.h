#pragma once

#include <QFile>
#include <QGuiApplication>
#include <QHash>
#include <QLabel>
#include <QScreen>
#include <QtTest/QTest>

#include <algorithm>

namespace inin {

/// The captions of the tour: in a Markdown document, the paragraph before each picture. On a real display the caption of
/// a window's picture is shown at the bottom of the screen for as long as it takes to read it.
class TourCaptions {
public:
    /// Without a file name there are no captions and no waits.
    explicit TourCaptions(const QString &file)
    {
        QFile document(file);
        if (file.isEmpty() || QGuiApplication::platformName() == u"offscreen" || !document.open(QIODevice::ReadOnly))
            return;
        QString paragraph;
        for (const QString &line : QString::fromUtf8(document.readAll()).split(u'\n')) {
            const qsizetype picture = line.indexOf(u"](pictures/");
            if (line.startsWith(u"![") && picture >= 0)
                m_captions[line.mid(picture + 11).section(u'.', 0, 0)] = paragraph;
            else if (!line.isEmpty())
                paragraph = m_isNew ? line : paragraph + line;
            m_isNew = line.isEmpty();
        }
    }
    void show(const QString &picture)
    {
        const auto caption = m_captions.constFind(picture);
        if (caption == m_captions.constEnd()) return;
        constexpr int kPerCharacter = 90, kAtLeast = 4000; // milliseconds
        QLabel label(*caption, nullptr, Qt::ToolTip | Qt::WindowStaysOnTopHint);
        label.setWordWrap(true);
        label.setMargin(16);
        label.setStyleSheet(QStringLiteral("background: #1a1a1a; color: #ffffff; font-size: 20px;"));
        label.ensurePolished(); // the height depends on the font
        const QRect screen = label.screen()->availableGeometry();
        const int width = screen.width() * 4 / 5, height = label.heightForWidth(width);
        label.setGeometry(screen.x() + (screen.width() - width) / 2, screen.bottom() - height - 16, width, height);
        label.show();
        QTest::qWait(std::max(kAtLeast, kPerCharacter * static_cast<int>(caption->size())));
    }

private:
    QHash<QString, QString> m_captions;
    bool m_isNew = true;
};

} // namespace inin
