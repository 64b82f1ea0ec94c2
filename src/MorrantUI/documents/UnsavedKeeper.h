// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/documents/Recovery.h>
#include <MorrantUI/morrantui_export.h>

#include <QObject>
#include <QPointer>
#include <QTimer>

class FileTabs;

/// Keeps the changed documents of a window on disk some seconds after a change, lest the program
/// crashes; large ones less often, so that their user is not held up.
class MORRANT_UI_EXPORT UnsavedKeeper : public QObject
{
    Q_OBJECT

public:
    /// Begins to do so, until the tabs die.
    /// @param folder of the program's own, for all its runs
    UnsavedKeeper(const QString& folder, FileTabs& documents, QObject* parent = nullptr);
    ~UnsavedKeeper() override;

    /// Where they are kept, and where those that a crash has left are taken from. What is taken
    /// stays on disk until Recovery::setTakenOver() tells that all of it is on pages.
    Recovery& recovery() { return m_recovery; }

    /// Keeps them now, as their pages have them: what is being typed or dragged is not among it
    /// before FileTabs::finishEditing(). Where nobody is asked any more, that comes first.
    /// @return what went wrong, a sentence for the user; what was kept before is then still there,
    ///     and a document that cannot be written is kept as it was when it could
    QString keep();
    /// Nothing needs to be recovered any more: for an end that the user has agreed to. Changes that
    /// come after it are kept again, since the window may stay open.
    void forget();

Q_SIGNALS:
    void failed(const QString& sentence); ///< told once, until it works again; it is tried again

private:
    void keepInTime();

    Recovery m_recovery;
    QPointer<FileTabs> m_documents;
    QTimer m_wait{this}; ///< runs while changes wait
    bool m_hasFailed = false;
};
