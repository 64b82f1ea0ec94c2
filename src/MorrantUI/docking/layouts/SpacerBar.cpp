// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/layouts/SpacerBar.h"

#include "MorrantUI/controls/accessibility.h"
#include "MorrantUI/controls/values/padpaint.h"
#include "MorrantUI/theme/style/pixelgrid.h"
#include "MorrantUI/theme/style/shades.h"
#include "MorrantUI/theme/style/shapes.h"
#include <MorrantUI/theme/colors.h>

#include <QBoxLayout>
#include <QEvent>
#include <QPainter>
#include <QToolBar>

#include <algorithm>

namespace {

constexpr double kMarginShare = 1.0 / 3.0; ///< of the font size, on either side of the line
constexpr int kLine = 1;                   ///< thickness, logical pixels
constexpr int kEndInset = 2;               ///< of the line at both ends

/// The box layout that holds a widget, in or below `layout`; null without one.
const QBoxLayout* boxAround(const QWidget* widget, QLayout* layout)
{
    if (!layout) {
        return nullptr;
    }
    if (layout->indexOf(widget) >= 0) {
        return qobject_cast<const QBoxLayout*>(layout);
    }
    for (int i = 0; i < layout->count(); ++i) {
        if (const QBoxLayout* box = boxAround(widget, layout->itemAt(i)->layout())) {
            return box;
        }
    }
    return nullptr;
}

bool isLevel(QBoxLayout::Direction direction)
{
    return direction == QBoxLayout::LeftToRight || direction == QBoxLayout::RightToLeft;
}

} // namespace

SpacerBar::SpacerBar(QWidget* parent)
    : QWidget(parent)
    , m_colorName(QStringLiteral("Midlight"))
{
    ui::installAccessible<SpacerBar, ui::AccessibleAs<QAccessible::Separator>>();
    setAttribute(Qt::WA_TransparentForMouseEvents);
    applyPolicy();
}

SpacerBar::~SpacerBar() = default;

Qt::Orientation SpacerBar::orientation() const
{
    return m_fixed.value_or(found());
}

void SpacerBar::setOrientation(Qt::Orientation orientation)
{
    m_fixed = orientation;
    follow();
}

void SpacerBar::followLayout()
{
    m_fixed.reset();
    follow();
}

void SpacerBar::setColorName(const QString& name)
{
    m_colorName = name;
    update();
}

void SpacerBar::setStretching(bool stretching)
{
    m_stretching = stretching;
    applyPolicy();
}

void SpacerBar::setMargin(int margin)
{
    m_margin = std::max(-1, margin);
    updateGeometry();
}

int SpacerBar::margin() const
{
    return m_margin >= 0 ? m_margin : qRound(ui::pads::fontSize(*this) * kMarginShare);
}

QSize SpacerBar::sizeHint() const
{
    const QSize upright(kLine + 2 * margin(), ui::pads::fontSize(*this));
    return orientation() == Qt::Vertical ? upright : upright.transposed();
}

QSize SpacerBar::minimumSizeHint() const
{
    const QSize upright(kLine + 2 * margin(), kLine);
    return orientation() == Qt::Vertical ? upright : upright.transposed();
}

bool SpacerBar::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::ParentChange:
        // A tool bar can be turned later; the layout has the bar only after this event.
        if (auto* bar = qobject_cast<QToolBar*>(parentWidget())) {
            connect(
                bar, &QToolBar::orientationChanged, this, &SpacerBar::follow, Qt::UniqueConnection);
        }
        QMetaObject::invokeMethod(this, &SpacerBar::follow, Qt::QueuedConnection);
        break;
    case QEvent::Polish:
    case QEvent::Show:
    case QEvent::Resize: follow(); break;
    default: break;
    }
    return QWidget::event(event);
}

void SpacerBar::paintEvent(QPaintEvent* /*event*/)
{
    if (m_colorName.isEmpty()) {
        return;
    }
    QPainter painter(this);
    const double line = ui::style::PixelGrid(painter).line(kLine);
    const QPointF middle = QRectF(rect()).center();
    const QColor color = ui::style::ink(ui::colorQt(m_colorName), ui::style::stateOf(*this));
    ui::style::fillSharp(
        painter,
        m_orientation == Qt::Vertical
            ? QRectF(middle.x() - line / 2, kEndInset, line, height() - 2 * kEndInset)
            : QRectF(kEndInset, middle.y() - line / 2, width() - 2 * kEndInset, line),
        color);
}

/// The orientation that the bar's surroundings ask for; the present one where they say nothing.
Qt::Orientation SpacerBar::found() const
{
    if (const auto* bar = qobject_cast<const QToolBar*>(parentWidget())) {
        return bar->orientation() == Qt::Horizontal ? Qt::Vertical : Qt::Horizontal;
    }
    const QBoxLayout* const box =
        parentWidget() != nullptr ? boxAround(this, parentWidget()->layout()) : nullptr;
    if (!box) {
        return m_orientation;
    }
    return isLevel(box->direction()) ? Qt::Vertical : Qt::Horizontal;
}

void SpacerBar::follow()
{
    const Qt::Orientation wanted = orientation();
    if (wanted != m_orientation) {
        m_orientation = wanted;
        applyPolicy();
        update();
    }
}

void SpacerBar::applyPolicy()
{
    const QSizePolicy::Policy across = m_stretching ? QSizePolicy::Expanding : QSizePolicy::Fixed;
    if (m_orientation == Qt::Vertical) {
        setSizePolicy(across, QSizePolicy::Preferred);
    } else {
        setSizePolicy(QSizePolicy::Preferred, across);
    }
}
