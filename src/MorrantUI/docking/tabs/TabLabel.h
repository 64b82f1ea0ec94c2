#pragma once

#include <MorrantUI/controls/values/RolloverLabel.h>

/// The text on a tab, which as a whole is what is hovered and clicked.
class TabLabel : public RolloverLabel
{
    Q_OBJECT

public:
    explicit TabLabel(QWidget* tab);
    ~TabLabel() override;

    /// Any text; an ampersand is shown as it is.
    void showText(const QString& text);
    QString wholeText() const { return m_wholeText; }

    /// Bounds the width of what is shown whole to about so many letters of the tab's font.
    void followFont();
    /// @param active the tab in front, whose text is the brightest
    void followState(bool active, bool hovered);

    /// Answers a request for a tool tip on the tab with the whole text, if it is cut.
    bool answerToolTip(QWidget& tab, QEvent* event);

private:
    QString m_wholeText;
};
