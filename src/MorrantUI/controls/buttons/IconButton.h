// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QToolButton>

/// A square button with nothing but an icon, as high as a field, flat until the pointer comes near.
///
/// A checked one is drawn on the highlight, unless it has a second icon for the checked state: then
/// the icons tell the states apart and the button stays flat. Its tool tip names it to assistive
/// tools. Space and Return press it; clicking does not take the focus.
class MORRANT_UI_EXPORT IconButton : public QToolButton
{
    Q_OBJECT
    Q_PROPERTY(QString iconName READ iconName WRITE setIconName)
    Q_PROPERTY(QString checkedIconName READ checkedIconName WRITE setCheckedIconName)

public:
    explicit IconButton(QWidget* parent = nullptr);
    /// @param iconName see setIconName()
    explicit IconButton(const QString& iconName, QWidget* parent = nullptr);
    ~IconButton() override;

    /// Shows the icon of a file such as "icons:eye.png"; an empty name shows none, and so does a
    /// file that does not exist, with a line at debug level.
    void setIconName(const QString& name);
    QString iconName() const { return m_iconName; }

    /// The icon while checked, and makes the button checkable; an empty name leaves the first one
    /// in both states.
    void setCheckedIconName(const QString& name);
    QString checkedIconName() const { return m_checkedIconName; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void initStyleOption(QStyleOptionToolButton* option) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QString m_iconName;
    QString m_checkedIconName;
    QIcon m_checkedIcon;
};
