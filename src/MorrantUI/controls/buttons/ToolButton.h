// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QToolButton>

class QStylePainter;

/// A button of tool strips: icon, text or both side by side, flat until the pointer comes near.
///
/// A button with a menu shows an arrow at its trailing edge; the whole button opens the menu
/// unless the popup mode says otherwise (QToolButton::setPopupMode). Space and Return press it,
/// the Down key opens the menu in any mode. Clicking does not take the focus, so that a field being
/// edited stays so.
class MORRANT_UI_EXPORT ToolButton : public QToolButton
{
    Q_OBJECT
    Q_PROPERTY(QString iconName READ iconName WRITE setIconName)
    Q_PROPERTY(bool menuArrowVisible READ isMenuArrowVisible WRITE setMenuArrowVisible)

public:
    explicit ToolButton(QWidget* parent = nullptr);
    /// @param iconName see setIconName()
    ToolButton(const QString& iconName, const QString& text, QWidget* parent = nullptr);
    ~ToolButton() override;

    /// Shows the icon of a file such as "icons:snap.png"; an empty name shows none, and so does a
    /// file that does not exist, with a line at debug level.
    void setIconName(const QString& name);
    QString iconName() const { return m_iconName; }

    /// Whether a menu is announced by an arrow; on by default. Without effect in the popup mode
    /// MenuButtonPopup, whose arrow is a button of its own.
    void setMenuArrowVisible(bool visible);
    bool isMenuArrowVisible() const { return m_menuArrowVisible; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void initStyleOption(QStyleOptionToolButton* option) const override;
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// Its width at the trailing edge; 0 without one.
    int arrowColumn() const;
    void paintLabel(QStylePainter& painter, const QStyleOptionToolButton& option) const;
    void paintArrow(QStylePainter& painter, const QStyleOptionToolButton& option) const;

    QString m_iconName;
    bool m_menuArrowVisible = true;
};
