// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QScrollArea>

/// Room for a widget that may be smaller than what the widget needs, as a panel that its user has
/// made small: then it scrolls. As long as the room is large enough, or larger, the widget fills
/// it.
///
/// Wants the size that the widget wants. Across the directions in which it scrolls it is as large
/// as the widget needs, and larger by the scroll bar while that is seen. Has no ground of its own.
/// Tab scrolls to what gets the focus; a wheel that turns scrolls to the side where nothing else
/// scrolls.
class MORRANT_UI_EXPORT ScrollContainer : public QScrollArea
{
    Q_OBJECT

public:
    /// @param content which it owns; null leaves it empty
    /// @param scrolled the directions in which it may be too small
    explicit ScrollContainer(
        QWidget* content,
        Qt::Orientations scrolled = Qt::Horizontal | Qt::Vertical,
        QWidget* parent = nullptr);
    ~ScrollContainer() override;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    QSize barRoom() const;
    void followRoom();

    Qt::Orientations m_scrolled;
    QSize m_barRoom{0, 0}; ///< that a scroll bar takes, as layouts have been told
};
