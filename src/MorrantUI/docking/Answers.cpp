// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/Answers.h"

#include "MorrantUI/docking/panelfocus.h"

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
        const auto act = [operation = std::move(answer.operation)] {
            settleFocus();
            operation();
        };
        QMetaObject::invokeMethod(answer.window, act, Qt::QueuedConnection);
    }
}

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
    if (waiting().depth > 0) {
        waiting().answers.push_back({&window, std::move(operation)});
    } else if (isFocusMoving()) {
        post({&window, std::move(operation)});
    } else {
        return false;
    }
    return true;
}

bool Answers::areDue()
{
    return waiting().depth > 0 || isFocusMoving();
}

} // namespace ui::docking
