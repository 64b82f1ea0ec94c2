// SPDX-License-Identifier: Apache-2.0
#include "guide.h"
#include <MorrantUI/MorrantUI.h>

#include <QCoreApplication>
#include <QVBoxLayout>

#include <algorithm>

namespace {

/// The curve of one property, and the easing of the segment at the current frame.
class OpacityPanel : public QWidget
{
    Q_DECLARE_TR_FUNCTIONS(OpacityPanel)

public:
    explicit OpacityPanel(PlaybackClock* clock)
        : m_clock(clock)
    {
        auto* column = new QVBoxLayout(this);
        column->addWidget(m_pane);
        // [pane]
        m_pane->setProperties({{.text = tr("Opacity")}});
        m_pane->setClock(clock);
        m_curve = m_pane->view().addCurve(tr("Opacity"), QStringLiteral("Accent2"));
        connect(clock, &PlaybackClock::frameChanged, this, &OpacityPanel::showEasing);
        connect(&m_pane->view(), &ValueGraphView::keysChanging, this, [this] {
            setKeys(m_curve->keys()); // fields of the pane edit through the view, too
        });
        connect(&m_pane->easingEditor(), &EasingEditor::editStarted, this, [this] {
            m_eased = segment(); // until the end, whatever is played meanwhile
        });
        connect(&m_pane->easingEditor(), &EasingEditor::edited, this, &OpacityPanel::ease);
        connect(m_pane, &ValueGraphPane::deleteWanted, this, &OpacityPanel::deleteKeys);
        // One step of a history each.
        connect(&m_pane->view(), &ValueGraphView::gestureEnded, this, &OpacityPanel::finishStep);
        connect(&m_pane->easingEditor(), &EasingEditor::editEnded, this, &OpacityPanel::finishStep);
        // [pane]
        setKeys({{0, 0}, {40, 100}, {90, 30}});
    }

private:
    using Keys = std::vector<ValueGraphKey>;

    // [easing]
    void setKeys(Keys keys)
    {
        std::ranges::stable_sort(keys, {}, &ValueGraphKey::time); // they may have passed each other
        m_keys = std::move(keys);
        m_curve->setKeys(m_keys);
        showEasing();
    }

    /// The first key of the segment at the current frame, or of the one nearest to it.
    std::size_t segment() const
    {
        const auto isLater = [&](const ValueGraphKey& key) { return key.time > m_clock->frame(); };
        const auto to = std::find_if(m_keys.begin() + 1, m_keys.end() - 1, isLater);
        return static_cast<std::size_t>(to - m_keys.begin()) - 1;
    }

    void showEasing()
    {
        std::optional<SegmentEasing> easing;
        if (m_keys.size() > 1) {
            easing = ui::easing::easingOf(m_keys[segment()], m_keys[segment() + 1]);
        }
        m_pane->easingEditor().setEasing(easing); // ignored while the user drags there
    }

    void ease(const SegmentEasing& easing)
    {
        if (m_eased + 1 < m_keys.size()) {
            ui::easing::setEasing(m_keys[m_eased], m_keys[m_eased + 1], easing);
            m_curve->setKeys(m_keys);
        }
    }
    // [easing]

    void deleteKeys()
    {
        const auto selected = m_pane->view().selectedKeys();
        for (auto place = selected.rbegin(); place != selected.rend(); ++place) {
            m_keys.erase(m_keys.begin() + static_cast<std::ptrdiff_t>(place->key));
        }
        setKeys(m_keys);
        finishStep(true);
    }
    void finishStep(bool changed)
    {
        m_steps += changed ? 1 : 0;
        showEasing();
    }

    PlaybackClock* m_clock;
    ValueGraphPane* m_pane = new ValueGraphPane;
    ValueGraphCurve* m_curve = nullptr;
    Keys m_keys;             ///< the document, by their times
    std::size_t m_eased = 0; ///< the segment's first key
    int m_steps = 0;
};

} // namespace

QWidget* graphPaneChapter()
{
    static PlaybackClock clock;
    clock.setTrack(0, 100, 24);
    return new OpacityPanel(&clock);
}
