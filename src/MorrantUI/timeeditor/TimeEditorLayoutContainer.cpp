// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeeditor/TimeEditorLayoutContainer.h"

#include "MorrantUI/timeeditor/RowBlock.h"
#include "MorrantUI/timeeditor/rowpass.h"
#include <MorrantUI/theme/colors.h>
#include <MorrantUI/timeeditor/TimeEditorBaseItem.h>
#include <MorrantUI/timeeditor/TimeEditorCurveItem.h>

#include <QGraphicsLinearLayout>
#include <QPainter>
#include <QStyleOptionGraphicsItem>

#include <algorithm>

namespace {

constexpr float kSeparatorAlpha = 0.28F;

bool overlaps(double top, double bottom, const QRectF& exposed)
{
    return top <= exposed.bottom() && bottom >= exposed.top();
}

} // namespace

TimeEditorLayoutContainer::TimeEditorLayoutContainer(QGraphicsItem* parent)
    : QGraphicsWidget(parent)
    , m_layout(new QGraphicsLinearLayout(Qt::Vertical))
{
    m_layout->setSpacing(0.0);
    m_layout->setContentsMargins(0.0, 0.0, 0.0, 0.0);
    setContentsMargins(0.0, 0.0, 0.0, 0.0);
    setLayout(m_layout);
    setPos(0.0, 0.0);
    setAcceptedMouseButtons(Qt::NoButton);
    setFlag(ItemContainsChildrenInShape); // so that Qt can pass over all rows at once
}

TimeEditorLayoutContainer::~TimeEditorLayoutContainer() = default;

double TimeEditorLayoutContainer::rowsBottom() const
{
    if (m_layout->count() == 0) {
        return 0.0;
    }
    QGraphicsLayoutItem* const last = m_layout->itemAt(m_layout->count() - 1);
    const QGraphicsItem* const item = last->graphicsItem();
    const double top = item != nullptr ? item->y() : last->geometry().top();
    return top + last->effectiveSizeHint(Qt::PreferredSize).height();
}

void TimeEditorLayoutContainer::addRow(TimeEditorBaseItem* row)
{
    if (!row || row->parentLayoutItem() == m_layout) {
        return;
    }
    // Before it is in the scene: a row that moves tells each of its keys, and Qt looks at the keys
    // of all rows for that.
    row->setPos(0.0, rowsBottom());
    ui::RowBlock* block = nullptr;
    if (m_layout->count() > 0) {
        const QGraphicsItem* const last = m_layout->itemAt(m_layout->count() - 1)->graphicsItem();
        block = last != nullptr ? dynamic_cast<ui::RowBlock*>(last->parentItem()) : nullptr;
    }
    if (!block || block->childItems().size() >= ui::RowBlock::kRows) {
        block = new ui::RowBlock(this);
    }
    prepareGeometryChange();
    m_layout->addItem(row);
    row->setParentItem(block);
    m_bottom = row->y() + row->rect().bottom();
}

TimeEditorLayoutContainer::Under TimeEditorLayoutContainer::under(const QRectF& place) const
{
    Under found;
    for (const QGraphicsItem* const block : childItems()) {
        const QRectF bounds = block->boundingRect();
        if (!overlaps(bounds.top(), bounds.bottom(), place)) {
            continue;
        }
        if (dynamic_cast<const ui::RowBlock*>(block) == nullptr) {
            found.others = true; // a host's own
            continue;
        }
        for (QGraphicsItem* const item : block->childItems()) {
            auto* const row = dynamic_cast<TimeEditorCurveItem*>(item);
            if (!row || !row->isPaintedByStack()) {
                found.others = found.others || item->isVisible();
                continue;
            }
            const QRectF inRow = place.translated(-row->scenePos());
            if (!overlaps(row->rect().top(), row->rect().bottom(), inRow)) {
                continue;
            }
            if (!found.key) {
                found.key = row->keyAt(inRow);
            }
            if (!found.row && row->bar().intersects(inRow)) {
                found.row = row;
            }
        }
    }
    return found;
}

TimeEditorKeyframeItem* TimeEditorLayoutContainer::keyAt(const QRectF& place) const
{
    return under(place).key;
}

QRectF TimeEditorLayoutContainer::boundingRect() const
{
    if (const ui::RowPass* const pass = ui::RowPass::current()) {
        return pass->exposed();
    }
    const QRectF own = QGraphicsWidget::boundingRect();
    return {
        -ui::kFarthestFrame,
        own.top(),
        2.0 * ui::kFarthestFrame,
        std::max(own.height(), m_bottom - own.top())};
}

bool TimeEditorLayoutContainer::collidesWithPath(
    const QPainterPath& path, Qt::ItemSelectionMode /*mode*/) const
{
    if (ui::KeyMask* const mask = ui::KeyMask::current()) {
        mask->beginWalk();
        if (ui::KeyMask::current() && mask->hidesStack()) {
            return false;
        }
    }
    const QRectF own = boundingRect();
    const QRectF reached = path.controlPointRect();
    return overlaps(own.top(), own.bottom(), reached);
}

void TimeEditorLayoutContainer::setGeometry(const QRectF& rect)
{
    prepareGeometryChange();
    m_bottom = 0.0;
    QGraphicsWidget::setGeometry(rect);
}

void TimeEditorLayoutContainer::paint(
    QPainter* painter, const QStyleOptionGraphicsItem* /*option*/, QWidget* widget)
{
    const ui::RowPass* const pass = ui::RowPass::current();
    const QRectF exposed = pass != nullptr ? pass->exposed() : boundingRect();
    QColor line = ui::colorQt(QStringLiteral("Shadow"));
    line.setAlphaF(kSeparatorAlpha);
    for (const QGraphicsItem* const block : childItems()) {
        const QRectF bounds = block->boundingRect();
        if (!overlaps(bounds.top(), bounds.bottom(), exposed)) {
            continue;
        }
        for (QGraphicsItem* const item : block->childItems()) {
            auto* const row = dynamic_cast<TimeEditorBaseItem*>(item);
            if (!row || !overlaps(row->y(), row->y() + row->rect().bottom(), exposed)) {
                continue;
            }
            const double bottom = row->y() + row->rect().bottom();
            painter->fillRect(QRectF(exposed.left(), bottom - 1.0, exposed.width(), 1.0), line);
            auto* const curve = dynamic_cast<TimeEditorCurveItem*>(row);
            if (pass && curve && curve->isPaintedByStack()) {
                curve->paintStacked(*painter, exposed, widget);
            }
        }
    }
}
