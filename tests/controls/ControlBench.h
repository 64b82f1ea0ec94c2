// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "controls/PaintCounter.h"
#include "controls/SignalRecord.h"
#include "controls/StyledApplication.h"
#include <MorrantUI/MorrantUI.h>

namespace ui::test {

inline constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
inline constexpr double kInfinity = std::numeric_limits<double>::infinity();

inline constexpr int kDigits = 10; ///< of numbers that are compared as texts

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
    const QPointF point = value.toPointF();
    QStringList texts;
    for (const auto* field : control.findChildren<NumericField*>()) {
        texts << field->text();
    }
    switch (value.typeId()) {
    case QMetaType::UnknownType: return texts.join(u'|');
    case QMetaType::Double: return QString::number(value.toDouble(), 'g', kDigits);
    case QMetaType::QPointF:
        return u"%1;%2"_qs.arg(point.x(), 0, 'g', kDigits).arg(point.y(), 0, 'g', kDigits);
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
        control->show(); // a control's own operations must not hide this one
        showActive(*window);
        other->setFocus();
    }

    void press(QPoint at) { pointer.press(at); }
    void click(QPoint at) { pointer.click(at); }

    /// What a user does, a word each:
    ///   in, out           by Tab into the entry; to the other field
    ///   click, double     in the middle of the entry
    ///   @5,10 >40,10 up   presses there, drags there, releases; ~40,10 goes there at once
    ///   |30               goes at once to 30 pixels beyond the drag distance, right of the press
    ///   [Shift] [Ctrl] [] held for the pointer
    ///   =text +text       typed over all that is there, or at the caret
    ///   Shift+Up          a key, for what has the focus in the control, else for the entry
    ///   ^Escape           a key for the window, whose shortcuts see it
    ///   #1                makes the second field, or button where there are no fields, the entry
    ///   !reset            presses the button called "...: reset..."
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
        if (word == u"in"_qs) {
            entry->setFocus(Qt::TabFocusReason);
        } else if (word == u"out"_qs) {
            other->setFocus();
        } else if (word == u"click"_qs) {
            pointer.click(entry->rect().center());
        } else if (word == u"double"_qs) {
            QTest::mouseDClick(entry, Qt::LeftButton);
        } else if (word == u"up"_qs) {
            pointer.release();
        } else {
            playSign(word, rest);
        }
    }

    void playSign(const QString& word, const QString& rest)
    {
        const QPoint at(rest.section(u',', 0, 0).toInt(), rest.section(u',', 1).toInt());
        const QPoint along(QApplication::startDragDistance() + rest.toInt(), 0);
        const auto shift = rest == u"Shift]"_qs ? Qt::ShiftModifier : Qt::NoModifier;
        const auto held = rest == u"Ctrl]"_qs ? Qt::ControlModifier : shift;
        auto* const edit = qobject_cast<QLineEdit*>(target());
        switch (word[0].unicode()) {
        case u'@': pointer.press(pressedAt = at); break;
        case u'>': pointer.dragTo(at); break;
        case u'~': pointer.moveTo(at); break;
        case u'|': pointer.moveTo(pressedAt + along); break;
        case u'[': pointer.setModifiers(held); break;
        case u'#': setEntry(part(rest.toInt())); break;
        case u'!': pressButton(rest); break;
        case u'=': edit ? edit->selectAll() : void(); [[fallthrough]];
        case u'+': QTest::keyClicks(target(), rest); break;
        case u'^': hit(window->windowHandle(), rest); break;
        default: hit(target(), word);
        }
    }

    template <typename Target>
    static void hit(Target* target, const QString& name)
    {
        const QKeyCombination key = QKeySequence(name)[0];
        QTest::keyClick(target, key.key(), key.keyboardModifiers());
    }

    QWidget* part(int index) const
    {
        const auto fields = control->template findChildren<QLineEdit*>();
        const auto buttons = control->template findChildren<QAbstractButton*>();
        return fields.isEmpty() ? static_cast<QWidget*>(buttons.value(index)) : fields.value(index);
    }

    void pressButton(const QString& name)
    {
        for (auto* const found : control->template findChildren<QAbstractButton*>()) {
            if (found->accessibleName().contains(u": "_qs + name)) {
                found->click();
                return;
            }
        }
    }
};

} // namespace ui::test
