// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QPushButton>

/// A push button with an icon of the theme and, where it is the main thing to do, a primary look.
///
/// Space and Return press it, the Down key opens its menu. Without a text its label or else its
/// tool tip names it to assistive tools.
class MORRANT_UI_EXPORT PushButton : public QPushButton
{
    Q_OBJECT
    Q_PROPERTY(QString iconName READ iconName WRITE setIconName)
    Q_PROPERTY(bool primary READ isPrimary WRITE setPrimary)

public:
    explicit PushButton(QWidget* parent = nullptr);
    explicit PushButton(const QString& text, QWidget* parent = nullptr);
    ~PushButton() override;

    /// Shows the icon of a file such as "icons:export.png"; an empty name shows none, and so does a
    /// file that does not exist, with a line at debug level.
    void setIconName(const QString& name);
    QString iconName() const { return m_iconName; }

    /// Gives the button the look of a dialog's default button, outside dialogs too. Only a look:
    /// what Return does in a dialog is decided by setDefault(), as for any push button.
    void setPrimary(bool primary);
    bool isPrimary() const { return m_primary; }

protected:
    void initStyleOption(QStyleOptionButton* option) const override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QString m_iconName;
    bool m_primary = false;
};
