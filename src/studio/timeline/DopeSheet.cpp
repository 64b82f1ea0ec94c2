// SPDX-License-Identifier: Apache-2.0
#include "timeline/DopeSheet.h"

#include "commands.h"
#include "editing/DocumentEditor.h"
#include "timeline/DopeSheetEdits.h"
#include "timeline/DopeSheetRows.h"
#include "timeline/DopeSheetState.h"
#include <MorrantUI/menus/ContextMenu.h>
#include <MorrantUI/theme/OverrideCursor.h>
#include <MorrantUI/theme/icons.h>
#include <MorrantUI/timeeditor/DopeSheetView.h>
#include <MorrantUI/timeeditor/TimeEditorRowHeader.h>
#include <MorrantUI/timeeditor/TimeEditorScene.h>
#include <MorrantUI/timeline/DopeSheetPane.h>
#include <MorrantUI/timeline/PlaybackClock.h>
#include <MorrantUI/timeline/TimelineScene.h>
#include <MorrantUI/timeline/TimelineView.h>

#include <QDir>
#include <QDropEvent>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QMenu>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QToolButton>

#include <cmath>
#include <utility>

namespace studio {

namespace {

constexpr int kBigNudge = 10; ///< frames

TimelineMarkers markersOf(const Document& document)
{
    TimelineMarkers markers;
    for (const Marker& marker : document.markers) {
        const auto frame = [](double time) { return static_cast<int>(std::lround(time)); };
        markers.push_back({0, frame(marker.time), frame(marker.duration), marker.comment, {}});
    }
    return markers;
}

} // namespace

QString droppedSound(const QMimeData& data)
{
    const QList<QUrl> urls = data.urls();
    const QString path = urls.size() == 1 ? urls.first().toLocalFile() : QString();
    return path.endsWith(QLatin1String(".wav"), Qt::CaseInsensitive) ? path : QString();
}

DopeSheet::DopeSheet(PlaybackClock& player, QWidget* parent)
    : EditorPane(tr("Dope Sheet"), parent)
    , m_player(player)
    , m_pane(new DopeSheetPane)
    , m_view(&m_pane->view())
    , m_ruler(&m_pane->ruler())
    , m_header(&m_pane->header())
    , m_rows(new DopeSheetRows(*m_view, *m_header, this))
    , m_edits(new DopeSheetEdits(*m_view, *m_rows))
    , m_menu(new QMenu(tr("&Keys"), this))
{
    m_edits->setParent(this);
    setAcceptDrops(true);
    m_view->setUtils(m_edits);
    m_view->setContextMenuPolicy(Qt::NoContextMenu); // the panel's is the one to open
    m_header->setAccessibleName(tr("Layers and their properties"));
    for (QGraphicsView* view : std::initializer_list<QGraphicsView*>{m_view, m_ruler}) {
        view->setAcceptDrops(false); // which scenes would swallow
        view->viewport()->setAcceptDrops(false);
    }
    buildMenu();
    buildLayout();
    connectViews();
    showActions();
}

DopeSheet::~DopeSheet()
{
    m_view->disconnect(this); // it outlives what is a dope sheet of this object
    m_view->getEditorScene()->disconnect(this);
}

void DopeSheet::buildLayout()
{
    setFocusProxy(m_view); // of a view inside it, Qt would take the others out of the order of Tab
    auto* corner = new QWidget;
    auto* buttons = new QHBoxLayout(corner);
    buttons->setContentsMargins(4, 0, 4, 0);
    buttons->setSpacing(2);
    for (QAction* action : {m_tool, m_follow}) {
        auto* button = new QToolButton;
        button->setDefaultAction(action);
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::NoFocus);
        buttons->addWidget(button);
    }
    buttons->addStretch(1);
    m_pane->setCorner(corner);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_pane);
}

void DopeSheet::connectViews()
{
    m_pane->setClock(&m_player);
    const TimelineScene* scene = m_ruler->getTimelineScene();
    connect(&m_player, &PlaybackClock::playbackRangeChanged, this, &DopeSheet::keepLoop);
    connect(scene, &TimelineScene::markersChanged, this, [this] {
        if (shownState()) {
            m_state->markers = m_ruler->getTimelineScene()->markers();
        }
    });

    connect(m_view, &DopeSheetView::released, this, &DopeSheet::chooseLayer);
    connect(m_edits, &DopeSheetEdits::dragStarted, &m_player, &PlaybackClock::pause);
    // Which layer is chosen may have been told while they stood where they were before.
    connect(m_edits, &DopeSheetEdits::layersShown, this, [this] { setLayer(m_layer); });
    connect(m_view->getEditorScene(), &QGraphicsScene::selectionChanged, this, [this] {
        m_view->getEditorScene()
            ->update(); // a key that is left would keep the look of a selected one
        showActions();
        if (!m_isFollowing) {
            Q_EMIT keysChosen(m_rows->selectedKeys());
        }
    });
    connect(
        m_header, &TimeEditorRowHeader::currentRowChosen, this, [this](TimeEditorBaseItem* row) {
            if (m_rows->layerOf(row) >= 0) {
                Q_EMIT layerChosen(m_rows->layerOf(row));
            }
        });
}

void DopeSheet::buildMenu()
{
    addKeyCommands();
    m_menu->addSeparator();
    addSelectionCommands();
    m_menu->addSeparator();
    addViewCommands();
    for (QAction* action : m_menu->actions()) {
        // Keys as short as these are the panel's alone.
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        addAction(action);
    }
}

void DopeSheet::addKeyCommands()
{
    const auto edit = [this](void (DopeSheetEdits::*operation)()) {
        return [this, operation] { (m_edits->*operation)(); };
    };
    const auto nudge = [this](int frames) { return [this, frames] { m_edits->nudge(frames); }; };
    constexpr auto kFar = Qt::ALT | Qt::SHIFT;
    m_keyActions = addCommands(
        *m_menu,
        {
            {tr("Cu&t"), u"cut"_qs, {QKeySequence::Cut}, edit(&DopeSheetEdits::onCutKeyframes)},
            {tr("&Copy"), u"copy"_qs, {QKeySequence::Copy}, edit(&DopeSheetEdits::onCopyKeyframes)},
        });
    addCommands(
        *m_menu,
        {{tr("&Paste"),
          u"paste"_qs,
          {QKeySequence::Paste},
          edit(&DopeSheetEdits::onPasteKeyframes)}});
    m_keyActions += addCommands(
        *m_menu,
        {
            {tr("D&uplicate"), {}, {Qt::CTRL | Qt::Key_D}, edit(&DopeSheetEdits::duplicate)},
            {tr("&Delete"),
             u"delete"_qs,
             {QKeySequence::Delete},
             [this] { m_edits->onDeleteKeyframes({}); }},
            {tr("Nudge &Left"), {}, {Qt::ALT | Qt::Key_Left}, nudge(-1)},
            {tr("Nudge &Right"), {}, {Qt::ALT | Qt::Key_Right}, nudge(1)},
            {tr("Nudge Left by Ten"), {}, {kFar | Qt::Key_Left}, nudge(-kBigNudge)},
            {tr("Nudge Right by Ten"), {}, {kFar | Qt::Key_Right}, nudge(kBigNudge)},
        });
    addCommands(
        *m_menu,
        {
            {tr("Trim &Start to Playhead"),
             {},
             {Qt::ALT | Qt::Key_BracketLeft},
             [this] { m_edits->trim(true); }},
            {tr("Trim &End to Playhead"),
             {},
             {Qt::ALT | Qt::Key_BracketRight},
             [this] { m_edits->trim(false); }},
        });
}

void DopeSheet::addSelectionCommands()
{
    addCommands(
        *m_menu,
        {
            {tr("Select &All Keys"),
             {},
             {QKeySequence::SelectAll},
             [this] { m_view->selectAllKeys(); }},
            {tr("Select C&olumn"), {}, {Qt::Key_K}, [this] { m_view->selectKeyColumn(); }},
            {tr("Select up to Playhead"),
             {},
             {Qt::Key_BracketLeft},
             [this] { m_view->selectKeysUpTo(m_player.frame()); }},
            {tr("Select from Playhead"),
             {},
             {Qt::Key_BracketRight},
             [this] { m_view->selectKeysFrom(m_player.frame()); }},
        });
}

void DopeSheet::addViewCommands()
{
    const auto actions = addCommands(
        *m_menu,
        {
            {tr("Trans&form Tool"),
             u"fit"_qs,
             {Qt::Key_T},
             [this] {
                 m_view->setShowTransformTool(m_tool->isChecked());
                 m_view->selectionChanged();
             }},
            {tr("Follow Play&head"),
             u"timeline"_qs,
             {},
             [this] { m_pane->setFollowsFrame(m_follow->isChecked()); }},
            {tr("Open Sou&nd…"), u"audioLayer"_qs, {}, [this] { chooseSound(); }},
            {tr("Remo&ve Sound"),
             {},
             {},
             [this] {
                 m_state->sound = {};
                 m_rows->refreshAll();
                 showActions();
             }},
        });
    m_tool = actions.at(0);
    m_follow = actions.at(1);
    m_removeSound = actions.at(3);
    m_tool->setCheckable(true);
    m_follow->setCheckable(true);
    m_follow->setChecked(true);
}

void DopeSheet::leaveDocument()
{
    finishEditing();
    if (shownState()) {
        m_state->visible = m_pane->zoomedFrames();
    }
    m_state = nullptr; // until all is in place
}

void DopeSheet::setDocument(DocumentEditor& editor, DopeSheetState& state)
{
    leaveDocument();
    m_editor = &editor;
    m_edits->setEditor(editor);
    m_rows->setDocument(editor, state);
    const Document* document = editor.document().get();
    if (document && !state.isShown) {
        state.isShown = true;
        state.markers = markersOf(*document);
    }
    m_ruler->getTimelineScene()->setMarkers(state.markers);
    const ui::FrameRange loop = state.loop.value_or(m_player.frameRange());
    m_player.setPlaybackRange(loop.first, loop.second);
    m_state = &state;
    keepLoop();
    m_pane->setZoomedFrames(state.visible);
    m_pane->setCurrentFrame(m_player.frame());
    showActions();
}

void DopeSheet::setLayer(int layer)
{
    m_layer = layer;
    m_edits->setLayer(layer);
    if (layer < 0 || m_rows->layerOf(m_header->currentRow()) != layer) {
        TimeEditorBaseItem* row = m_rows->rowOfLayer(layer);
        m_header->setCurrentRow(row);
        m_header->showRow(row);
    }
}

/// What is being dragged stays selected, and where it is: others lose sight of a key for as long as
/// that is on another one.
void DopeSheet::selectKeys(const std::vector<KeyAddress>& keys)
{
    if (m_edits->isDragging()) {
        return;
    }
    const QScopedValueRollback following(m_isFollowing, true);
    m_edits->select(keys);
}

void DopeSheet::finishEditing()
{
    m_ruler->finishGesture();
    m_view->finishGesture();
}

/// The layer whose keys or clip the mouse has just taken up.
void DopeSheet::chooseLayer()
{
    const auto layers = m_rows->selectedLayers();
    if (layers.size() == 1 && layers.front() != m_layer) {
        Q_EMIT layerChosen(layers.front());
    }
}

void DopeSheet::keepLoop()
{
    if (shownState()) {
        m_state->loop = m_player.playbackRange();
    }
}

void DopeSheet::showActions()
{
    const bool hasKeys = !m_view->getEditorScene()->selectedItems().isEmpty();
    for (QAction* action : std::as_const(m_keyActions)) {
        action->setEnabled(hasKeys);
    }
    m_removeSound->setEnabled(shownState() && m_state->sound.peaks);
}

void DopeSheet::chooseSound()
{
    const QString path = QFileDialog::getOpenFileName(
        this, tr("Open Sound"), {}, tr("WAV sounds (*.wav);;All files (*)"));
    if (!path.isEmpty()) {
        openSound(path);
    }
}

void DopeSheet::openSound(const QString& path)
{
    const ui::OverrideCursor busy(Qt::WaitCursor);
    if (!shownState()) {
        return;
    }
    ui::SoundFile sound = ui::readSoundFile(path);
    if (!sound.peaks) {
        Q_EMIT failed(tr("The sound “%1” cannot be used: %2.")
                          .arg(QDir::toNativeSeparators(path), sound.error));
        return;
    }
    m_state->sound = std::move(sound);
    m_rows->refreshAll();
    showActions();
}

void DopeSheet::fillMenu(ContextMenu& menu, QPoint point)
{
    const QPoint place(0, m_header->mapFrom(this, point).y());
    if (const PropertyAddress* address = m_rows->addressOf(m_header->rowAt(place))) {
        menu.addAction(
            ui::getCachedIcon(u"icons:keyframeAdd.png"_qs),
            tr("Add &Key at Playhead"),
            this,
            [this, property = *address] { m_edits->addKey(property); });
        menu.addSeparator();
    }
    menu.addActions(m_menu->actions());
}

void DopeSheet::dragEnterEvent(QDragEnterEvent* event)
{
    if (droppedSound(*event->mimeData()).isEmpty()) {
        event->ignore(); // the window may take it
    } else {
        event->setDropAction(Qt::CopyAction); // whoever offers to move a file must not delete it
        event->accept();
    }
}

void DopeSheet::dropEvent(QDropEvent* event)
{
    event->setDropAction(Qt::CopyAction);
    event->accept();
    openSound(droppedSound(*event->mimeData()));
}

} // namespace studio
