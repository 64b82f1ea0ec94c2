// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/DockableTabHeader.h"

#include "MorrantUI/platform/vectorregisters.h"
#include <MorrantUI/theme/colors.h>

#include <QEvent>
#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace {

constexpr int kSidePadding = 8;     // logical pixels beside the title
constexpr int kVerticalPadding = 5; // above and below it
constexpr int kFewestLetters = 3;   // that the title is never narrower than

} // namespace

DockableTabHeader::DockableTabHeader()
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_title.setTextFormat(Qt::PlainText);
    m_title.setPerformanceHint(QStaticText::AggressiveCaching);
    measure();
}

DockableTabHeader::~DockableTabHeader() = default;

QWidget* DockableTabHeader::setHandler(QObject* handler)
{
    return DockableHeader::setHandler(handler);
}

void DockableTabHeader::setText(const QString& text)
{
    if (text != this->text()) {
        DockableHeader::setText(text);
        measure();
        updateGeometry();
        update();
    }
}

QSize DockableTabHeader::sizeHint() const
{
    return m_wanted;
}

QSize DockableTabHeader::minimumSizeHint() const
{
    return {
        kFewestLetters * fontMetrics().averageCharWidth() + 2 * kSidePadding, m_wanted.height()};
}

void DockableTabHeader::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), ui::colorQt(QStringLiteral("TabBackground")));

    const QRect room = rect().adjusted(kSidePadding, 0, -kSidePadding, 0);
    const QRect title = QStyle::alignedRect(
        layoutDirection(), Qt::AlignVCenter | Qt::AlignLeading, m_title.size().toSize(), room);
    painter.setPen(ui::colorQt(QStringLiteral("WindowText")));
    morrant::native::clearVectorRegisters();
    painter.drawStaticText(title.topLeft(), m_title);
    paintFocus(painter);
}

void DockableTabHeader::resizeEvent(QResizeEvent* event)
{
    DockableHeader::resizeEvent(event);
    fitTitle();
}

void DockableTabHeader::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::FontChange) {
        measure();
        updateGeometry();
    }
    DockableHeader::changeEvent(event);
}

/// Once for each title and font, since a header changes its size more often.
void DockableTabHeader::measure()
{
    const QFontMetrics metrics = fontMetrics();
    m_wanted = {
        metrics.horizontalAdvance(text()) + 2 * kSidePadding,
        metrics.height() + 2 * kVerticalPadding};
    fitTitle();
    m_title.prepare(QTransform(), font());
}

void DockableTabHeader::fitTitle()
{
    const int room = std::max(width() - 2 * kSidePadding, 0);
    const bool fits = m_wanted.width() <= width();
    const QString shown = fits ? text() : fontMetrics().elidedText(text(), Qt::ElideRight, room);
    if (shown != m_title.text()) {
        m_title.setText(shown);
        m_title.prepare(QTransform(), font());
    }
}
