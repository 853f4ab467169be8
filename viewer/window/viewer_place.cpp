#include "viewer/window/check_panel.h"
#include "viewer/window/screen_fit.h"
#include "viewer/window/viewer_window.h"

#include <QGuiApplication>
#include <QScreen>
#include <QSplitter>

#include <algorithm>

// The window's place on the screen and the sizes of its parts, which the settings keep.

namespace inin::viewer {

using namespace Qt::StringLiterals;

namespace {

constexpr int kListWidth = 480;
constexpr double kListShare = 0.4; ///< of a narrower window

} // namespace

void ViewerWindow::fitToScreen()
{
    const QScreen *const there = QGuiApplication::screenAt(geometry().center());
    const QRect room = (there != nullptr ? there : screen())->availableGeometry();
    const WindowFit fit = fitWindow(size(), room.size());
    // The system chooses the place of a first window. A maximised one keeps the size to which it returns.
    if (m_settings.windowPlace().isEmpty())
        resize(fit.size);
    else if (!isMaximized())
        setGeometry(movedInto({geometry().topLeft(), fit.size}, room));
    if (fit.isMaximised) setWindowState(windowState() | Qt::WindowMaximized);
}

void ViewerWindow::restoreLayout()
{
    const ViewLayout layout = m_settings.viewLayout();
    const int usual = std::min(kListWidth, static_cast<int>(width() * kListShare));
    const int list = layout.listWidth > 0 ? layout.listWidth : usual;
    m_split->setSizes({list, std::max(1, width() - list)});
    m_checkHeight = layout.checkHeight;
    bool isFactor = false;
    if (const double factor = layout.zoom.toDouble(&isFactor); isFactor)
        m_page->setZoom(factor);
    else
        m_page->setFit(layout.zoom == u"width"_s ? PageView::Fit::width : PageView::Fit::page);
}

void ViewerWindow::keepLayout()
{
    if (m_checkPanel->hasRows() && m_pageSplit->sizes()[1] > 0) m_checkHeight = m_pageSplit->sizes()[1];
    const PageView::Fit fit = m_page->fit();
    const QString zoom = fit == PageView::Fit::page    ? u"page"_s
                         : fit == PageView::Fit::width ? u"width"_s
                                                       : QString::number(m_page->zoom());
    m_settings.setViewLayout({m_split->sizes()[0], m_checkHeight, zoom});
}

} // namespace inin::viewer
