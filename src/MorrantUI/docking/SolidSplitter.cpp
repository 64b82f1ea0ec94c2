#include "MorrantUI/docking/SolidSplitter.h"

#include "MorrantUI/controls/accessibility.h"
#include "MorrantUI/docking/AccessibleDocking.h"
#include <MorrantUI/theme/colors.h>

#include <QPainter>

namespace {

class SolidHandle final : public QSplitterHandle
{
public:
    SolidHandle(Qt::Orientation orientation, QSplitter* splitter)
        : QSplitterHandle(orientation, splitter)
    {
        setAttribute(Qt::WA_Hover); // repaints when the pointer comes and goes
        setAttribute(Qt::WA_OpaquePaintEvent);
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        const QString name =
            underMouse() ? QStringLiteral("Midlight") : QStringLiteral("WindowBase");
        QPainter(this).fillRect(rect(), ui::colorQt(name));
    }
};

} // namespace

SolidSplitter::SolidSplitter(QWidget* parent)
    : QSplitter(parent)
{
    ui::installAccessible<SolidSplitter, ui::AccessibleDockSplitter>();
    setLayoutDirection(Qt::LeftToRight);
    setChildrenCollapsible(false);
}

SolidSplitter::~SolidSplitter() = default;

QSplitterHandle* SolidSplitter::createHandle()
{
    return new SolidHandle(orientation(), this);
}
