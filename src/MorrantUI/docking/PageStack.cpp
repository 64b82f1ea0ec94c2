// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/PageStack.h"

#include "MorrantUI/docking/Answers.h"

#include <QPointer>

PageStack::PageStack(QWidget* parent)
    : QStackedWidget(parent)
{
    setAttribute(Qt::WA_DontCreateNativeAncestors);
}

PageStack::~PageStack() = default;

QSize PageStack::minimumSizeHint() const
{
    const QWidget* page = currentWidget();
    return page ? page->minimumSizeHint().expandedTo(page->minimumSize()) : QSize();
}

void PageStack::showPage(int index)
{
    const bool paints = updatesEnabled();
    setAttribute(Qt::WA_UpdatesDisabled); // only of the stack, unlike setUpdatesEnabled()
    const QPointer<PageStack> self(this);
    {
        const ui::docking::Answers answers; // Qt would go by a page that is no more
        setCurrentIndex(index);
    }
    if (!self) {
        return;
    }
    setAttribute(Qt::WA_UpdatesDisabled, !paints);
    for (int i = 0; paints && i < count(); ++i) { // of one that came meanwhile they are off
        if (!widget(i)->testAttribute(Qt::WA_ForceUpdatesDisabled)) {
            widget(i)->setUpdatesEnabled(true);
        }
    }
    const QWidget* page = currentWidget();
    const bool covered = page && page->autoFillBackground() && page->geometry().contains(rect());
    if (paints && !covered) {
        update();
    }
}
