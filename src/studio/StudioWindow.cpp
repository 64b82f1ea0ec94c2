#include "StudioWindow.h"

#include "AttributePanel.h"
#include "DocumentPage.h"
#include "DocumentTabs.h"
#include "LayerPanel.h"
#include "MissingPanel.h"
#include "NoticeBar.h"
#include "Player.h"
#include "TransportBar.h"
#include "Viewport.h"
#include "Workspace.h"
#include "discarding.h"
#include "editing/DocumentEditor.h"
#include "gallery/GalleryPage.h"
#include "layout/layoutjson.h"
#include "lottie/Document.h"
#include "lottie/reader.h"
#include "readouts.h"
#include <MorrantUI/theme/OverrideCursor.h>
#include <MorrantUI/theme/events.h>
#include <MorrantUI/theme/icons.h>
#include <MorrantUI/theme/screens.h>

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QDir>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <functional>
#include <utility>
#include <vector>

namespace studio {

namespace {

constexpr QSize kWindowSize(1440, 900); ///< unless the default layout has another one
constexpr double kZoomStep = 1.25;

struct Command
{
    QString text;
    QString icon; ///< name among the icons; may be empty
    QList<QKeySequence> keys;
    std::function<void()> run;
};

/// Adds actions that name their first key in their tool tips.
QList<QAction*> addCommands(QMenu& menu, const std::vector<Command>& commands)
{
    QList<QAction*> actions;
    for (const Command& command : commands) {
        QAction* action = menu.addAction(command.text, &menu, command.run);
        action->setShortcuts(command.keys);
        action->setShortcutContext(Qt::ApplicationShortcut); // in floating panels too
        if (!command.icon.isEmpty()) {
            action->setIcon(ui::getCachedIcon(u"icons:%1.png"_qs.arg(command.icon)));
        }
        if (!command.keys.isEmpty()) {
            const QString key = command.keys.first().toString(QKeySequence::NativeText);
            action->setToolTip(StudioWindow::tr("%1 (%2)").arg(action->toolTip(), key));
        }
        actions.append(action);
    }
    return actions;
}

QString titleOf(const Document& document, const QString& path)
{
    return document.name.isEmpty() ? QFileInfo(path).completeBaseName() : document.name;
}

/// In a title that tells whether there are changes, these three signs have a meaning.
QString plainTitle(QString text)
{
    return text.replace(u"[*]"_qs, u"[*][*]"_qs);
}

/// In a menu, "&" has one.
QString menuText(QString text)
{
    return text.replace(u'&', u"&&"_qs);
}

/// Whoever offers to move a file must not delete it after we have read it.
void acceptCopy(QDropEvent& event)
{
    event.setDropAction(Qt::CopyAction);
    event.accept();
}

} // namespace

QString droppedFile(const QMimeData& data)
{
    const QList<QUrl> urls = data.urls();
    const QString path = urls.size() == 1 ? urls.first().toLocalFile() : QString();
    return path.endsWith(QLatin1String(".json"), Qt::CaseInsensitive) ? path : QString();
}

QStringList samplePaths()
{
    QStringList paths;
    const QDir folder(u":/samples"_qs);
    for (const QString& name : folder.entryList(QDir::Files, QDir::Name)) {
        paths.append(folder.filePath(name));
    }
    return paths;
}

StudioWindow::StudioWindow(QWidget* parent)
    : QMainWindow(parent)
    , m_workspace(std::make_unique<Workspace>(this))
    , m_documents(new DocumentTabs)
    , m_player(new Player(this))
    , m_layers(new LayerPanel)
    , m_attributes(new AttributePanel(m_documents->current().editor()))
    , m_missing(new MissingPanel)
    , m_notice(new NoticeBar)
    , m_pages(new QStackedWidget)
{
    setWindowIcon(ui::getCachedIcon(u"icons:appIcon.png"_qs));
    setAcceptDrops(true);

    buildFileMenu();
    buildEditMenu();
    const QList<QAction*> playback = buildPlaybackMenu();
    const QList<QAction*> zooms = buildViewMenu();
    m_transport = new TransportBar(*m_player, playback, zooms);
    addPanels();
    showDefaultLayout();

    m_pages->addWidget(m_workspace.get());
    auto* center = new QWidget;
    auto* layout = new QVBoxLayout(center);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_notice);
    layout->addWidget(m_pages, 1);
    setCentralWidget(center);
    viewport().setFocus();
    connectPanels();
}

StudioWindow::~StudioWindow()
{
    // The editors may die before the panel that edits through them; and the panels give up their
    // contents to this window, which must be a whole one.
    selectLayer(-1);
    m_documents->disconnect(this);
    m_workspace.reset();
}

void StudioWindow::addPanels()
{
    m_workspace->addPanel(u"layers"_qs, m_layers);
    m_workspace->addPanel(u"notDrawn"_qs, m_missing);
    m_workspace->addPanel(u"viewport"_qs, m_documents);
    m_workspace->addPanel(u"attributes"_qs, m_attributes);
    m_workspace->addPanel(u"transport"_qs, m_transport, Workspace::Header::Grip);
}

void StudioWindow::connectPanels()
{
    connect(m_player, &Player::frameChanged, this, [this](int frame) {
        viewport().setFrame(frame);
        m_attributes->setFrame(frame);
    });
    connect(m_player, &Player::playingChanged, this, &StudioWindow::showPlaying);
    connect(m_layers, &LayerPanel::layerSelected, this, [this](int layer) {
        page().layer = layer;
        m_attributes->setLayer(layer);
    });
    connect(m_attributes, &AttributePanel::editingStarted, m_player, &Player::pause);
    connect(m_documents, &DocumentTabs::currentChanged, this, &StudioWindow::showDocument);
    connect(m_documents, &DocumentTabs::historyChanged, this, &StudioWindow::showHistory);
    connect(m_documents, &DocumentTabs::restored, this, &StudioWindow::selectLayer);
    connect(m_documents, &DocumentTabs::scaleChanged, m_transport, &TransportBar::setZoom);
    connect(m_documents, &DocumentTabs::wanted, this, &StudioWindow::chooseFile);
    connect(m_documents, &DocumentTabs::closing, m_attributes, &AttributePanel::finishEditing);
    // Its panel may float, where drops do not reach this window.
    m_documents->setAcceptDrops(true);
    ui::installEventFilter(
        m_documents, [this](QObject*, QEvent* event) { return takeDrop(*event); }, this);
    connect(m_documents, &DocumentTabs::notDrawnChanged, this, [this] {
        m_missing->setMissing(page().notDrawn());
    });
}

bool StudioWindow::openFile(const QString& path)
{
    if (m_documents->showFile(path)) {
        m_notice->dismiss();
        showViewport();
        return true;
    }
    const ui::OverrideCursor busy(Qt::WaitCursor);
    ReadResult result = readFile(path);
    if (!result) {
        fail(result.error);
        return false;
    }
    auto document = std::make_shared<Document>(*std::move(result.document));
    const QString title = titleOf(*document, path);
    openDocument(std::move(document), title, path);
    return true;
}

void StudioWindow::openDocument(
    std::shared_ptr<Document> document, const QString& title, const QString& path)
{
    m_notice->dismiss();
    m_documents->open(std::move(document), title, path);
    showViewport();
}

void StudioWindow::showViewport()
{
    setGalleryShown(false);
    m_workspace->setPanelOpen(u"viewport"_qs, true);
}

/// Shows the document in front in all panels, as its user left it.
void StudioWindow::showDocument()
{
    DocumentPage& shown = page();
    const Document& document = *shown.document();
    const int layer = shown.layer;
    const int frame = shown.viewport().frame();

    m_attributes->setEditor(shown.editor()); // what is under way ends with the document before
    m_layers->setDocument(document);
    m_missing->setMissing(shown.notDrawn());
    m_player->setTrack(frameRange(document.inPoint, document.outPoint), document.frameRate);
    m_player->seek(frame);
    m_attributes->setFrame(frame);
    m_transport->setZoom(shown.viewport().mapping().scale);
    selectLayer(layer);
    showHistory();
}

DocumentPage& StudioWindow::page() const
{
    return m_documents->current();
}

const Document* StudioWindow::document() const
{
    return page().document();
}

DocumentEditor& StudioWindow::editor()
{
    return page().editor();
}

Viewport& StudioWindow::viewport()
{
    return page().viewport();
}

void StudioWindow::showDefaultLayout()
{
    const LayoutResult read = readLayoutFile(u"style:layout.json"_qs);
    const Layout layout = read.layout.value_or(Layout());
    m_workspace->setDefaultLayout(layout);
    m_workspace->reset();
    resize(layout.windowSize.isEmpty() ? kWindowSize : layout.windowSize);
    if (!read) {
        const QString sentence = tr("The default layout cannot be used: %1.").arg(read.error);
        QMetaObject::invokeMethod(
            this, [this, sentence] { fail(sentence); }, Qt::QueuedConnection); // once we are heard
    }
}

void StudioWindow::keepLayoutIn(const QString& path)
{
    m_layoutFile = path;
    if (!QFileInfo::exists(path)) {
        return;
    }
    const LayoutResult saved = readLayoutFile(path);
    if (!saved) {
        const QString kept = path + u".bad"_qs; // a new one will be written in its place
        QFile::remove(kept);
        QFile::copy(path, kept);
        fail(tr("The layout in “%1” cannot be used: %2.")
                 .arg(QDir::toNativeSeparators(path), saved.error));
        return;
    }
    m_workspace->setLayout(*saved.layout);
    restoreWindow(*saved.layout);
}

void StudioWindow::restoreWindow(const Layout& layout)
{
    const QRect wanted(layout.windowPosition.value_or(pos()), layout.windowSize);
    const QScreen* screen = getClosestScreenAt(wanted.center());
    if (!layout.windowSize.isEmpty() && screen) {
        const QRect place = within(wanted, screen->availableGeometry());
        resize(place.size());
        if (layout.windowPosition) {
            move(place.topLeft());
        }
    }
    setWindowState(windowState().setFlag(Qt::WindowMaximized, layout.maximized));
}

void StudioWindow::saveLayout()
{
    Layout layout = m_workspace->layout();
    layout.maximized = isMaximized();
    layout.windowSize = layout.maximized ? normalGeometry().size() : size();
    const QPoint frame = geometry().topLeft() - pos();
    layout.windowPosition = layout.maximized ? normalGeometry().topLeft() - frame : pos();
    const QString error = writeLayoutFile(layout, m_layoutFile);
    if (!error.isEmpty()) {
        fail(tr("The layout was not saved: %1.").arg(error));
    }
}

void StudioWindow::closeEvent(QCloseEvent* event)
{
    m_attributes->finishEditing();
    if (m_documents->hasChanges()
        && !mayDiscard(
            tr("Quit the studio?"), tr("The changes of the open documents will be lost."), this))
    {
        event->ignore();
        return;
    }
    if (!m_layoutFile.isEmpty()) {
        saveLayout();
    }
    QMainWindow::closeEvent(event);
}

void StudioWindow::selectLayer(int layer)
{
    m_layers->selectLayer(layer);
}

void StudioWindow::setGalleryShown(bool shown)
{
    if (shown && !m_gallery) {
        m_gallery = new GalleryPage;
        m_pages->addWidget(m_gallery);
    }
    m_pages->setCurrentIndex(shown ? m_pages->indexOf(m_gallery) : 0);
    m_galleryAction->setChecked(shown);
    for (QAction* action : std::as_const(m_editorActions)) {
        action->setEnabled(!shown);
    }
    if (shown) {
        m_player->pause();
    }
    showHistory();
}

void StudioWindow::dragEnterEvent(QDragEnterEvent* event)
{
    // Files that cannot be opened are let in too: the drop then says why.
    if (event->mimeData()->hasUrls()) {
        acceptCopy(*event);
    }
}

/// A drag or drop on the documents.
bool StudioWindow::takeDrop(QEvent& event)
{
    if (event.type() == QEvent::DragEnter) {
        dragEnterEvent(static_cast<QDragEnterEvent*>(&event));
    } else if (event.type() == QEvent::Drop) {
        dropEvent(static_cast<QDropEvent*>(&event));
    } else {
        return false;
    }
    return event.isAccepted();
}

void StudioWindow::dropEvent(QDropEvent* event)
{
    acceptCopy(*event);
    const QString path = droppedFile(*event->mimeData());
    if (path.isEmpty()) {
        fail(tr("Drop one Lottie file, with the extension .json, from this computer."));
        return;
    }
    openFile(path);
}

void StudioWindow::buildFileMenu()
{
    QMenu& menu = *menuBar()->addMenu(tr("&File"));
    addCommands(menu, {{tr("&Open…"), u"open"_qs, {QKeySequence::Open}, [this] { chooseFile(); }}});
    QMenu* samples = menu.addMenu(tr("Open &Sample"));
    for (const QString& path : samplePaths()) {
        samples->addAction(
            QFileInfo(path).completeBaseName(), this, [this, path] { openFile(path); });
    }
    menu.addSeparator();
    m_editorActions +=
        addCommands(menu, {{tr("&Close"), {}, {QKeySequence::Close}, [this] { closeDocument(); }}});
    addCommands(menu, {{tr("&Quit"), {}, {QKeySequence::Quit}, [this] { close(); }}});
}

void StudioWindow::buildEditMenu()
{
    // What is being typed counts: it is what the user sees.
    const QList<QAction*> actions = addCommands(
        *menuBar()->addMenu(tr("&Edit")),
        {
            {tr("&Undo"),
             u"undo"_qs,
             {QKeySequence::Undo},
             [this] {
                 m_attributes->finishEditing();
                 editor().undo();
             }},
            {tr("&Redo"),
             u"redo"_qs,
             {QKeySequence::Redo},
             [this] {
                 m_attributes->finishEditing();
                 editor().redo();
             }},
        });
    m_undoAction = actions.at(0);
    m_undoAction->setObjectName(u"undo"_qs);
    m_redoAction = actions.at(1);
    m_redoAction->setObjectName(u"redo"_qs);
    showHistory();
}

/// @return the buttons of the transport
QList<QAction*> StudioWindow::buildPlaybackMenu()
{
    Player& player = *m_player;
    const QList<QAction*> actions = addCommands(
        *menuBar()->addMenu(tr("&Playback")),
        {
            {tr("&First Frame"),
             u"toStart"_qs,
             {Qt::Key_Home},
             [&player] { player.seek(player.range().first); }},
            {tr("Step &Back"), u"stepBack"_qs, {Qt::Key_Left}, [&player] { player.step(-1); }},
            {tr("&Play"), u"play"_qs, {Qt::Key_Space}, [&player] { player.toggle(); }},
            {tr("Step F&orward"),
             u"stepForward"_qs,
             {Qt::Key_Right},
             [&player] { player.step(1); }},
            {tr("&Last Frame"),
             u"toEnd"_qs,
             {Qt::Key_End},
             [&player] { player.seek(player.range().last); }},
        });
    m_playAction = actions.at(2);
    m_editorActions += actions;
    return actions;
}

/// @return the buttons beside the zoom
QList<QAction*> StudioWindow::buildViewMenu()
{
    QMenu& menu = *menuBar()->addMenu(tr("&View"));
    const QList<QAction*> zooms = addCommands(
        menu,
        {
            {tr("Zoom &Out"),
             u"zoomOut"_qs,
             {Qt::Key_Minus},
             [this] { viewport().zoomBy(1.0 / kZoomStep); }},
            {tr("Zoom &In"),
             u"zoomIn"_qs,
             {Qt::Key_Plus, Qt::Key_Equal},
             [this] { viewport().zoomBy(kZoomStep); }},
            {tr("&Fit"), u"fit"_qs, {Qt::Key_F}, [this] { viewport().fit(); }},
            {tr("&Actual Size"), {}, {Qt::Key_1}, [this] { viewport().showActualSize(); }},
        });
    addBackdropMenu(*menu.addMenu(tr("&Backdrop")));
    m_editorActions += menu.actions();
    menu.addSeparator();
    QMenu& panels = *menu.addMenu(tr("&Panels"));
    addPanelMenu(panels);
    m_editorActions.append(panels.menuAction());
    const QList<QAction*> others = addCommands(
        menu,
        {
            {tr("&Reset Layout"), {}, {}, [this] { m_workspace->reset(); }},
            {tr("Control &Gallery"),
             {},
             {Qt::CTRL | Qt::Key_G},
             [this] { setGalleryShown(m_pages->currentIndex() == 0); }},
            {tr("&Dismiss Notice"), {}, {Qt::Key_Escape}, [this] { m_notice->dismiss(); }},
        });
    m_galleryAction = others.at(1);
    m_galleryAction->setCheckable(true);
    return zooms.mid(0, 3);
}

void StudioWindow::addBackdropMenu(QMenu& menu)
{
    auto* group = new QActionGroup(this);
    const std::pair<Backdrop, QString> choices[] = {
        {Backdrop::Chequer, tr("&Chequer")},
        {Backdrop::Light, tr("&Light")},
        {Backdrop::Dark, tr("&Dark")},
    };
    for (const auto& [backdrop, name] : choices) {
        QAction* action = group->addAction(name);
        action->setCheckable(true);
        action->setChecked(backdrop == Backdrop::Chequer);
        connect(action, &QAction::triggered, this, [this, chosen = backdrop] {
            m_documents->setBackdrop(chosen);
        });
        menu.addAction(action);
    }
}

/// @param menu filled when it opens, since panels come and go by many ways
void StudioWindow::addPanelMenu(QMenu& menu)
{
    connect(&menu, &QMenu::aboutToShow, this, [this, &menu] {
        menu.clear();
        for (const Workspace::Panel& panel : m_workspace->panels()) {
            const QString id = panel.id;
            QAction* action = menu.addAction(panel.name, this, [this, id] {
                m_workspace->setPanelOpen(id, !m_workspace->isPanelOpen(id));
            });
            action->setCheckable(true);
            action->setChecked(m_workspace->isPanelOpen(id));
        }
    });
}

void StudioWindow::showPlaying(bool playing)
{
    const QString icon = playing ? u"icons:pause.png"_qs : u"icons:play.png"_qs;
    m_playAction->setIcon(ui::getCachedIcon(icon));
    m_playAction->setText(playing ? tr("&Pause") : tr("&Play"));
    m_playAction->setToolTip(playing ? tr("Pause (Space)") : tr("Play (Space)"));
}

void StudioWindow::showHistory()
{
    const DocumentEditor& history = page().editor();
    const bool isEditorShown = m_pages->currentIndex() == 0;
    m_undoAction->setEnabled(isEditorShown && history.canUndo());
    m_undoAction->setText(tr("&Undo %1").arg(menuText(history.undoText())).trimmed());
    m_redoAction->setEnabled(isEditorShown && history.canRedo());
    m_redoAction->setText(tr("&Redo %1").arg(menuText(history.redoText())).trimmed());
    if (const Document* shown = document()) {
        const QString size = sizeText(shown->width, shown->height);
        setWindowTitle(tr("%1 (%2)").arg(plainTitle(page().title()), size) + u"[*]"_qs);
    }
    setWindowModified(history.isModified());
}

void StudioWindow::closeDocument()
{
    m_documents->closeCurrent();
}

void StudioWindow::chooseFile()
{
    const QString path = QFileDialog::getOpenFileName(
        this, tr("Open"), {}, tr("Lottie animations (*.json);;All files (*)"));
    if (!path.isEmpty()) {
        openFile(path);
    }
}

void StudioWindow::fail(const QString& sentence)
{
    m_notice->showSentence(sentence);
    Q_EMIT failed(sentence);
}

} // namespace studio
