// SPDX-License-Identifier: Apache-2.0
#include "gallery/recoloring.h"

#include <QEvent>
#include <QWidget>

#include <utility>

namespace studio::gallery {

namespace {

class Recoloring : public QObject
{
public:
    Recoloring(QWidget* widget, std::function<void()> apply)
        : QObject(widget)
        , m_apply(std::move(apply))
    {
        widget->installEventFilter(this);
        m_apply();
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::StyleChange) {
            m_apply();
        }
        return QObject::eventFilter(watched, event);
    }

private:
    std::function<void()> m_apply;
};

} // namespace

void keepColored(QWidget* widget, std::function<void()> apply)
{
    new Recoloring(widget, std::move(apply));
}

} // namespace studio::gallery
