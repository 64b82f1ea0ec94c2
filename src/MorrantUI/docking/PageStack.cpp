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
