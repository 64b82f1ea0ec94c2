// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/docking/DockableWindow.h>

#include <QPointer>

namespace ui::docking {

/// The window of a workspace's panel, named and titled as its content is. Dockable windows delete
/// themselves when they are closed: this one then leaves its content to a shelf.
class PanelWindow : public DockableWindow
{
    Q_OBJECT

public:
    /// As large as the content was last.
    PanelWindow(const QString& id, QWidget* content, QWidget* shelf);
    ~PanelWindow() override;

private:
    QPointer<QWidget> m_shelf;
};

} // namespace ui::docking
