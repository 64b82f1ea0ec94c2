#pragma once

#include "controls/PaintCounter.h"
#include "controls/SignalRecord.h"
#include "controls/StyledApplication.h"
#include "support/FakeClock.h"
#include "support/FakePointer.h"
#include "support/pixels.h"
#include <MorrantUI/theme/colors.h>

#include <QSignalSpy>
#include <QtWidgets>

#include <cmath>
#include <limits>
#include <memory>

namespace ui::test {

inline constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
inline constexpr double kInfinity = std::numeric_limits<double>::infinity();

inline bool isNear(double value, double expected, double tolerance = 1e-9)
{
    return std::abs(value - expected) < tolerance;
}

inline QAccessibleInterface& accessible(QWidget* widget)
{
    return *QAccessible::queryAccessibleInterface(widget);
}

/// A control at 10, 10 in an active window with another place for the focus, which has it. What
/// the control reports is written down; it may be deleted meanwhile.
template <typename Control, typename Window = QWidget>
struct Bench
{
    template <typename... Args>
    explicit Bench(QSize size, Args&&... args)
        : control(new Control(std::forward<Args>(args)..., window.get()))
    {
        control->setGeometry({{10, 10}, size});
        other->setGeometry(10, size.height() + 20, 100, 24);
        window->setGeometry(30, 30, std::max(200, size.width() + 40), size.height() + 60);
        window->show();
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        other->setFocus();
    }

    void press(QPoint at)
    {
        pointer.moveTo(at);
        pointer.press();
    }
    void click(QPoint at)
    {
        press(at);
        pointer.release();
    }
    void drag(QPoint from, QPoint to)
    {
        press(from);
        pointer.dragTo(to);
        pointer.release();
    }

    /// What a user does, a word each: "in" by Tab, "out" to the other field, "click" into the
    /// middle, "=text" over all that is there, "+text" at the caret, and keys by their names, such
    /// as Shift+Up. They go to what has the focus in the control, else to `entry`.
    void play(const char* script)
    {
        for (const QString& word : QString::fromLatin1(script).split(u' ', Qt::SkipEmptyParts)) {
            if (!control || !entry) {
                return;
            }
            if (word == u"in"_qs) {
                entry->setFocus(Qt::TabFocusReason);
            } else if (word == u"out"_qs) {
                other->setFocus();
            } else if (word == u"click"_qs) {
                FakePointer mouse(entry);
                mouse.moveTo(entry->rect().center());
                mouse.press();
                mouse.release();
            } else if (word.startsWith(u'=') || (word.size() > 1 && word.startsWith(u'+'))) {
                type(word.mid(1), word.startsWith(u'='));
            } else {
                const QKeyCombination key = QKeySequence(word)[0];
                QTest::keyClick(target(), key.key(), key.keyboardModifiers());
            }
        }
    }

    QWidget* target() const
    {
        QWidget* const focus = QApplication::focusWidget();
        return focus && (focus == control || control->isAncestorOf(focus)) ? focus : entry.data();
    }

    QByteArray said() { return record.take(); }

    std::unique_ptr<QWidget> window = std::make_unique<Window>();
    QPointer<Control> control;
    QPointer<QWidget> entry = control.data();
    QLineEdit* other = new QLineEdit(window.get());
    SignalRecord record{control.data()};
    FakePointer pointer{control};

private:
    void type(const QString& text, bool overAll)
    {
        if (auto* const edit = qobject_cast<QLineEdit*>(target()); edit && overAll) {
            edit->selectAll();
        }
        QTest::keyClicks(target(), text);
    }
};

} // namespace ui::test
