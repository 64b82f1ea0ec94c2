// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/docking/tabs/TabBar.h>
#include <MorrantUI/documents/Recovery.h>
#include <MorrantUI/morrantui_export.h>

#include <QHash>
#include <QList>
#include <QPointer>
#include <QStringList>

#include <vector>

class FilePage;
class FileSaver;
class QAction;

/// Open documents, each on a page of its own behind a tab, with a star behind the title of one that
/// has changes. There is always a page: the last one cannot be closed, and as long as it has no
/// document (see FilePage::setFile()) it is shown without tabs. Before a document with changes is
/// closed, also by a tab's menu, it comes to the front and the user is asked; of several that are
/// to be closed, one that the user keeps ends that. What is closed unasked is TabBar::removeTab().
class MORRANT_UI_EXPORT FileTabs : public TabBar
{
    Q_OBJECT

public:
    /// Without a page: add the first one next.
    explicit FileTabs(QWidget* parent = nullptr);
    ~FileTabs() override;

    /// Adds a page, which the tabs own, and brings it to the front. Null, and a page that is here
    /// already, are ignored.
    void add(FilePage* page);
    /// In the order of their tabs.
    QList<FilePage*> pages() const;
    /// The page in front; null only before the first one.
    FilePage* current() const;
    /// The page of a file, however its path is spelled; null when it is not open.
    FilePage* pageOf(const QString& path) const;
    /// Brings the page of a file to the front.
    /// @return whether there is one
    bool showFile(const QString& path);

    /// Closes the page in front, unless it is the last one. The user is asked about its changes.
    void closeCurrent();
    /// What is being typed or dragged becomes part of the documents, on all pages. What asks or
    /// saves here does so itself; call it before UnsavedKeeper::keep().
    void finishEditing();
    /// Asks what is to become of the changes of all documents, if there are any, before all of them
    /// are left; saves them if the user wants that. All that closeEvent() has to ask.
    /// @param question such as "Quit?"
    /// @return whether they may be left
    bool mayLeave(const QString& question);
    /// Saves all documents that have changes, with what is being typed; one of which something has
    /// to be asked comes to the front.
    /// @return false when one of them was not saved; the ones behind it are then left alone
    bool saveAll();
    /// What saves the pages, with signals of its own; the tabs'.
    FileSaver& saver() const { return *m_saver; }

    /// The documents that have changes, as they are. One that cannot be written is as this has told
    /// it last, or left out if it never has; until then the last ones stay in memory.
    /// @param unwritable if not null: their titles
    /// @param isWhole if not null: whether none was left out
    std::vector<UnsavedDocument> unsaved(
        QStringList* unwritable = nullptr, bool* isWhole = nullptr);

    /// Rows for a menu that turn to the next and the previous document, round and round, with
    /// Control, Tab and Page Down or Page Up as their keys.
    const QList<QAction*>& turnActions() const { return m_turnActions; }

Q_SIGNALS:
    /// Another page is in front, or it has another document.
    void currentChanged();
    /// FilePage::changed() of the page in front.
    void currentEdited();
    /// Any page has changed, or one has gone: unsaved() is another.
    void unsavedChanged();
    /// The button behind the tabs was clicked: the user wants to open another document.
    void wanted();
    /// A document is about to be closed: what is being typed counts among its changes.
    void closing();

private:
    void addTab(FilePage& page);
    void addTurn(const QString& text, int step, const QList<QKeySequence>& keys);
    void follow(FilePage& page);
    void showDocument();
    void showChange();
    void showTabs();
    void showTitle(FilePage& page);
    void showPage(const FilePage* page);
    void askToClose(TabItem& asked);
    bool mayClose(FilePage& page);

    FileSaver* m_saver;
    QList<QAction*> m_turnActions;
    QPointer<QWidget> m_shown; ///< the page that currentChanged() has told last
    QHash<const FilePage*, UnsavedDocument> m_written; ///< by those pages that have changes
};
