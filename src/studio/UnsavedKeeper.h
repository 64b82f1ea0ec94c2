// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "saving/Recovery.h"

#include <QTimer>

namespace studio {

class DocumentTabs;

/// Keeps the changed documents of a window on disk some seconds after a change, lest the program
/// crashes.
class UnsavedKeeper : public QObject
{
    Q_OBJECT

public:
    /// Begins to do so. @param documents must outlive it
    UnsavedKeeper(const QString& folder, DocumentTabs& documents, QObject* parent = nullptr);
    ~UnsavedKeeper() override;

    Recovery& recovery() { return m_recovery; }

    /// Keeps them now. @return what went wrong, a sentence for the user; what was kept before is
    /// then still there
    QString keep();
    /// Nothing needs to be recovered any more.
    void forget();

Q_SIGNALS:
    void failed(const QString& sentence); ///< told once, until it works again; it is tried again

private:
    void keepInTime();

    Recovery m_recovery;
    DocumentTabs& m_documents;
    QTimer m_wait{this}; ///< runs while changes wait
    bool m_hasFailed = false;
};

} // namespace studio
