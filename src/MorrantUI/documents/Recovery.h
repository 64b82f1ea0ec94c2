// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QByteArray>
#include <QLockFile>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

/// A document with changes that no file has.
struct UnsavedDocument
{
    QString title;
    QString path;           ///< of its file; empty for none
    QByteArray fingerprint; ///< of what that file held, see ui::fileState()
    QByteArray contents;    ///< what the file would hold

    bool operator==(const UnsavedDocument&) const = default;
};

/// Keeps changed documents on disk where a program has to end without asking, for its next start.
/// Each run keeps its own in a folder of its own, private to the user and locked while the run
/// lasts, so that several at a time do not meet.
class MORRANT_UI_EXPORT Recovery
{
public:
    /// @param folder of all runs, made when it is first needed; what else lies in it is left alone
    explicit Recovery(const QString& folder);
    ~Recovery();
    Recovery(const Recovery&) = delete;
    Recovery& operator=(const Recovery&) = delete;

    /// What runs that are over have left, which is this run's from now on and stays on disk, also
    /// beside what keep() writes, until it is told by setTakenOver() that it has become part of
    /// that, or until forget(). A folder in which anything cannot be read is nobody's and stays;
    /// one that was not finished goes with what the same run had kept before, and so does what the
    /// run had replaced.
    /// @param isDocument whether contents can be opened; an empty function: all can
    std::vector<UnsavedDocument> take(const std::function<bool(const QByteArray&)>& isDocument);

    /// The folders that the last take() could not read whole.
    const QStringList& unreadable() const { return m_unreadable; }

    /// All that was taken is among the documents that the next keep() gets, so that it replaces it.
    void setTakenOver() { m_isTakenOver = true; }

    /// Replaces what this run has kept, and what it has taken over.
    /// @param isWhole false: some documents are not among these, and what was taken stays too
    /// @return what went wrong, a sentence for the user, and then what was there stays; empty when
    ///     all went well
    QString keep(const std::vector<UnsavedDocument>& documents, bool isWhole = true);

    /// Nothing needs to be recovered any more, of what was taken either.
    void forget();

private:
    struct Held
    {
        QString folder;
        std::unique_ptr<QLockFile> lock;
    };

    Held makeFolder() const;
    void drop(std::vector<Held> held);

    QString m_folder;
    QString m_run; ///< names the folders of this run begin with it
    std::vector<Held> m_kept;
    std::vector<Held> m_taken;
    bool m_isTakenOver = true; ///< all of m_taken
    QStringList m_unreadable;
};
