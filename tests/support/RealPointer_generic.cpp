// SPDX-License-Identifier: Apache-2.0
#include "support/RealPointer.h"

#include <QtTest>
#include <QtWidgets>

#include <algorithm>

namespace ui::test {

static QString program()
{
    return QStandardPaths::findExecutable(QStringLiteral("xdotool"));
}

/// Runs until the application has seen what comes of it.
static void run(const QStringList& arguments)
{
    QProcess process;
    // Two questions that the server answers when it is through with all before them.
    process.start(program(), arguments + QStringList(QStringLiteral("getdisplaygeometry")));
    const auto isDone = [&process] { return process.state() == QProcess::NotRunning; };
    if (!QTest::qWaitFor(isDone, 20000) || process.exitCode() != 0) {
        QTest::qFail("xdotool failed", __FILE__, __LINE__);
    }
    QCursor::pos();
    QTest::qWait(1);
}

static QStringList words(QPoint point)
{
    return {QString::number(point.x()), QString::number(point.y())};
}

bool RealPointer::available()
{
    return QGuiApplication::platformName() == u"xcb" && !program().isEmpty();
}

QPoint RealPointer::position() const
{
    return QCursor::pos() * QGuiApplication::primaryScreen()->devicePixelRatio();
}

void RealPointer::moveTo(QPoint position)
{
    run(QStringList(QStringLiteral("mousemove")) + words(position));
}

void RealPointer::moveBy(QPoint step, int times)
{
    // A few at a time, so that a busy machine does not let the pointer run to the screen's edge
    // before the application has seen it come.
    constexpr int kAtATime = 5;
    for (int done = 0; done < times; done += kAtATime) {
        QStringList arguments;
        for (int i = done; i < std::min(times, done + kAtATime); ++i) {
            arguments += {QStringLiteral("mousemove_relative"), QStringLiteral("--")};
            arguments += words(step);
            arguments += {QStringLiteral("sleep"), QStringLiteral("0.002")};
        }
        run(arguments);
    }
}

void RealPointer::turn(Qt::MouseButton button, bool down)
{
    run(
        {QLatin1String(down ? "mousedown" : "mouseup"),
         QLatin1String(button == Qt::RightButton ? "3" : "1")});
}

void RealPointer::setAccelerated(bool)
{} // xdotool places the pointer itself

void RealPointer::pressEscape()
{
    run({QStringLiteral("key"), QStringLiteral("Escape")});
}

std::optional<bool> RealPointer::isFree() const
{
    return {};
}

} // namespace ui::test
