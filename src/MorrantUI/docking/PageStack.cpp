#include "PageStack.h"

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
    setCurrentIndex(index);
    setAttribute(Qt::WA_UpdatesDisabled, !paints);
    const QWidget* page = currentWidget();
    const bool covered = page && page->autoFillBackground() && page->geometry().contains(rect());
    if (paints && !covered) {
        update();
    }
}
