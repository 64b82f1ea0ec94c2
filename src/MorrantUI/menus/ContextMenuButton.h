// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/theme/Widget.h>

/// The ground of a menu row, lit up while the row is chosen and while the pointer is over it.
///
/// Lights up the ContextMenuLabel that it hosts or that lies right inside it, too.
class MORRANT_UI_EXPORT ContextMenuButton : public Widget
{
    Q_OBJECT

public:
    explicit ContextMenuButton(QWidget* parent = nullptr);
    ~ContextMenuButton() override;

    /// By the menu, when the row becomes the active one; beside what the pointer does.
    void setHighlighted(bool highlighted);
    /// By the menu or the pointer; never while it is disabled.
    bool isHighlighted() const;

    /// Hides the function of QWidget: a disabled button neither lights up nor clicks, and fades its
    /// contents.
    void setEnabled(bool enabled);
    /// Also false while the widget is disabled with its row or menu.
    bool isButtonEnabled() const { return isEnabled(); }

Q_SIGNALS:
    /// A left press and release within the button, while it is enabled.
    void clicked();

protected:
    void changeEvent(QEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void setHovered(bool hovered);
    void showHighlight();

    bool m_highlighted = false;
    bool m_hovered = false;
    bool m_pressed = false;
};
