// SPDX-License-Identifier: Apache-2.0
#include "graph/EasingEditor.h"

#include <MorrantUI/controls/buttons/SegmentedButton.h>
#include <MorrantUI/graph/FixedGraphView.h>
#include <MorrantUI/graph/GeneralGraphUtils.h>
#include <MorrantUI/graph/GraphPointWidget.h>

#include <QGraphicsScene>
#include <QVBoxLayout>

namespace studio {

namespace {

constexpr QSize kUsualSize(200, 220); ///< logical pixels
constexpr int kMargin = 4;

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
    setAccessibleName(tr("Easing"));
    m_view->setAccessibleName(tr("Easing curve"));
    const std::pair<QString, QString> presets[] = {// as Preset has them
                                                   {tr("Linear"), u"easeLinear"_qs},
                                                   {tr("Ease in"), u"easeIn"_qs},
                                                   {tr("Ease out"), u"easeOut"_qs},
                                                   {tr("Ease in and out"), u"easeBezier"_qs},
                                                   {tr("Back"), u"easeBack"_qs},
                                                   {tr("Hold"), u"easeHold"_qs}};
    for (const auto& [name, icon] : presets) {
        m_presets->addSegment({}, u"icons:%1.png"_qs.arg(icon), name);
    }
    m_presets->setAccessibleName(tr("Easing presets"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->addWidget(m_presets, 0, Qt::AlignHCenter);
    layout->addWidget(m_view, 1);

    connect(m_presets, &SegmentedButton::currentIndexChanged, this, &EasingEditor::choose);
    connect(m_view, &FixedGraphView::gestureStarted, this, [this] {
        m_isEditing = true;
        Q_EMIT editStarted();
    });
    connect(m_view, &FixedGraphView::pointMoved, this, [this](GraphPointWidget* point) {
        m_data.replace(m_view->shownKey(point));
        m_easing = easingOf(m_data.keys());
        Q_EMIT easingEdited(m_easing);
    });
    connect(m_view, &FixedGraphView::gestureEnded, this, [this](bool changed) {
        m_isEditing = false;
        Q_EMIT editEnded(changed);
    });
    setEasing(std::nullopt);
}

EasingEditor::~EasingEditor()
{
    m_view->setData(nullptr); // which dies before it
}

void EasingEditor::setEasing(const std::optional<SegmentEasing>& easing)
{
    if (m_isEditing) {
        return;
    }
    setEnabled(easing.has_value());
    fill(easing.value_or(SegmentEasing()));
    const auto preset = easing ? presetOf(*easing) : std::nullopt;
    m_presets->setCurrentIndex(preset ? static_cast<int>(*preset) : -1);
}

void EasingEditor::fill(const SegmentEasing& easing)
{
    m_easing = easing;
    GraphCurveData curve;
    curve.setKeys(curveOf(easing));
    if (!(curve == m_data) || m_view->utils()->pointItems(false).empty()) {
        m_data = curve;
        m_view->fill();
    }
}

void EasingEditor::finishGesture()
{
    m_view->finish();
}

FixedGraphView& EasingEditor::view() const
{
    return *m_view;
}

void EasingEditor::choose(int preset)
{
    finishGesture();
    Q_EMIT editStarted();
    Q_EMIT easingEdited(easingOf(static_cast<Preset>(preset)));
    Q_EMIT editEnded(true);
}

QSize EasingEditor::sizeHint() const
{
    return kUsualSize;
}

} // namespace studio
