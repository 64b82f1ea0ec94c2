// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QList>
#include <QObject>

class CommandPalette;
class ContextMenu;
class QAction;
class QMenu;
class TransportActions;

namespace studio {

class DocumentEditor;
class StudioWindow;

/// The menu bar of the studio's window, whose actions are buttons and rows of context menus too.
class StudioMenus : public QObject
{
    Q_OBJECT

public:
    /// @param window owns it; its panels need not be there yet
    explicit StudioMenus(StudioWindow& window);

    /// Takes up the menu of a panel before that of playback.
    void addMenu(QMenu& menu);

    /// Takes up the rows that open and close panels.
    void addPanels(const QList<QAction*>& panels);

    const QList<QAction*>& history() const { return m_history; }
    QList<QAction*> playback() const;
    /// The first three have icons.
    const QList<QAction*>& zooms() const { return m_zooms; }

    /// Adds the rows of the menu of a document's picture.
    void fillViewportMenu(ContextMenu& menu) const;

    /// While the gallery is shown, what works on the hidden panels is disabled.
    void setGalleryShown(bool shown);
    void showHistory(const DocumentEditor& editor);

private:
    void buildFileMenu();
    void buildEditMenu();
    void buildPlaybackMenu();
    void buildViewMenu();
    void addBackdrops(QMenu& menu);

    StudioWindow& m_window;
    CommandPalette* m_palette;
    TransportActions* m_playback;
    QMenu* m_panels = nullptr;
    QAction* m_close = nullptr;
    QList<QAction*> m_history; ///< undo and redo
    QList<QAction*> m_zooms;
    QList<QAction*> m_backdrops;
    QList<QAction*> m_editorActions; ///< for what the gallery hides
    QAction* m_galleryAction = nullptr;
    bool m_isGalleryShown = false;
};

} // namespace studio
