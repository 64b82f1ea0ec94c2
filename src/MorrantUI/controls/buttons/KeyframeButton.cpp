// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/buttons/KeyframeButton.h"

#include "MorrantUI/controls/buttons/AccessibleButton.h"
#include "MorrantUI/controls/buttons/buttonlook.h"
#include "MorrantUI/theme/style/pixelgrid.h"
#include "MorrantUI/theme/style/shades.h"

#include <QEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPen>

namespace {

constexpr double kReach = 0.37;    ///< from the diamond's centre to a corner, of an indicator
constexpr double kLineWidth = 1.5; ///< logical pixels
constexpr double kDimmed = 0.5;    ///< strength of the outline while nothing is animated

QPainterPath diamond(const QPointF& center, double reach)
{
    QPainterPath path(center + QPointF(0, -reach));
    path.lineTo(center + QPointF(reach, 0));
    path.lineTo(center + QPointF(0, reach));
    path.lineTo(center + QPointF(-reach, 0));
    path.closeSubpath();
    return path;
}

/// The state is the host's to set: what a tool switches is a wish.
class AccessibleKeyframe : public ui::AccessibleButton
{
public:
    explicit AccessibleKeyframe(KeyframeButton* button)
        : AccessibleButton(button, QAccessible::CheckBox)
    {}

    QAccessible::State state() const override
    {
        const KeyframeButton::State shown = button()->state();
        QAccessible::State state = AccessibleButton::state();
        state.checkable = true;
        state.checked = shown == KeyframeButton::State::KeyAtFrame;
        state.checkStateMixed = shown == KeyframeButton::State::Animated;
        return state;
    }
    QString text(QAccessible::Text kind) const override
    {
        if (kind != QAccessible::Description || !button()->accessibleDescription().isEmpty()) {
            return AccessibleButton::text(kind);
        }
        switch (button()->state()) {
        case KeyframeButton::State::None: break;
        case KeyframeButton::State::Animated: return KeyframeButton::tr("Animated");
        case KeyframeButton::State::KeyAtFrame: return KeyframeButton::tr("Keyframe at this frame");
        }
        return KeyframeButton::tr("Not animated");
    }
    QStringList actionNames() const override
    {
        QStringList names = AccessibleButton::actionNames();
        names.replaceInStrings(pressAction(), toggleAction());
        return names;
    }

private:
    KeyframeButton* button() const { return static_cast<KeyframeButton*>(object()); }
};

} // namespace

KeyframeButton::KeyframeButton(QWidget* parent)
    : RowButton(parent)
{
    ui::installAccessible<KeyframeButton, AccessibleKeyframe>();
    setAccessibleName(tr("Keyframe"));
    describeState();
}

KeyframeButton::~KeyframeButton() = default;

void KeyframeButton::setState(State state)
{
    if (m_state != state) {
        m_state = state;
        describeState();
        update();
        ui::notifyAccessibleCheck(this);
        Q_EMIT stateChanged(state);
    }
}

void KeyframeButton::paintMark(QPainter& painter)
{
    const ui::style::WidgetState state = ui::style::stateOf(ui::buttonOption(*this));
    const bool isAnimated = m_state != State::None;
    QColor color = isAnimated ? ui::style::accentColor() : palette().color(QPalette::ButtonText);
    if (!isAnimated && !state.hovered) {
        color = ui::style::translucent(color, kDimmed);
    }
    color = ui::style::ink(color, state);

    const QPointF center = ui::style::PixelGrid(painter).snap(rect()).center();
    const QPainterPath shape = diamond(center, kReach * ui::indicatorHeight(*this));
    const QPen line(color, kLineWidth, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin);
    if (m_state == State::KeyAtFrame) {
        painter.fillPath(shape, color);
    }
    if (m_state != State::KeyAtFrame || state.enabled) {
        painter.strokePath(shape, line);
    }
}

void KeyframeButton::changeEvent(QEvent* event)
{
    RowButton::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        describeState();
    }
}

void KeyframeButton::describeState()
{
    const bool hasKey = m_state == State::KeyAtFrame;
    const QString action =
        hasKey ? tr("Remove the keyframe at this frame") : tr("Set a keyframe at this frame");
    if (toolTip() == m_ownToolTip) {
        m_ownToolTip = action;
        setToolTip(action);
    }
}
