// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/tabs/TabLabel.h"

#include "MorrantUI/controls/values/elidedtext.h"
#include "MorrantUI/docking/tabs/tablook.h"

#include <QEvent>

namespace {

constexpr int kMostChars = 24; ///< of a text that is shown whole, about

} // namespace

TabLabel::TabLabel(QWidget* tab)
    : RolloverLabel(tab)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    tab->setAttribute(Qt::WA_Hover);
    tab->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    tab->installEventFilter(this);
    followFont();
    followState();
}

TabLabel::~TabLabel() = default;

void TabLabel::showText(const QString& text)
{
    m_wholeText = text;
    QString shown = text;
    setText(shown.replace(QLatin1Char('&'), QLatin1String("&&")));
}

void TabLabel::setActive(bool active)
{
    m_active = active;
    followState();
}

void TabLabel::followState()
{
    const bool hovered = parentWidget()->isEnabled() && parentWidget()->underMouse();
    const auto color = m_active  ? QStringLiteral("Text")
                       : hovered ? QStringLiteral("WindowText")
                                 : QStringLiteral("HelperHints");
    setColors(color);
}

/// Bounds the width of what is shown whole to about so many letters of the tab's font.
void TabLabel::followFont()
{
    setMaximumWidth(kMostChars * fontMetrics().averageCharWidth());
    parentWidget()->setFixedHeight(ui::tabs::tabHeight(*parentWidget()));
}

bool TabLabel::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::FontChange:
    case QEvent::StyleChange: followFont(); break;
    case QEvent::EnabledChange:
    case QEvent::HoverEnter:
    case QEvent::HoverLeave: followState(); break;
    case QEvent::ToolTip: {
        const bool isCut = width() < sizeHint().width();
        return ui::answerWithWholeText(
            *parentWidget(), event, m_wholeText, isCut ? QString() : m_wholeText);
    }
    default: break;
    }
    return RolloverLabel::eventFilter(watched, event);
}
