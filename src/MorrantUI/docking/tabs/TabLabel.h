// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/controls/values/RolloverLabel.h>

/// The text on a tab, which as a whole is what is hovered and clicked, and what follows from it:
/// the tab is as high as its font wants, brighter under the pointer, and shows a text that is cut
/// whole in a tool tip.
class TabLabel : public RolloverLabel
{
    Q_OBJECT

public:
    /// The tab gets a fixed size and is filtered from here on.
    explicit TabLabel(QWidget* tab);
    ~TabLabel() override;

    /// Any text; an ampersand is shown as it is.
    void showText(const QString& text);
    QString wholeText() const { return m_wholeText; }

    /// The tab in front has the brightest text.
    void setActive(bool active);
    /// To be called when the tab shows: the pointer may have come and gone meanwhile.
    void followState();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void followFont();

    QString m_wholeText;
    bool m_active = false;
};
