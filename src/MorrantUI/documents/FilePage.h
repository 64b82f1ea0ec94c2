// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QByteArray>
#include <QString>
#include <QWidget>

#include <optional>

/// A page that shows a document of the host's, and what FileTabs, FileSaver and UnsavedKeeper have
/// to know of it: its name, its file, and whether that file has what the document is.
class MORRANT_UI_EXPORT FilePage : public QWidget
{
    Q_OBJECT

public:
    explicit FilePage(QWidget* parent = nullptr);
    ~FilePage() override;

    /// Tells of the document that the page shows from now on; changed() and documentSet() follow.
    /// @param title what tabs and questions call it; empty for none yet
    /// @param path of its file; empty for a document of no file
    /// @param fingerprint of what that file holds, see ui::fingerprintOf()
    void setFile(const QString& title, const QString& path, const QByteArray& fingerprint);

    const QString& title() const { return m_title; }
    const QString& path() const { return m_path; }
    /// Of what its file held when it was read or written last.
    const QByteArray& fingerprint() const { return m_fingerprint; }

    /// The document is now what a file holds; changed() follows. Another file than before gives it
    /// its name.
    void setSaved(const QString& path, const QByteArray& fingerprint);
    /// The document has changes that are not in its file, and that no undo takes back, as one that
    /// was recovered; changed() follows.
    /// @param fingerprint of what the file held that it began with
    void setUnsaved(const QByteArray& fingerprint);

    /// Whether the document has changes that its file has not. Emit changed() after every edit,
    /// not only after the first one: what changes later would not be kept for a crash.
    virtual bool isModified() const = 0;
    /// What the document's file would hold now; none when it cannot be written. Also called from a
    /// timer, while the user is at work: it ends nothing that is under way, and asks nothing.
    virtual std::optional<QByteArray> contents() = 0;
    /// Whether these contents can be opened again: others are not saved. True by default.
    virtual bool canBeRead(const QByteArray& contents) const;
    /// What is being typed or dragged becomes part of the document, which is about to be saved or
    /// left.
    virtual void finishEditing() {}

Q_SIGNALS:
    /// The page has another document, see setFile().
    void documentSet();
    /// The document is another one than before or has been edited, or its title, its file, or
    /// whether it is modified is another.
    void changed();

protected:
    /// The document as it is counts as saved from now on, or as modified whatever is undone.
    virtual void setModified(bool modified) = 0;

private:
    QString m_title;
    QString m_path;
    QByteArray m_fingerprint;
};
