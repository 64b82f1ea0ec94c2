#include "StudioWindow.h"

#include "AttributePanel.h"
#include "LayerPanel.h"
#include "MissingPanel.h"
#include "NoticeBar.h"
#include "Player.h"
#include "TransportBar.h"
#include "Viewport.h"
#include "editing/DocumentEditor.h"
#include "gallery/GalleryPage.h"
#include "lottie/Document.h"
#include "lottie/reader.h"
#include "readouts.h"
#include <MorrantUI/theme/OverrideCursor.h>
#include <MorrantUI/theme/icons.h>

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QDir>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QMenuBar>
#include <QMimeData>
#include <QSplitter>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

namespace studio {

namespace {

constexpr QSize kWindowSize(1440, 900);
constexpr int kSidebarWidth = 260;
constexpr int kAttributesWidth = 340;
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
        if (!command.icon.isEmpty()) {
            action->setIcon(ui::getCachedIcon(u"icons:%1.png"_qs.arg(command.icon)));
        }
        const QString key = command.keys.value(0).toString(QKeySequence::NativeText);
        action->setToolTip(StudioWindow::tr("%1 (%2)").arg(action->toolTip(), key));
        actions.append(action);
    }
    return actions;
}

QString titleOf(const Document& document, const QString& path)
{
    const QString name =
        document.name.isEmpty() ? QFileInfo(path).completeBaseName() : document.name;
    return StudioWindow::tr("%1 (%2)").arg(name, sizeText(document.width, document.height));
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
    , m_editor(new DocumentEditor(this))
    , m_player(new Player(this))
    , m_viewport(new Viewport)
    , m_layers(new LayerPanel)
    , m_attributes(new AttributePanel(*m_editor))
    , m_missing(new MissingPanel)
    , m_notice(new NoticeBar)
    , m_pages(new QStackedWidget)
{
    setWindowIcon(ui::getCachedIcon(u"icons:appIcon.png"_qs));
    setAcceptDrops(true);
    resize(kWindowSize);

    buildFileMenu();
    buildEditMenu();
    const QList<QAction*> playback = buildPlaybackMenu();
    const QList<QAction*> view = buildViewMenu();
    m_transport = new TransportBar(*m_player, playback, view);
    m_pages->addWidget(buildEditor());
    auto* center = new QWidget;
    auto* layout = new QVBoxLayout(center);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_notice);
    layout->addWidget(m_pages, 1);
    setCentralWidget(center);
    m_viewport->setFocus();

    connect(m_player, &Player::frameChanged, m_viewport, &Viewport::setFrame);
    connect(m_player, &Player::frameChanged, m_attributes, &AttributePanel::setFrame);
    connect(m_layers, &LayerPanel::layerSelected, m_attributes, &AttributePanel::setLayer);
    connect(m_attributes, &AttributePanel::editingStarted, m_player, &Player::pause);
    connect(m_editor, &DocumentEditor::edited, m_viewport, qOverload<>(&QWidget::update));
    connect(m_editor, &DocumentEditor::historyChanged, this, &StudioWindow::showHistory);
    connect(m_editor, &DocumentEditor::restored, this, [this](const PropertyAddress& address) {
        selectLayer(address.layer);
    });
    connect(m_player, &Player::playingChanged, this, &StudioWindow::showPlaying);
    connect(m_viewport, &Viewport::scaleChanged, m_transport, &TransportBar::setZoom);
    connect(
        m_viewport,
        &Viewport::leftUnfinished,
        this,
        &StudioWindow::listUnfinished,
        Qt::QueuedConnection);
}

StudioWindow::~StudioWindow()
{
    // The children die after us, the editor before the panel that edits through it.
    selectLayer(-1);
    m_editor->disconnect(this);
}

bool StudioWindow::openFile(const QString& path)
{
    const ui::OverrideCursor busy(Qt::WaitCursor);
    ReadResult result = readFile(path);
    if (!result) {
        fail(result.error);
        return false;
    }
    auto document = std::make_shared<Document>(*std::move(result.document));
    const QString title = titleOf(*document, path);
    setDocument(std::move(document), title);
    return true;
}

void StudioWindow::setDocument(std::shared_ptr<Document> document, const QString& title)
{
    m_attributes->setLayer(-1); // what is under way ends with the document that it changes
    m_editor->setDocument(std::move(document));
    const Document& opened = *m_editor->document();
    m_notice->dismiss();
    m_layers->setDocument(opened);
    m_notDrawn = opened.missing;
    m_missing->setMissing(m_notDrawn);
    m_player->setTrack(frameRange(opened.inPoint, opened.outPoint), opened.frameRate);
    m_viewport->setFrame(m_player->frame());
    m_attributes->setFrame(m_player->frame());
    m_viewport->setDocument(m_editor->document());
    setWindowTitle(plainTitle(title) + u"[*]"_qs);
    setGalleryShown(false);
}

const Document* StudioWindow::document() const
{
    return m_editor->document().get();
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

QWidget* StudioWindow::buildEditor()
{
    auto* sidebar = new QSplitter(Qt::Vertical);
    sidebar->addWidget(m_layers);
    sidebar->addWidget(m_missing);
    sidebar->setChildrenCollapsible(false);
    sidebar->setStretchFactor(0, 3);
    sidebar->setStretchFactor(1, 2);

    auto* middle = new QSplitter(Qt::Horizontal);
    middle->addWidget(sidebar);
    middle->addWidget(m_viewport);
    middle->addWidget(m_attributes);
    middle->setChildrenCollapsible(false);
    middle->setStretchFactor(1, 1);
    middle->setSizes(
        {kSidebarWidth, kWindowSize.width() - kSidebarWidth - kAttributesWidth, kAttributesWidth});

    auto* editor = new QWidget;
    auto* layout = new QVBoxLayout(editor);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(middle, 1);
    layout->addWidget(m_transport);
    return editor;
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
                 m_editor->undo();
             }},
            {tr("&Redo"),
             u"redo"_qs,
             {QKeySequence::Redo},
             [this] {
                 m_attributes->finishEditing();
                 m_editor->redo();
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
    Viewport& view = *m_viewport;
    const QList<QAction*> zooms = addCommands(
        menu,
        {
            {tr("Zoom &Out"),
             u"zoomOut"_qs,
             {Qt::Key_Minus},
             [&view] { view.zoomBy(1.0 / kZoomStep); }},
            {tr("Zoom &In"),
             u"zoomIn"_qs,
             {Qt::Key_Plus, Qt::Key_Equal},
             [&view] { view.zoomBy(kZoomStep); }},
            {tr("&Fit"), u"fit"_qs, {Qt::Key_F}, [&view] { view.fit(); }},
            {tr("&Actual Size"), {}, {Qt::Key_1}, [&view] { view.showActualSize(); }},
        });
    addBackdropMenu(*menu.addMenu(tr("&Backdrop")));
    m_editorActions += menu.actions();
    menu.addSeparator();
    const QList<QAction*> others = addCommands(
        menu,
        {
            {tr("Control &Gallery"),
             {},
             {Qt::CTRL | Qt::Key_G},
             [this] { setGalleryShown(m_pages->currentIndex() == 0); }},
            {tr("&Dismiss Notice"), {}, {Qt::Key_Escape}, [this] { m_notice->dismiss(); }},
        });
    m_galleryAction = others.first();
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
        connect(action, &QAction::triggered, m_viewport, [view = m_viewport, chosen = backdrop] {
            view->setBackdrop(chosen);
        });
        menu.addAction(action);
    }
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
    const bool isEditorShown = m_pages->currentIndex() == 0;
    m_undoAction->setEnabled(isEditorShown && m_editor->canUndo());
    m_undoAction->setText(tr("&Undo %1").arg(menuText(m_editor->undoText())).trimmed());
    m_redoAction->setEnabled(isEditorShown && m_editor->canRedo());
    m_redoAction->setText(tr("&Redo %1").arg(menuText(m_editor->redoText())).trimmed());
    setWindowModified(m_editor->isModified());
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

void StudioWindow::listUnfinished(const MissingFeature& layer)
{
    if (std::find(m_notDrawn.begin(), m_notDrawn.end(), layer) == m_notDrawn.end()) {
        m_notDrawn.push_back(layer);
        m_missing->setMissing(m_notDrawn);
    }
}

} // namespace studio
