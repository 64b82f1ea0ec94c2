// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QBoxLayout>

/// The layout of a dockable window: its header, and the content that takes all the rest.
///
/// A docked panel fills its place, even where its content may not grow that far: then there is
/// ground around the content. For that the limit that the panel takes over from the content is
/// lifted.
class WindowLayout : public QBoxLayout
{
    Q_OBJECT

public:
    explicit WindowLayout(QWidget* window);
    ~WindowLayout() override;

    /// Header and content one above the other, or as the direction says; at most this large.
    QSize contentsMaximum() const { return QBoxLayout::maximumSize(); }
    /// Without the lifted limits.
    QSize maximumSize() const override;
    /// Takes effect with the next activation.
    /// @return whether anything is different now
    bool lift(Qt::Orientations limits);

    /// Takes over a widget that always gets all of its room, whatever its own limits.
    void addFilling(QWidget* widget);

private:
    Qt::Orientations m_lifted;
};
