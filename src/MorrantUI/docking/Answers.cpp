// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/Answers.h"

#include "MorrantUI/docking/onceperapplication.h"
#include <MorrantUI/docking/DockableWindow.h>

#include <QCoreApplication>
#include <QEvent>
#include <QMetaObject>
#include <QPointer>

#include <utility>
#include <vector>

namespace ui::docking {

namespace {

struct Answer
{
    QPointer<QObject> window;
    std::function<void()> operation;
};

struct Waiting
{
    int depth = 0;
    std::vector<Answer> answers;
};

Waiting& waiting()
{
    static Waiting current;
    return current;
}

void post(Answer answer)
{
    if (answer.window) {
        QMetaObject::invokeMethod(answer.window, std::move(answer.operation), Qt::QueuedConnection);
    }
}

/// Stands around what is in the windows as it is told.
class HostFilter final : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const bool isTold = event->type() == QEvent::Show || event->type() == QEvent::Hide;
        if (!isTold || Answers::areDue()
            || !DockableWindow::findDockableParent(qobject_cast<QWidget*>(watched)))
        {
            return false;
        }
        const Answers answers;
        qApp->notify(watched, event);
        return true;
    }
};

} // namespace

Answers::Answers()
{
    ++waiting().depth;
}

Answers::~Answers()
{
    if (--waiting().depth == 0) {
        for (Answer& answer : std::exchange(waiting().answers, {})) {
            post(std::move(answer));
        }
    }
}

bool Answers::putOff(QObject& window, std::function<void()> operation)
{
    const bool isDue = areDue();
    if (isDue) {
        waiting().answers.push_back({&window, std::move(operation)});
    }
    return isDue;
}

bool Answers::areDue()
{
    return waiting().depth > 0;
}

void Answers::followHosts()
{
    static QPointer<QCoreApplication> followed;
    if (isFirstFor(followed)) {
        qApp->installEventFilter(new HostFilter(qApp));
    }
}

} // namespace ui::docking
