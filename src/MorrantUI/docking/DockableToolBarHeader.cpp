// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/DockableToolBarHeader.h"

#include <MorrantUI/theme/colors.h>
#include <MorrantUI/theme/icons.h>

#include <QBoxLayout>
#include <QEvent>
#include <QLabel>

namespace {

constexpr QSize kGripSize(22, 10); // logical pixels, of the horizontal one

} // namespace

DockableToolBarHeader::DockableToolBarHeader(Direction direction)
    : m_direction(direction)
    , m_grip(new QLabel(this))
{
    const bool horizontal = direction == Direction::Horizontal;
    setFocusPolicy(Qt::NoFocus); // Tab goes to what the panel holds; F6 and a menu find the grip
    m_grip->setContentsMargins(-2, 0, 0, 0);
    m_grip->setFixedSize(horizontal ? kGripSize : kGripSize.transposed());
    m_grip->setAttribute(Qt::WA_TransparentForMouseEvents);
    setSizePolicy(
        horizontal ? QSizePolicy::Preferred : QSizePolicy::Fixed,
        horizontal ? QSizePolicy::Fixed : QSizePolicy::Preferred);
    auto* layout = new QBoxLayout(QBoxLayout::LeftToRight, this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_grip, 0, Qt::AlignCenter);
    followTheme();
}

DockableToolBarHeader::~DockableToolBarHeader() = default;

QWidget* DockableToolBarHeader::setHandler(QObject* handler)
{
    return DockableHeader::setHandler(handler);
}

void DockableToolBarHeader::setText(const QString& text)
{
    DockableHeader::setText(text);
    // As mark-up, so that a name such as "<b>" is shown as it is.
    setToolTip(text.isEmpty() ? text : QStringLiteral("<span>%1</span>").arg(text.toHtmlEscaped()));
}

void DockableToolBarHeader::changeEvent(QEvent* event)
{
    DockableHeader::changeEvent(event);
    if (event->type() == QEvent::StyleChange) { // as of every applyAppStyle()
        followTheme();
    }
}

void DockableToolBarHeader::followTheme()
{
    setBackgroundColor(ui::colorQt(QStringLiteral("Mid")));
    const auto name = m_direction == Direction::Horizontal ? QStringLiteral("icons:topDock.png")
                                                           : QStringLiteral("icons:sideDock.png");
    m_grip->setPixmap(ui::getCachedPixmap(name));
}
