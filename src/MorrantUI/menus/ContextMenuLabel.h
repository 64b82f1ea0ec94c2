// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QColor>
#include <QLabel>

/// The text of a menu row: always plain, with mnemonics as in any menu, and with an ellipsis where
/// it does not fit.
class MORRANT_UI_EXPORT ContextMenuLabel : public QLabel
{
    Q_OBJECT

public:
    explicit ContextMenuLabel(QWidget* parent = nullptr);
    ~ContextMenuLabel() override;

    /// In the colour of a chosen row's text, whatever colour it has of its own.
    void setHighlighted(bool highlighted);
    bool isHighlighted() const { return m_highlighted; }

    /// At rest; an invalid one leaves it to the theme.
    void setColor(const QColor& color);
    QColor color() const { return m_color; }

    /// Demi-bold and, unless it has a colour of its own, in the theme's "Accent1".
    void setAccented(bool accented);
    bool isAccented() const { return m_accented; }

    /// The whole text, up to a limit that keeps menus on the screen.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The pointer.
    void mouseEntered();
    void mouseLeft(); ///< the same

protected:
    bool event(QEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QString shownText() const;

    QColor m_color;
    bool m_highlighted = false;
    bool m_accented = false;
};
