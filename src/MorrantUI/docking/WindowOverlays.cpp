// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/WindowOverlays.h"

#include "MorrantUI/docking/FlashFrame.h"
#include <MorrantUI/docking/DockableWindow.h>
#include <MorrantUI/docking/DropIndicatorMain.h>
#include <MorrantUI/docking/WindowDimmer.h>
#include <MorrantUI/theme/colors.h>

#include <QPropertyAnimation>

#include <initializer_list>

namespace ui::docking {

namespace {

constexpr int kFlashDuration = 1500; ///< milliseconds

/// That of the first theme, for the life of the process: a frame's own colour is what its flash
/// comes back to, which must be the same for all frames.
const QColor& focusFrameColor()
{
    static const QColor color = colorQt(QStringLiteral("Green"));
    return color;
}

} // namespace

WindowOverlays::WindowOverlays(DockableWindow& window)
    : m_window(window)
    , m_dropIndicator(new DropIndicatorMain(&window))
    , m_dimmer(new WindowDimmer(&window))
    , m_focusFrame(new FlashFrame(focusFrameColor(), &window))
{
    m_focusFrame->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_focusFrame->resize(window.width(), 1);
    m_focusFrame->hide();
    // A native content makes what lies beside it native: that must not go on to the other panels.
    for (QWidget* overlay :
         std::initializer_list<QWidget*>{m_dropIndicator, m_dimmer, m_focusFrame}) {
        overlay->setAttribute(Qt::WA_DontCreateNativeAncestors);
    }
}

void WindowOverlays::fit()
{
    m_focusFrame->resize(m_window.width(), 1);
    if (m_dim) {
        m_dimmer->resize(m_window.size());
    }
    if (m_dropIndicator->isVisible()) {
        m_dropIndicator->resize(m_window.size());
    }
}

void WindowOverlays::raiseDimmer()
{
    if (m_dim) {
        m_dimmer->raise();
    }
}

void WindowOverlays::setDim(bool dim)
{
    m_dim = dim;
    if (dim) {
        m_dimmer->resize(m_window.size());
        m_dimmer->raise();
        m_dimmer->show();
        m_dimmer->repaint();
    } else {
        m_dimmer->hide();
    }
}

void WindowOverlays::setFocusFrameVisible(bool visible)
{
    m_lent = false;
    if (visible) {
        m_focusFrame->raise();
    }
    m_focusFrame->setVisible(visible);
}

bool WindowOverlays::isFocusFrameVisible() const
{
    return m_focusFrame->isVisible();
}

void WindowOverlays::flashFocusFrame(const QColor& color)
{
    if (!color.isValid()) {
        return;
    }
    if (m_flash) {
        m_flash->stop();
    }
    m_flash = new QPropertyAnimation(m_focusFrame, "currentColor", m_focusFrame);
    m_flash->setDuration(kFlashDuration);
    m_flash->setKeyValueAt(0.0, m_focusFrame->lineColor());
    m_flash->setKeyValueAt(0.5, color);
    m_flash->setKeyValueAt(1.0, m_focusFrame->lineColor());
    m_flash->setEasingCurve(QEasingCurve::InOutQuad);
    QObject::connect(m_flash, &QAbstractAnimation::finished, m_focusFrame, [this] {
        if (m_lent) {
            setFocusFrameVisible(false);
        }
    });
    m_flash->start(QAbstractAnimation::DeleteWhenStopped);
}

void WindowOverlays::callAttention()
{
    const bool lent = m_lent || m_focusFrame->isHidden();
    setFocusFrameVisible(true);
    m_lent = lent;
    flashFocusFrame(colorQt(QStringLiteral("WindowText")));
}

} // namespace ui::docking
