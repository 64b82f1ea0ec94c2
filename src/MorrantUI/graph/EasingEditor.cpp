// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/graph/EasingEditor.h"

#include "MorrantUI/graph/graphmoves.h"
#include <MorrantUI/controls/buttons/SegmentedButton.h>
#include <MorrantUI/graph/FixedGraphView.h>
#include <MorrantUI/graph/GeneralGraphUtils.h>
#include <MorrantUI/graph/GraphPointWidget.h>

#include <QGraphicsScene>
#include <QPointer>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr QSize kUsualSize(200, 220); ///< logical pixels
constexpr int kMargin = 4;

SegmentEasing finite(const SegmentEasing& easing)
{
    const bool isFinite = ui::Graph::isFinite(easing.out) && ui::Graph::isFinite(easing.in);
    return isFinite ? easing : SegmentEasing{.hold = easing.hold};
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
        Q_EMIT editEnded(changed);
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
    fill(m_hasEasing ? finite(easings.front()) : SegmentEasing());
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
    if (alive) {
        fill(ui::easing::easingOf(static_cast<EasingPreset>(preset)));
        Q_EMIT edited(m_easing);
    }
    if (alive) {
        Q_EMIT editEnded(true);
    }
}

QSize EasingEditor::sizeHint() const
{
    return kUsualSize;
}
