// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "controls/PaintCounter.h"
#include "controls/SignalRecord.h"
#include "controls/StyledApplication.h"
#include <MorrantUI/MorrantUI.h>

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

inline QString nameOf(QWidget* widget)
{
    return accessible(widget).text(QAccessible::Name);
}

/// The text of an entry or name; "35" or "0.5;-1" of other controls, "15.0|30.0" of a row.
inline QString shownBy(const QObject& control)
{
    if (const auto* const entry = qobject_cast<const QLineEdit*>(&control)) {
        return entry->text();
    }
    const QVariant value = control.metaObject()->userProperty().read(&control);
    QStringList texts;
    for (const auto* field : control.findChildren<NumericField*>()) {
        texts << field->text();
    }
    switch (value.typeId()) {
    case QMetaType::UnknownType: return texts.join(u'|');
    case QMetaType::Double: return QString::number(value.toDouble());
    case QMetaType::QPointF: return u"%1;%2"_qs.arg(value.toPointF().x()).arg(value.toPointF().y());
    default: return value.toString();
    }
}

/// What a user does, what the control says to that, and what it shows then; null where that is not
/// the point.
struct Step
{
    const char* script;
    const char* said;
    const char* shown = nullptr;
};

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
        showActive(*window);
        other->setFocus();
    }

    void press(QPoint at) { pointer.press(at); }
    void click(QPoint at) { pointer.click(at); }

    /// What a user does, a word each: "in" by Tab, "out" to the other field, "click" into the
    /// middle of `entry` or "double", "@5,10" presses there, ">40,10" drags there, "~40,10" goes
    /// there at once,
    /// "|30" goes at once to 30 pixels, from the press to the right, beyond the drag distance,
    /// "up" releases, "[Shift]" holds that for the pointer, "=text" types over all that is there,
    /// "+text" at the caret; other words are keys by their names, such as Shift+Up. They go to what
    /// has the focus in the control, else to the entry, with "^" before them to the window, whose
    /// shortcuts see them. "#1" makes the second field (or button, in a control without fields) the
    /// entry; "!reset" presses the button called "...: reset...".
    void play(const char* script)
    {
        for (const QString& word : QString::fromLatin1(script).split(u' ', Qt::SkipEmptyParts)) {
            if (!control || !entry) {
                return;
            }
            playWord(word, word.mid(1));
        }
    }
    /// Where keys and the pointer go: the control itself, or a part of it.
    void setEntry(QWidget* widget)
    {
        entry = widget;
        pointer = FakePointer(widget);
    }
    /// @return what the control says to that, and has said before
    QByteArray after(const char* script)
    {
        play(script);
        return record.take();
    }
    void follow(std::initializer_list<Step> steps)
    {
        for (const auto& [script, said, shown] : steps) {
            const QByteArray heard = after(script);
            QVERIFY2(heard == said, script + (": said " + heard));
            const QString seen = shown ? shownBy(*control) : QString();
            QVERIFY2(seen == QLatin1String(shown), script + (": shows " + seen.toUtf8()));
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
    QPoint pressedAt;

    void playWord(const QString& word, const QString& rest)
    {
        const auto point = [&rest] {
            return QPoint(rest.section(u',', 0, 0).toInt(), rest.section(u',', 1).toInt());
        };
        if (word == u"in"_qs) {
            entry->setFocus(Qt::TabFocusReason);
        } else if (word == u"out"_qs) {
            other->setFocus();
        } else if (word == u"double"_qs) {
            QTest::mouseDClick(entry, Qt::LeftButton);
        } else if (word == u"up"_qs) {
            pointer.release();
        } else if (word == u"click"_qs || word[0] == u'@') {
            pressedAt = word[0] == u'@' ? point() : entry->rect().center();
            pointer.press(pressedAt);
            word[0] == u'@' ? void() : pointer.release();
        } else if (word[0] == u'>') {
            pointer.dragTo(point());
        } else if (word[0] == u'~') {
            pointer.moveTo(point());
        } else if (word[0] == u'|') {
            const int way = QApplication::startDragDistance() + rest.toInt();
            pointer.moveTo(pressedAt + QPoint(way, 0));
        } else if (word[0] == u'[') {
            pointer.setModifiers(
                word == u"[Shift]"_qs  ? Qt::ShiftModifier
                : word == u"[Ctrl]"_qs ? Qt::ControlModifier
                                       : Qt::NoModifier);
        } else if (word[0] == u'#') {
            const auto fields = control->template findChildren<QLineEdit*>();
            const auto buttons = control->template findChildren<QAbstractButton*>();
            setEntry(
                fields.isEmpty() ? static_cast<QWidget*>(buttons.value(rest.toInt()))
                                 : fields.value(rest.toInt()));
        } else if (word[0] == u'!') {
            for (auto* const button : control->template findChildren<QAbstractButton*>()) {
                if (button->accessibleName().contains(u": "_qs + rest)) {
                    button->click();
                    return;
                }
            }
        } else if (word[0] == u'=' || (word[0] == u'+' && !rest.isEmpty())) {
            if (auto* const edit = qobject_cast<QLineEdit*>(target()); edit && word[0] == u'=') {
                edit->selectAll();
            }
            QTest::keyClicks(target(), rest);
        } else {
            const bool toWindow = word[0] == u'^';
            const QKeyCombination key = QKeySequence(toWindow ? rest : word)[0];
            toWindow ? QTest::keyClick(window->windowHandle(), key.key(), key.keyboardModifiers())
                     : QTest::keyClick(target(), key.key(), key.keyboardModifiers());
        }
    }
};

} // namespace ui::test
