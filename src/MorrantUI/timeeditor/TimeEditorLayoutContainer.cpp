#include "MorrantUI/timeeditor/TimeEditorLayoutContainer.h"

#include "MorrantUI/timeeditor/RowBlock.h"
#include "MorrantUI/timeeditor/rowpass.h"
#include <MorrantUI/theme/colors.h>
#include <MorrantUI/timeeditor/TimeEditorBaseItem.h>
#include <MorrantUI/timeeditor/TimeEditorCurveItem.h>

#include <QGraphicsLinearLayout>
#include <QPainter>
#include <QStyleOptionGraphicsItem>

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
    m_layout->addItem(row);
    row->setParentItem(block);
}

TimeEditorKeyframeItem* TimeEditorLayoutContainer::keyAt(const QRectF& place) const
{
    for (const QGraphicsItem* const block : childItems()) {
        const QRectF bounds = block->boundingRect();
        if (!overlaps(bounds.top(), bounds.bottom(), place)) {
            continue;
        }
        for (QGraphicsItem* const item : block->childItems()) {
            const auto* const row = dynamic_cast<const TimeEditorCurveItem*>(item);
            TimeEditorKeyframeItem* const key = row != nullptr && row->isPaintedByStack()
                                                    ? row->keyAt(place.translated(-row->scenePos()))
                                                    : nullptr;
            if (key) {
                return key;
            }
        }
    }
    return nullptr;
}

QRectF TimeEditorLayoutContainer::boundingRect() const
{
    const ui::RowPass* const pass = ui::RowPass::current();
    return pass != nullptr ? pass->exposed() : QGraphicsWidget::boundingRect();
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
