// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/Answers.h"

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

} // namespace ui::docking
