// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/docking/DockableHeader.h>
#include <MorrantUI/morrantui_export.h>

class QLabel;

/// The slim header of a tool bar's window: a grip, and no title. The title is its tool tip.
class MORRANT_UI_EXPORT DockableToolBarHeader : public DockableHeader
{
    Q_OBJECT

public:
    enum class Direction : int
    {
        Horizontal = 0, ///< the grip lies above the tool bar, 22 by 10 logical pixels
        Vertical = 1,   ///< the grip stands beside it, 10 by 22; see setHeaderDirection()
    };
    Q_ENUM(Direction)

    explicit DockableToolBarHeader(Direction direction);
    ~DockableToolBarHeader() override;

    Direction direction() const { return m_direction; }

    /// What is grabbed is the whole header.
    QWidget* setHandler(QObject* handler) override;
    void setText(const QString& text) override;

protected:
    void changeEvent(QEvent* event) override;

private:
    void followTheme();

    Direction m_direction;
    QLabel* m_grip;
};
