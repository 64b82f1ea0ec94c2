// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/tabs/TabCloseButton.h"

#include "MorrantUI/controls/accessibility.h"
#include "MorrantUI/controls/buttons/AccessibleButton.h"
#include "MorrantUI/controls/buttons/buttonlook.h"
#include <MorrantUI/docking/tabs/TabItem.h>
#include <MorrantUI/theme/colors.h>

#include <QPainter>

namespace {

constexpr int kSide = 16; ///< logical pixels, as in the application style's own tabs

} // namespace

TabCloseButton::TabCloseButton(QWidget* parent)
    : QAbstractButton(parent)
{
    ui::installAccessible<TabCloseButton, ui::AccessibleButtonAs<QAccessible::Button>>();
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_Hover);
    setCursor(Qt::ArrowCursor);
    setToolTip(tr("Close Tab"));
}

TabCloseButton::~TabCloseButton() = default;

QSize TabCloseButton::sizeHint() const
{
    return {kSide, kSide};
}

void TabCloseButton::paintEvent(QPaintEvent* /*event*/)
{
    QStyleOption option = ui::buttonOption(*this);
    const auto* const tab = qobject_cast<const TabItem*>(parentWidget());
    if (tab && !tab->isActive() && !tab->underMouse()) {
        option.palette.setColor(QPalette::WindowText, ui::colorQt(QStringLiteral("HelperHints")));
    }
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_IndicatorTabClose, &option, &painter, this);
}
