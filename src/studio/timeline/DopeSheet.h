// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "EditorPane.h"
#include "editing/PropertyAddress.h"

#include <QPointer>

#include <vector>

class ContextMenu;
class DopeSheetPane;
class DopeSheetView;
class PlaybackClock;
class QAction;
class QMenu;
class QMimeData;
class TimelineView;
class TimeEditorRowHeader;

namespace studio {

class DocumentEditor;
class DopeSheetEdits;
class DopeSheetRows;
struct DopeSheetState;

/// The one local .wav file that a drop brings; empty for anything else.
QString droppedSound(const QMimeData& data);

/// The layers of a document over time: when each is shown and, below it or folded into it, the keys
/// of its animated properties; a sound to go by; and the ruler above, whose bookends bound what is
/// played.
class DopeSheet : public EditorPane
{
    Q_OBJECT

public:
    /// @param player must outlive it
    explicit DopeSheet(PlaybackClock& player, QWidget* parent = nullptr);
    ~DopeSheet() override;

    /// Shows a document that the player has taken up. Both must live until another one is shown.
    void setDocument(DocumentEditor& editor, DopeSheetState& state);
    /// What is under way ends, and how the document is seen is kept, before the player takes up
    /// another one.
    void leaveDocument();
    /// Marks a layer, unless one of its properties is marked; -1 for none.
    void setLayer(int layer);
    /// Selects keys that were selected elsewhere.
    void selectKeys(const std::vector<KeyAddress>& keys);
    /// Ends a drag, so that the document is complete.
    void finishEditing();

    /// Shows the wave of a WAV file, or emits failed().
    void openSound(const QString& path);

    /// What can be done to keys and clips.
    QMenu* menu() const { return m_menu; }
    /// Adds the rows of the menu at a point.
    void fillMenu(ContextMenu& menu, QPoint point);

    DopeSheetView& view() const { return *m_view; }
    TimelineView& ruler() const { return *m_ruler; }
    TimeEditorRowHeader& header() const { return *m_header; }

Q_SIGNALS:
    /// The user has chosen a layer, by itself or by what is in its rows.
    void layerChosen(int layer);
    /// The user has selected other keys.
    void keysChosen(const std::vector<studio::KeyAddress>& keys);
    /// One sentence for the user.
    void failed(const QString& sentence);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    DopeSheetState* shownState() const { return m_editor ? m_state : nullptr; }
    void buildMenu();
    void buildLayout();
    void connectViews();
    void addKeyCommands();
    void addSelectionCommands();
    void addViewCommands();
    void keepLoop();
    void showActions();
    void chooseLayer();
    void chooseSound();

    PlaybackClock& m_player;
    DopeSheetPane* m_pane;
    DopeSheetView* m_view; ///< the pane's, as are the next two
    TimelineView* m_ruler;
    TimeEditorRowHeader* m_header;
    DopeSheetRows* m_rows;
    DopeSheetEdits* m_edits;
    QMenu* m_menu;
    QList<QAction*> m_keyActions; ///< for what needs selected keys
    QAction* m_follow = nullptr;
    QAction* m_tool = nullptr;
    QAction* m_removeSound = nullptr;
    QPointer<DocumentEditor> m_editor;
    DopeSheetState* m_state = nullptr; ///< lives as long as the editor
    int m_layer = -1;
    bool m_isFollowing = false; ///< the selection of others
};

} // namespace studio
