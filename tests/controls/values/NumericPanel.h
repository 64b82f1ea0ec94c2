#pragma once

#include "support/FakePointer.h"
#include <MorrantUI/controls/values/NumericField.h>

#include <QPointer>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

namespace ui::test {

/// An active window with a floating-point field and another place for the
/// focus, which has it.
struct NumericPanel
{
    explicit NumericPanel(double value = 5.0)
    {
        field->setFieldType(NumericField::FloatingPoint);
        field->setValue(value);
        field->setGeometry(10, 10, 100, 24);
        other->setGeometry(10, 40, 100, 24);
        window->resize(400, 80);
        window->show();
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        other->setFocus();
    }

    void press(QPoint position = {5, 10})
    {
        pointer.moveTo(position);
        pointer.press();
    }
    /// Presses at the field's left end and passes the drag distance.
    void beginScrub()
    {
        press();
        scrubTo(0);
    }
    /// Pixels since the drag distance was passed.
    void scrubTo(int distance)
    {
        pointer.moveTo({5 + QApplication::startDragDistance() + distance, 10});
    }
    void scrub(int distance)
    {
        beginScrub();
        scrubTo(distance);
        pointer.release();
    }

    void click(QPoint position)
    {
        press(position);
        pointer.release();
    }

    void enterByTab() { field->setFocus(Qt::TabFocusReason); }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(field, key, modifiers);
    }

    std::unique_ptr<QWidget> window = std::make_unique<QWidget>();
    QPointer<NumericField> field = new NumericField(0.0, window.get());
    QLineEdit* other = new QLineEdit(window.get());
    FakePointer pointer{field};
    QSignalSpy values{field, &LineEdit::valueChanged};
    QSignalSpy drags{field, &NumericField::dragStateChanged};
};

/// What dragStateChanged() says of a drag.
inline const QList<QVariantList> kOneDrag{{true}, {false}};

} // namespace ui::test
