// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/SolidSplitter.h"

#include "MorrantUI/controls/accessibility.h"
#include "MorrantUI/docking/AccessibleSplitter.h"
#include <MorrantUI/docking/arrangement.h>
#include <MorrantUI/theme/colors.h>

#include <QMouseEvent>
#include <QPainter>

namespace {

class SolidHandle final : public QSplitterHandle
{
public:
    SolidHandle(Qt::Orientation orientation, QSplitter* splitter)
        : QSplitterHandle(orientation, splitter)
    {
        setAttribute(Qt::WA_Hover); // repaints when the pointer comes and goes
    }

protected:
    bool event(QEvent* event) override
    {
        const bool handled = QSplitterHandle::event(event);
        if (event->type() == QEvent::Polish || event->type() == QEvent::StyleChange) {
            setAttribute(Qt::WA_OpaquePaintEvent); // which a style has just taken away
        }
        return handled;
    }
    void mousePressEvent(QMouseEvent* event) override
    {
        if (!ui::isLayoutLocked()) {
            QSplitterHandle::mousePressEvent(event);
        }
    }
    /// The windows on both sides become equal, as far as their limits let them.
    void mouseDoubleClickEvent(QMouseEvent* event) override
    {
        const int index = splitter()->indexOf(this);
        int before = index - 1;
        while (before >= 0 && splitter()->widget(before)->isHidden()) {
            --before;
        }
        if (event->button() != Qt::LeftButton || before < 0 || ui::isLayoutLocked()) {
            return;
        }
        const QRect first = splitter()->widget(before)->geometry();
        const QRect both = first.united(splitter()->widget(index)->geometry());
        const bool upright = splitter()->orientation() == Qt::Vertical;
        moveSplitter(
            upright ? both.y() + (both.height() - height()) / 2
                    : both.x() + (both.width() - width()) / 2);
    }
    void paintEvent(QPaintEvent* /*event*/) override
    {
        const QString name =
            underMouse() ? QStringLiteral("Midlight") : QStringLiteral("WindowBase");
        QColor color = ui::colorQt(name);
        color.setAlpha(255); // nothing is painted below
        QPainter(this).fillRect(rect(), color);
    }
};

} // namespace

SolidSplitter::SolidSplitter(QWidget* parent)
    : QSplitter(parent)
{
    ui::installAccessible<QSplitter, ui::AccessibleSplitter>(); // and for others, too
    ui::installAccessible<QSplitterHandle, ui::AccessibleSplitHandle>();
    setLayoutDirection(Qt::LeftToRight);
    setChildrenCollapsible(false);
}

SolidSplitter::~SolidSplitter() = default;

QSplitterHandle* SolidSplitter::createHandle()
{
    return new SolidHandle(orientation(), this);
}
