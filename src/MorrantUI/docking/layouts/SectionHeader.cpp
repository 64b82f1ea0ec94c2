// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/layouts/SectionHeader.h"

#include "MorrantUI/controls/accessibility.h"
#include "MorrantUI/controls/buttons/AccessibleButton.h"
#include "MorrantUI/controls/buttons/buttonlook.h"
#include "MorrantUI/controls/values/elidedtext.h"
#include "MorrantUI/theme/style/shades.h"
#include "MorrantUI/theme/style/shapes.h"
#include <MorrantUI/theme/colors.h>

#include <QFontMetrics>
#include <QKeyEvent>
#include <QPainter>
#include <QStyle>

namespace {

constexpr int kPadding = 6;            ///< before the chevron and behind the title, logical pixels
constexpr int kGap = 4;                ///< from the chevron to the title
constexpr int kChevron = 12;           ///< side of the square that the chevron is drawn in
constexpr int kBeyondRow = 2;          ///< what a header is higher than a row
constexpr double kFoldedTurn = -90.0;  ///< degrees of the chevron, from pointing down
constexpr double kRestStrength = 0.75; ///< of the chevron's colour while the pointer is elsewhere

class AccessibleHeader : public ui::AccessibleButton
{
public:
    explicit AccessibleHeader(SectionHeader* header)
        : AccessibleButton(header, QAccessible::Button)
        , m_header(header)
    {}

    QAccessible::State state() const override
    {
        QAccessible::State state = AccessibleButton::state();
        state.expandable = true;
        state.expanded = m_header->isExpanded();
        state.collapsed = !m_header->isExpanded();
        return state;
    }

    QString text(QAccessible::Text kind) const override
    {
        const bool isTitle = kind == QAccessible::Name && m_header->accessibleName().isEmpty();
        return isTitle ? m_header->title() : AccessibleButton::text(kind);
    }

private:
    SectionHeader* m_header;
};

QFont titleFont(const QWidget& widget)
{
    QFont font = widget.font();
    font.setWeight(QFont::Medium);
    return font;
}

} // namespace

SectionHeader::SectionHeader(QWidget* parent)
    : QAbstractButton(parent)
{
    ui::installAccessible<SectionHeader, AccessibleHeader>();
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setFocusPolicy(Qt::TabFocus); // a click must not take the focus from a field
    setAttribute(Qt::WA_Hover);
}

void SectionHeader::setTitle(const QString& title)
{
    if (m_title == title) {
        return;
    }
    m_title = title;
    updateGeometry();
    update();
    if (QAccessible::isActive()) {
        QAccessibleEvent event(this, QAccessible::NameChanged);
        QAccessible::updateAccessibility(&event);
    }
}

void SectionHeader::setOpenness(double openness)
{
    if (m_openness != openness) {
        m_openness = openness;
        update();
    }
}

void SectionHeader::setExpanded(bool expanded)
{
    m_expanded = expanded;
    if (QAccessible::isActive()) {
        QAccessible::State changed;
        changed.expanded = true;
        changed.collapsed = true;
        QAccessibleStateChangeEvent event(this, changed);
        QAccessible::updateAccessibility(&event);
    }
}

QSize SectionHeader::sizeHint() const
{
    const QFont font = titleFont(*this);
    const int row = ui::rowHeight(*this);
    return {
        2 * kPadding + kChevron + kGap + ui::wholeWidth(font, m_title),
        qMax(row, QFontMetrics(font).height()) + kBeyondRow};
}

QSize SectionHeader::minimumSizeHint() const
{
    return {2 * kPadding + kChevron, sizeHint().height()};
}

void SectionHeader::keyPressEvent(QKeyEvent* event)
{
    const int fold = isRightToLeft() ? Qt::Key_Right : Qt::Key_Left;
    const int unfold = isRightToLeft() ? Qt::Key_Left : Qt::Key_Right;
    if (event->modifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier)) {
        QAbstractButton::keyPressEvent(event);
    } else if (event->key() == fold) {
        Q_EMIT foldRequested();
    } else if (event->key() == unfold) {
        Q_EMIT unfoldRequested();
    } else if (!ui::clickOnReturn(*this, *event)) {
        QAbstractButton::keyPressEvent(event);
    }
}

void SectionHeader::paintEvent(QPaintEvent* /*event*/)
{
    using namespace ui::style;
    QPainter painter(this);
    WidgetState state = stateOf(*this);
    // Darker than a header at rest would be the ground that it lies on.
    state.hovered = state.hovered && !isDown();
    const auto placed = [this](const QRect& part) {
        return QStyle::visualRect(layoutDirection(), rect(), part);
    };
    const QRectF chevron = placed({kPadding, (height() - kChevron) / 2, kChevron, kChevron});
    const int titleLeft = kPadding + kChevron + kGap;
    const QRect title = placed({titleLeft, 0, width() - titleLeft - kPadding, height()});
    const QColor text = ui::colorQt(QStringLiteral("WindowText"));

    fillRounded(
        painter, rect(), kRadius, shade(ui::colorQt(QStringLiteral("ElementHeader")), state));
    {
        const PainterState saved(painter);
        painter.translate(chevron.center());
        painter.rotate((1.0 - m_openness) * (isRightToLeft() ? -kFoldedTurn : kFoldedTurn));
        drawChevron(
            painter,
            chevron.translated(-chevron.center()),
            Qt::DownArrow,
            ink(state.hovered ? text : translucent(text, kRestStrength), state));
    }
    const QFont font = titleFont(*this);
    painter.setFont(font);
    painter.setPen(ink(state.hovered ? ui::colorQt(QStringLiteral("Text")) : text, state));
    painter.drawText(
        title,
        static_cast<int>(
            QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter)),
        QFontMetrics(font).elidedText(m_title, Qt::ElideRight, title.width()));
    if (state.keyboard) {
        drawFocusRing(painter, rect());
    }
}
