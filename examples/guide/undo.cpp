// SPDX-License-Identifier: Apache-2.0
#include "guide.h"
#include <MorrantUI/MorrantUI.h>

#include <QUndoCommand>
#include <QUndoStack>

namespace {

// [undo-command]
/// A document's number changed from one value to another.
class ChangeNumber : public QUndoCommand
{
public:
    ChangeNumber(double* number, double from, double to)
        : m_number(number)
        , m_from(from)
        , m_to(to)
    {}
    void redo() override { *m_number = m_to; }
    void undo() override { *m_number = m_from; }

private:
    double* m_number;
    double m_from;
    double m_to;
};
// [undo-command]

// [undo]
/// Makes one step of each change of a field. A typed entry and the keys Up and Down commit once; a
/// scrub reports each of its movements and commits nothing, so that the end of the drag is its
/// step.
class NumberSteps : public QObject
{
public:
    NumberSteps(NumericField* field, double* number, QUndoStack* history)
        : QObject(field)
        , m_field(field)
        , m_number(number)
        , m_history(history)
        , m_before(*number)
    {
        connect(field, &NumericField::valueChanged, this, [this](bool committed) {
            *m_number = m_field->value(); // seen at once
            if (committed) {
                push();
            }
        });
        connect(field, &NumericField::dragStateChanged, this, [this](bool dragging) {
            if (dragging) {
                m_before = *m_number;
            } else {
                push();
            }
        });
    }

private:
    void push()
    {
        if (m_field->value() != m_before) {
            m_history->push(new ChangeNumber(m_number, m_before, m_field->value()));
            m_before = m_field->value();
        }
    }

    NumericField* m_field;
    double* m_number;
    QUndoStack* m_history;
    double m_before;
};
// [undo]

struct Document
{
    double opacity = 100.0;
    QUndoStack history;
};

} // namespace

QWidget* undoChapter()
{
    static Document document;
    auto* window = new QWidget;
    auto* field = new NumericField(document.opacity, window);
    new NumberSteps(field, &document.opacity, &document.history); // the field's from now on
    return window;
}
