#include "MorrantUI/docking/tabs/TabLabel.h"

#include "MorrantUI/controls/values/elidedtext.h"

static constexpr int kMostChars = 24; ///< of a text that is shown whole, about

TabLabel::TabLabel(QWidget* tab)
    : RolloverLabel(tab)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
}

TabLabel::~TabLabel() = default;

void TabLabel::showText(const QString& text)
{
    m_wholeText = text;
    QString shown = text;
    setText(shown.replace(QLatin1Char('&'), QLatin1String("&&")));
}

void TabLabel::followFont()
{
    setMaximumWidth(kMostChars * fontMetrics().averageCharWidth());
}

void TabLabel::followState(bool active, bool hovered)
{
    const auto color = active    ? QStringLiteral("Text")
                       : hovered ? QStringLiteral("WindowText")
                                 : QStringLiteral("HelperHints");
    setColors(color);
}

bool TabLabel::answerToolTip(QWidget& tab, QEvent* event)
{
    const bool isCut = width() < sizeHint().width();
    return ui::answerWithWholeText(tab, event, m_wholeText, isCut ? QString() : m_wholeText);
}
