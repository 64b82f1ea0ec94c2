// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/graph/EasingEditor.h"

#include <MorrantUI/controls/buttons/SegmentedButton.h>
#include <MorrantUI/graph/FixedGraphView.h>
#include <MorrantUI/graph/GeneralGraphUtils.h>
#include <MorrantUI/graph/GraphBezierHandleItem.h>
#include <MorrantUI/graph/GraphPointWidget.h>
#include <MorrantUI/graph/fixedunits.h>

#include <QFocusEvent>
#include <QGraphicsScene>
#include <QLocale>
#include <QPointer>
#include <QVBoxLayout>

#include <algorithm>
#include <functional>

namespace {

constexpr QSize kUsualSize(200, 220); ///< logical pixels
constexpr int kMargin = 4;

constexpr QRectF kUsualRange(-0.25, -0.25, 10.5, 10.5); ///< scene units
constexpr double kHandleRoom = 0.5;                     ///< scene units around a far handle
constexpr double kMostShown = 200.0;                    ///< scene units on either side

/// A share of the change as the data has it, which leaves room for what overshoots.
double shareOf(double value)
{
    return (value - ui::easing::kOvershootRoom) / (1 - 2 * ui::easing::kOvershootRoom);
}

} // namespace

/// The graph without what would add or move keys: an easing has two.
class EasingEditor::View : public FixedGraphView
{
public:
    explicit View(GraphCurveData* curve)
        : FixedGraphView(curve)
    {
        setContextMenuPolicy(Qt::NoContextMenu); // the panel's is the one to open
        setMinimumPoints(3);                     // Delete takes none away
    }

    /// Ends what the mouse is doing, as by its release.
    void finish() { abandonGesture(); }

    void fill()
    {
        const auto before = selectedHandle();
        fillGraph(true);
        for (GraphPointWidget* point : utils()->pointItems(false)) {
            point->setAcceptedMouseButtons(Qt::NoButton);
            point->setFlag(QGraphicsItem::ItemIsSelectable, false);
        }
        for (QGraphicsItem* item : scene()->items()) {
            if (!item->parentItem()) { // the curve
                item->setFlag(QGraphicsItem::ItemIsSelectable, false);
            }
        }
        select(before);
    }

    /// That of the first key and that of the second, without one that lies on its key.
    std::vector<GraphBezierHandleItem*> handles()
    {
        std::vector<GraphBezierHandleItem*> all;
        for (GraphPointWidget* const point : utils()->pointItems(false)) {
            for (auto* const handle : {point->getLeftBezier(), point->getRightBezier()}) {
                if (handle && handle->isVisible()) {
                    all.push_back(handle);
                }
            }
        }
        std::ranges::sort(all, std::ranges::greater(), &GraphBezierHandleItem::side);
        return all;
    }

protected:
    QString pointText(const GraphPointWidget& point) const override
    {
        return placeText(point.scenePos());
    }
    QString selectionText() const override
    {
        const auto selected = scene()->selectedItems();
        return selected.empty() ? QString() : placeText(selected.constFirst()->scenePos());
    }
    void focusInEvent(QFocusEvent* event) override
    {
        const bool isBack = event->reason() == Qt::BacktabFocusReason;
        const auto all = handles();
        if (!all.empty() && (isBack || event->reason() == Qt::TabFocusReason)) {
            select((isBack ? all.back() : all.front())->side());
        }
        FixedGraphView::focusInEvent(event);
    }
    /// From the one handle to the other, and from there on as always.
    bool focusNextPrevChild(bool next) override
    {
        const auto from = next ? Side::Right : Side::Left;
        if (handles().size() == 2 && selectedHandle() == from) {
            select(next ? Side::Left : Side::Right);
            describeSelection();
            return true;
        }
        return FixedGraphView::focusNextPrevChild(next);
    }

private:
    using Side = ui::Graph::Side;

    std::optional<Side> selectedHandle()
    {
        for (const GraphBezierHandleItem* const handle : handles()) {
            if (handle->isSelected()) {
                return handle->side();
            }
        }
        return {};
    }
    void select(std::optional<Side> side)
    {
        for (GraphBezierHandleItem* const handle : handles()) {
            handle->setSelected(handle->side() == side);
        }
    }
    QString placeText(QPointF place) const
    {
        const num2<double> shown = ui::Graph::fixedData(place);
        const QLocale locale;
        return EasingEditor::tr("Time %1, change %2")
            .arg(locale.toString(shown.x), locale.toString(shareOf(shown.y)));
    }
};

EasingEditor::EasingEditor(QWidget* parent)
    : Widget(parent)
    , m_view(new View(&m_data))
    , m_presets(new SegmentedButton)
{
    setLayoutDirection(Qt::LeftToRight); // as time goes, in the row of presets too
    setAccessibleName(tr("Easing"));
    m_view->setAccessibleName(tr("Easing curve"));
    m_presets->setAccessibleName(tr("Easing presets"));
    for (const EasingPreset preset : ui::easing::kPresets) {
        m_presets->addSegment({}, ui::easing::presetIcon(preset), ui::easing::presetName(preset));
    }
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->addWidget(m_presets, 0, Qt::AlignHCenter);
    layout->addWidget(m_view, 1);

    connect(m_presets, &SegmentedButton::currentIndexChanged, this, &EasingEditor::choose);
    connect(m_view, &FixedGraphView::gestureStarted, this, [this] {
        m_isDragging = true;
        m_before = m_easing;
        Q_EMIT editStarted();
    });
    connect(m_view, &FixedGraphView::pointMoved, this, [this](GraphPointWidget* point) {
        m_data.replace(m_view->shownKey(point));
        m_easing = ui::easing::easingOf(m_data.keys());
        showPreset({m_easing});
        Q_EMIT edited(m_easing);
    });
    connect(m_view, &FixedGraphView::gestureEnded, this, [this](bool changed) {
        m_isDragging = false;
        showHandles();
        Q_EMIT editEnded(changed && (m_isMixed || !(m_easing == m_before)));
    });
    setEasing(std::nullopt);
}

EasingEditor::~EasingEditor()
{
    m_view->disconnect(this); // a drag that ends with it has nobody to tell
    m_view->setData(nullptr); // which dies before it
}

void EasingEditor::setEasing(const std::optional<SegmentEasing>& easing)
{
    setEasings(easing ? std::vector{*easing} : std::vector<SegmentEasing>());
}

void EasingEditor::setEasings(const std::vector<SegmentEasing>& easings)
{
    if (m_isDragging) {
        return;
    }
    m_hasEasing = !easings.empty();
    setEnabled(m_hasEasing);
    m_isMixed = std::any_of(easings.begin(), easings.end(), [&](const auto& easing) {
        return !(easing == easings.front());
    });
    fill(m_hasEasing ? ui::easing::finiteEasing(easings.front()) : SegmentEasing());
    showPreset(easings);
}

std::optional<SegmentEasing> EasingEditor::easing() const
{
    return m_hasEasing ? std::optional(m_easing) : std::nullopt;
}

void EasingEditor::fill(const SegmentEasing& easing)
{
    m_easing = easing;
    GraphCurveData curve;
    curve.setKeys(ui::easing::curveOf(easing));
    if (!(curve == m_data) || m_view->utils()->pointItems(false).empty()) {
        m_data = curve;
        m_view->fill();
    }
    showHandles();
}

/// Brings them into sight, as far as the curve can still be seen.
void EasingEditor::showHandles()
{
    QRectF range = kUsualRange;
    for (const GraphBezierHandleItem* const handle : m_view->handles()) {
        const QPointF room(kHandleRoom, kHandleRoom);
        const QPointF place = handle->scenePos();
        if (!kUsualRange.contains(place)) {
            range |= QRectF(place - room, place + room);
        }
    }
    range.setTop(std::max(range.top(), -kMostShown));
    range.setBottom(std::min(range.bottom(), kMostShown));
    m_view->scene()->setSceneRect(range); // else it would not be scrolled there
    m_view->fitToRect(range);
}

/// The one that all are; none where they differ.
void EasingEditor::showPreset(const std::vector<SegmentEasing>& of)
{
    const auto preset = of.empty() ? std::nullopt : ui::easing::presetOf(of.front());
    const bool isOne = preset && std::all_of(of.begin(), of.end(), [&](const auto& easing) {
                           return ui::easing::presetOf(easing) == preset;
                       });
    m_presets->setCurrentIndex(isOne ? static_cast<int>(*preset) : -1);
}

void EasingEditor::finishGesture()
{
    m_view->finish();
}

FixedGraphView& EasingEditor::view() const
{
    return *m_view;
}

/// The host may show something else, or delete the editor, in each slot.
void EasingEditor::choose(int preset)
{
    const QPointer<EasingEditor> alive(this);
    finishGesture();
    if (alive) {
        Q_EMIT editStarted();
    }
    const bool isTaken = alive && m_hasEasing;
    if (isTaken) {
        m_isMixed = false;
        fill(ui::easing::easingOf(static_cast<EasingPreset>(preset)));
        showPreset({m_easing}); // which a slot may have set back
        Q_EMIT edited(m_easing);
    }
    if (alive) {
        Q_EMIT editEnded(isTaken);
    }
}

QSize EasingEditor::sizeHint() const
{
    return kUsualSize;
}
