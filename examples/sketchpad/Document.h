// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Rosette.h"

#include <QObject>
#include <QUndoStack>

/// The rosette and its history.
///
/// What the user is doing is shown at once, by preview(), and finishStep() makes one step of all
/// that was previewed.
class Document : public QObject
{
    Q_OBJECT

public:
    explicit Document(Rosette start);
    ~Document() override;

    const Rosette& rosette() const { return m_shown; }
    QUndoStack& history() { return m_history; }

    void preview(const Rosette& rosette);
    /// Without a difference to the last step nothing happens.
    void finishStep(const QString& text);

Q_SIGNALS:
    void changed();

private:
    class Step;

    Rosette m_kept;  ///< as the history has it
    Rosette m_shown; ///< with what is under way
    QUndoStack m_history;
};
