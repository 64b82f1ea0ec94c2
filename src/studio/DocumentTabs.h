// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/docking/tabs/TabBar.h>

#include <QPointer>

#include <memory>
#include <optional>
#include <vector>

enum class CanvasBackdrop;

namespace studio {

class DocumentPage;
class DocumentSaver;
struct Document;
struct UnsavedDocument;

/// The open documents, each on a page of its own behind a tab. There is always a page: before the
/// first document it is empty and shows how to open one, and the last one cannot be closed.
class DocumentTabs : public TabBar
{
    Q_OBJECT

public:
    explicit DocumentTabs(QWidget* parent = nullptr);
    ~DocumentTabs() override;

    /// The page in front.
    DocumentPage& current();
    /// The page of a file; null when it is not open.
    DocumentPage* pageOf(const QString& path);
    DocumentSaver& saver() { return *m_saver; }
    /// Saves all documents that differ from their files.
    /// @return false when one of them was not saved; the ones behind it are then left alone
    bool saveAll();

    /// Brings a new page to the front.
    /// @param path where the document was read from; empty for a document of no file
    void open(std::shared_ptr<Document> document, const QString& title, const QString& path);
    /// Brings the page of a file to the front.
    /// @return whether there is one
    bool showFile(const QString& path);
    /// Closes the page in front, unless it is the last one. The user is asked about its changes.
    void closeCurrent();

    /// Of all pages.
    void setBackdrop(CanvasBackdrop backdrop);
    /// The titles of the documents that differ from their files.
    QStringList changedTitles();
    /// The same documents as they are; nothing when one of them cannot be written.
    std::optional<std::vector<UnsavedDocument>> unsaved();

Q_SIGNALS:
    /// Another page is in front, or it has another document.
    void currentChanged();
    /// What can be undone or redone in the page in front has changed, or whether it has changes.
    void historyChanged();
    /// The history of any page has changed, or a page has gone: unsaved() is another.
    void unsavedChanged();
    /// Undo or redo has changed something in a layer of the page in front.
    void restored(int layer);
    void notDrawnChanged(); ///< of the page in front
    void scaleChanged(double scale);
    void layerClicked(int layer); ///< in the picture of the page in front; -1 for none
    /// The user wants to open another document.
    void wanted();
    /// A document is about to be closed: what is being typed counts among its changes.
    void closing();

private:
    DocumentPage* page(int index);
    void watch(DocumentPage& page);
    void addTab(DocumentPage& page);
    void setTabsShown(bool shown);
    void showTitle(DocumentPage& page);
    void showCloseButtons();
    void askToClose(TabItem& asked);

    bool mayClose(DocumentPage& page);

    DocumentSaver* m_saver;
    CanvasBackdrop m_backdrop{};
    QPointer<QWidget> m_shown; ///< the page that currentChanged() has told last
};

} // namespace studio
