#pragma once

#include <QMainWindow>

#include <memory>
#include <vector>

class QAction;
class QMimeData;
class QStackedWidget;

namespace studio {

class AttributePanel;
class DocumentEditor;
class LayerPanel;
class MissingPanel;
class NoticeBar;
class Player;
class TransportBar;
class Viewport;
struct Document;
struct MissingFeature;

/// The file that a drop brings: the one local .json file; empty for anything else.
QString droppedFile(const QMimeData& data);

/// The bundled animations, the one to open by default first.
QStringList samplePaths();

/// The studio's window: layers at the left, the viewport in the middle, the attributes of the
/// selected layer at the right, the transport below.
class StudioWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit StudioWindow(QWidget* parent = nullptr);
    ~StudioWindow() override;

    /// Opens a file in place of the one that was open. One that cannot be opened changes nothing:
    /// the notice and failed() say why.
    bool openFile(const QString& path);
    void setDocument(std::shared_ptr<Document> document, const QString& title);

    /// Null until a file was opened.
    const Document* document() const;
    DocumentEditor& editor() { return *m_editor; }
    Player& player() { return *m_player; }
    Viewport& viewport() { return *m_viewport; }
    const NoticeBar& notice() const { return *m_notice; }

    /// Selects a layer by its place in the main composition, -1 for none.
    void selectLayer(int layer);
    void setGalleryShown(bool shown);

    /// Shows one sentence about what went wrong, and emits failed().
    void fail(const QString& sentence);

Q_SIGNALS:
    /// One sentence for the user, already shown in the window.
    void failed(const QString& sentence);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    QWidget* buildEditor();
    void buildFileMenu();
    void buildEditMenu();
    QList<QAction*> buildPlaybackMenu();
    QList<QAction*> buildViewMenu();
    void addBackdropMenu(QMenu& menu);
    void showPlaying(bool playing);
    void showHistory();
    void chooseFile();
    void listUnfinished(const MissingFeature& layer);

    DocumentEditor* m_editor;
    Player* m_player;
    Viewport* m_viewport;
    LayerPanel* m_layers;
    AttributePanel* m_attributes;
    MissingPanel* m_missing;
    NoticeBar* m_notice;
    TransportBar* m_transport = nullptr;
    QStackedWidget* m_pages;
    QWidget* m_gallery = nullptr;           ///< made when first asked for
    std::vector<MissingFeature> m_notDrawn; ///< as read, and found while drawing
    QList<QAction*> m_editorActions;        ///< for what the gallery hides
    QAction* m_undoAction = nullptr;
    QAction* m_redoAction = nullptr;
    QAction* m_playAction = nullptr;
    QAction* m_galleryAction = nullptr;
};

} // namespace studio
