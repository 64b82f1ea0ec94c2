// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/saving/PanelWindow.h"

namespace ui::docking {

PanelWindow::PanelWindow(const QString& id, QWidget* content, QWidget* shelf)
    : DockableWindow(content)
    , m_shelf(shelf)
{
    setObjectName(id);
    setText(content->windowTitle());
    setSizePolicy(content->sizePolicy()); // of which a splitter reads the stretch
    resize(content->size());
    connect(content, &QWidget::windowTitleChanged, this, &PanelWindow::setText);
}

PanelWindow::~PanelWindow()
{
    QWidget* const own = content();
    if (own && own->parentWidget() == this && m_shelf) {
        own->setParent(m_shelf);
    }
}

} // namespace ui::docking
