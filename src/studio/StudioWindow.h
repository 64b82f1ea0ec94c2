// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QMainWindow>
#include <QPointer>

#include <memory>

class DockableGroup;
class LayoutFile;
class NoticeStack;
class PlaybackClock;
class QStackedWidget;
class TransportBar;
class UnsavedKeeper;
class Workspace;

namespace studio {

class AttributePanel;
class DocumentEditor;
class DocumentPage;
class DocumentTabs;
class DopeSheet;
class GraphEditor;
class LayerPanel;
class MissingPanel;
class NotesPanel;
class StudioMenus;
class Viewport;
class ZoomField;
struct Document;

/// The bundled animations, the one to open by default first.
QStringList samplePaths();

/// The studio's window: its panels in a dock tree, arranged as "style:layout.json" says at first,
/// and the open documents as tabs in one of them. The other panels show the document in front.
/// There is one such window at a time, since its dock tree is gMainWindow's.
class StudioWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit StudioWindow(QWidget* parent = nullptr);
    ~StudioWindow() override;

    /// Opens a file in a tab, or brings its tab to the front. One that cannot be opened changes
    /// nothing: a notice and failed() say why.
    bool openFile(const QString& path);
    /// Opens files in tabs, the last one that can be opened in front.
    /// @return whether all could
    bool openFiles(const QStringList& paths);
    /// Opens a document in a tab.
    /// @param path where it was read from; empty for a document of no file
    void openDocument(
        std::shared_ptr<Document> document, const QString& title, const QString& path = {});

    /// Asks for files and opens them.
    void chooseFiles();

    /// Saves the document in front with what is being typed, see FileSaver.
    bool save();
    bool saveAs();

    /// Undoes or redoes a step of the document in front.
    void undo();
    void redo();

    /// Restores the arrangement that is saved in a file, if there is one, and whether playback
    /// loops. Both are saved there once they have changed and are at rest, and when the window
    /// closes.
    void keepLayoutIn(const QString& path);
    /// Opens the changed documents that a run which had to end has left in a folder, and leaves
    /// those of this one there: in putAway(), and some seconds after a change, lest it crashes.
    /// @return whether there were any
    bool keepUnsavedIn(const QString& folder);
    /// For an end of the program about which nobody can be asked: nothing is lost by it.
    void putAway();

    /// The document in front; null until one was opened.
    const Document* document() const;
    /// Of the document in front, as the viewport is.
    DocumentEditor& editor();
    Viewport& viewport();
    PlaybackClock& player() { return *m_player; }
    NoticeStack& notices() { return *m_notices; }
    Workspace& workspace() { return *m_workspace; }
    DocumentTabs& documents() { return *m_documents; }
    DopeSheet& dopeSheet() { return *m_dopeSheet; }
    GraphEditor& graph() { return *m_graph; }

    /// Selects a layer by its place in the main composition, -1 for none.
    void selectLayer(int layer);
    void setGalleryShown(bool shown);

    /// Shows one sentence about what went wrong, and emits failed().
    void fail(const QString& sentence);

Q_SIGNALS:
    /// One sentence for the user, already shown in the window.
    void failed(const QString& sentence);

protected:
    /// Nothing has the focus after Return in a number field. When the window is activated then, Qt
    /// would give it to the first field, into which the next key for playback would be typed.
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void addPanels();
    void connectPanels();
    void addTransport();
    void offerMenus();
    void showDefaultLayout();
    QString tryToOpen(const QString& path);
    DocumentPage& page() const;
    void showDocument();
    void showHistory();
    void openDropped(const QStringList& paths, bool hasOthers);
    void showViewport();
    void finishEditing();

    std::unique_ptr<Workspace> m_workspace; ///< in m_pages too, but dies before all others
    DocumentTabs* m_documents;
    PlaybackClock* m_player;
    LayerPanel* m_layers;
    AttributePanel* m_attributes;
    MissingPanel* m_missing;
    NotesPanel* m_notes;
    NoticeStack* m_notices = nullptr; ///< over the central widget
    DopeSheet* m_dopeSheet;
    GraphEditor* m_graph;
    TransportBar* m_transport;
    ZoomField* m_zoom;
    QStackedWidget* m_pages;
    QWidget* m_gallery = nullptr; ///< made when first asked for
    StudioMenus* m_menus = nullptr;
    std::unique_ptr<UnsavedKeeper> m_unsaved; ///< null: changed documents are not kept
    LayoutFile* m_layout = nullptr;           ///< null: the layout is not kept
    QPointer<DockableGroup> m_previousRoot;   ///< gMainWindow before
};

} // namespace studio
