// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>
#include <QPointer>

#include <vector>

class NumericField;
class PendingValue;
class QWidget;

/// The number fields of an attribute's row and what one change of theirs is: its steps, its end and
/// the fields that follow a locked one. An index that does not exist, or whose field was deleted,
/// is ignored.
class AttributeFields : public QObject
{
    Q_OBJECT

public:
    explicit AttributeFields(QObject* parent);
    ~AttributeFields() override;

    /// Makes a field, which `parent` owns, with `value` for its default.
    NumericField* add(double value, QWidget* parent);

    int count() const { return static_cast<int>(m_fields.size()); }
    NumericField* at(int index) const;

    /// Shows a value, but not in place of what is being typed, or of what has changed and is next
    /// to be told: a host may show all that it has at each report. Emits nothing.
    void setValue(int index, double value);

    void setDefaultValue(int index, double value);
    bool areAtDefault() const;
    /// Shows the defaults and emits nothing.
    /// @return the fields that this has changed, to be given to reportAll()
    std::vector<int> showDefaults();

    void setLocked(bool locked) { m_locked = locked; }

    /// Commits what is being typed as Return does; the focus stays.
    void commitTyping();

    /// Emits changed() for each. The caller may be deleted by it.
    void reportAll(std::vector<int> indices, bool committed);

Q_SIGNALS:
    /// False at each step of a change, true once at its end.
    void changed(int index, bool committed);
    /// After those of all fields that take part. The sender may be deleted by it.
    void edited(bool committed);
    void dragged(int index, bool dragging);
    /// The user has left a field; a value that had to wait for the typing is shown.
    void caughtUp();

private:
    struct Field
    {
        QPointer<NumericField> editor;
        PendingValue* shown = nullptr; ///< dies with the editor
        double defaultValue = 0.0;
        double before = 0.0;    ///< the value before the present step, or drag
        double committed = 0.0; ///< the value before all steps of the present change
        bool dragging = false;
        bool uncommitted = false; ///< a step was the last that was reported
    };

    const Field* find(int index) const;
    Field* find(int index);
    void fieldChanged(int index, bool committed);
    void fieldDragged(int index, bool dragging);
    void report(int index, bool committed);
    std::vector<int> scaleOthers(int index);
    bool commitSteps();
    void rememberValues();

    std::vector<Field> m_fields;
    std::vector<int> m_due; ///< changed, and next to be reported
    bool m_locked = false;
};
