// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QAbstractButton>

/// A small icon in a row or header that lights up under the pointer: flat at rest, on a soft ground
/// while hovered or pressed.
///
/// Each state may have an icon and a colour of its own. The colours are names of the theme, asked
/// for at paint time; an icon is a mask for them. Its tool tip names the button to assistive
/// tools. Space and Return press it; clicking does not take the focus.
class MORRANT_UI_EXPORT RolloverButton : public QAbstractButton
{
    Q_OBJECT

public:
    /// File names such as "icons:close.png". Where one is empty the state before it stands in: rest
    /// for hovered, hovered for pressed, rest for checked.
    struct Icons
    {
        QString rest{};
        QString hovered{};
        QString pressed{};
        QString checked{}; ///< at rest; hovered and pressed look the same checked and unchecked
    };

    /// Names of the theme's colours; an empty one leaves the icon in its own colours.
    struct Tints
    {
        QString rest = QStringLiteral("HelperHints");
        QString hovered = QStringLiteral("Text");
        QString pressed = QStringLiteral("Accent1");
        QString checked = QStringLiteral("Accent1"); ///< at rest
    };

    explicit RolloverButton(QWidget* parent = nullptr);
    /// One icon for all states, told apart by the default tints.
    explicit RolloverButton(const QString& iconName, QWidget* parent = nullptr);
    ~RolloverButton() override;

    /// A file that does not exist shows nothing in its state and is reported at debug level.
    void setIcons(const Icons& icons);
    Icons icons() const { return m_names; }

    void setTints(const Tints& tints); ///< repaints
    Tints tints() const { return m_tints; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    struct Face
    {
        QIcon icon;
        QString tint;
    };
    Face face(bool hovered, bool pressed, bool checked) const;

    Icons m_names;
    Tints m_tints;
    QIcon m_hovered;
    QIcon m_pressed;
    QIcon m_checked;
};
