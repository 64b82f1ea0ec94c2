// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QAbstractButton>

/// A filled button with an icon, a text or both, that stands alone or joins its neighbours: in a
/// row of several only the ends of the row are round. Checkable if asked to be.
///
/// Its tool tip names one without a text to assistive tools. Space and Return press it. It has no
/// more height than its row; where a host fixes the size, the contents stay in the middle.
class MORRANT_UI_EXPORT GroupButton : public QAbstractButton
{
    Q_OBJECT
    Q_PROPERTY(QString iconName READ iconName WRITE setIconName)

public:
    explicit GroupButton(QWidget* parent = nullptr);
    /// @param iconName see setIconName()
    explicit GroupButton(const QString& iconName, QWidget* parent = nullptr);
    ~GroupButton() override;

    /// Shows the icon of a file such as "icons:addIcon.png"; an empty name shows none, and so does
    /// a file that does not exist, with a line at debug level.
    void setIconName(const QString& name);
    QString iconName() const { return m_iconName; }

    /// Which of `count` joined buttons this one is, in reading order; alone at first. What is out
    /// of range counts as the nearest end.
    void setPlace(int index, int count);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void paintGround(QPainter& painter) const;
    void paintContents(QPainter& painter) const;

    QString m_iconName;
    int m_index = 0;
    int m_count = 1;
};
