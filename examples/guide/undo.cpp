// SPDX-License-Identifier: Apache-2.0
#include "guide.h"
#include <MorrantUI/MorrantUI.h>

#include <QUndoCommand>
#include <QUndoStack>

namespace {

// [undo-command]
/// A document's numbers changed from some values to others.
class ChangeNumbers : public QUndoCommand
{
public:
    ChangeNumbers(QList<double>* numbers, const QList<double>& from, const QList<double>& to)
        : m_numbers(numbers)
        , m_from(from)
        , m_to(to)
    {}
    void redo() override { *m_numbers = m_to; }
    void undo() override { *m_numbers = m_from; }

private:
    QList<double>* m_numbers;
    QList<double> m_from;
    QList<double> m_to;
};
// [undo-command]

// [undo]
/// Makes one step of each change of a field that shows the first of some numbers. A typed entry and
/// the keys Up and Down commit once; a scrub reports each of its movements and commits nothing, so
/// that the end of the drag is its step.
class FieldSteps : public QObject
{
public:
    FieldSteps(NumericField* field, QList<double>* numbers, QUndoStack* history)
        : QObject(field) // goes with it
        , m_numbers(numbers)
        , m_before(*numbers)
        , m_history(history)
    {
        connect(field, &NumericField::edited, this, [this](double value, bool committed) {
            m_numbers->first() = value; // seen at once
            committed ? push() : void();
        });
        connect(field, &NumericField::dragStateChanged, this, [this](bool dragging) {
            dragging ? void() : push();
        });
        connect(history, &QUndoStack::indexChanged, this, [this, field] {
            field->setValue(m_numbers->first()); // which is not reported back
            m_before = *m_numbers;
        });
    }

private:
    void push()
    {
        if (*m_numbers != m_before) { // not where Escape has taken the drag back
            m_history->push(new ChangeNumbers(m_numbers, m_before, *m_numbers));
        }
    }

    QList<double>* m_numbers;
    QList<double> m_before; ///< as the history has them
    QUndoStack* m_history;
};
// [undo]

// [undo-row]
/// The same for a whole row. edited(true) comes once for a change, however many fields take part:
/// after a typed entry and after a drag, with those that are locked together, and after a reset.
void makeRowSteps(AttributeRow* row, QList<double>* numbers, QUndoStack* history)
{
    QObject::connect(row, &AttributeRow::edited, row, [=](bool committed) {
        QList<double> now;
        for (int i = 0; i < row->fieldCount(); ++i) {
            now << row->value(i);
        }
        if (committed && now != *numbers) {
            history->push(new ChangeNumbers(numbers, *numbers, now));
        }
    });
    QObject::connect(history, &QUndoStack::indexChanged, row, [=] {
        for (int i = 0; i < row->fieldCount(); ++i) {
            row->setValue(i, numbers->at(i));
        }
    });
}
// [undo-row]

struct Document
{
    QList<double> opacity{100.0};
    QList<double> position{320.0, 200.0};
    QUndoStack history;
};

} // namespace

QWidget* undoChapter()
{
    static Document document;
    auto* window = new QWidget;
    auto* field = new NumericField(document.opacity.first(), window);
    new FieldSteps(field, &document.opacity, &document.history);
    auto* row = new AttributeRow(QStringLiteral("Position"), window);
    for (const double number : document.position) {
        row->addField(number);
    }
    makeRowSteps(row, &document.position, &document.history);
    return window;
}
