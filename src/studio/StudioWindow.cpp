// SPDX-License-Identifier: Apache-2.0
#include "StudioWindow.h"

#include "AttributePanel.h"
#include "DocumentPage.h"
#include "DocumentTabs.h"
#include "LayerPanel.h"
#include "MissingPanel.h"
#include "NotesPanel.h"
#include "StudioMenus.h"
#include "Viewport.h"
#include "ZoomField.h"
#include "commands.h"
#include "editing/DocumentEditor.h"
#include "gallery/GalleryPage.h"
#include "graph/GraphEditor.h"
#include "lottie/Document.h"
#include "lottie/reader.h"
#include "timeline/DopeSheet.h"
#include <MorrantUI/docking/DockableGroup.h>
#include <MorrantUI/docking/saving/LayoutFile.h>
#include <MorrantUI/docking/saving/Workspace.h>
#include <MorrantUI/documents/FileSaver.h>
#include <MorrantUI/documents/UnsavedKeeper.h>
#include <MorrantUI/documents/filedrops.h>
#include <MorrantUI/menus/ContextMenu.h>
#include <MorrantUI/menus/NoticeStack.h>
#include <MorrantUI/menus/hostmenus.h>
#include <MorrantUI/theme/OverrideCursor.h>
#include <MorrantUI/theme/icons.h>
#include <MorrantUI/timeline/PlaybackClock.h>
#include <MorrantUI/timeline/TransportBar.h>
#include <MorrantUI/timeline/playback.h>

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QMenu>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <utility>

namespace studio {

namespace {

constexpr QSize kWindowSize(1440, 900); ///< until the user has given it another one

QString titleOf(const Document& document, const QString& path)
{
    return document.name.isEmpty() ? QFileInfo(path).completeBaseName() : document.name;
}

/// Empty for what cannot be read.
QByteArray contentsOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// In a title that tells whether there are changes, these three signs have a meaning.
QString plainTitle(QString text)
{
    return text.replace(u"[*]"_qs, u"[*][*]"_qs);
}

/// "1920 × 1080", in plain digits as the transport's.
QString sizeText(int width, int height)
{
    QLocale plain;
    plain.setNumberOptions(plain.numberOptions() | QLocale::OmitGroupSeparator);
    return StudioWindow::tr("%1 × %2").arg(plain.toString(width), plain.toString(height));
}

} // namespace

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
    , m_player(new PlaybackClock(this))
    , m_layers(new LayerPanel)
    , m_attributes(new AttributePanel(m_documents->current().editor()))
    , m_missing(new MissingPanel)
    , m_notes(new NotesPanel)
    , m_dopeSheet(new DopeSheet(*m_player))
    , m_graph(new GraphEditor(*m_player))
    , m_transport(new TransportBar)
    , m_zoom(new ZoomField)
    , m_pages(new QStackedWidget)
    , m_previousRoot(gMainWindow)
{
    gMainWindow = &m_workspace->root();
    setWindowIcon(ui::getCachedIcon(u"icons:appIcon.png"_qs));

    m_menus = new StudioMenus(*this);
    m_menus->addMenu(*m_graph->menu());
    m_menus->addMenu(*m_dopeSheet->menu());
    m_menus->addMenu(*m_layers->menu());
    addTransport();
    addPanels();
    offerMenus();
    showDefaultLayout();

    m_pages->addWidget(m_workspace.get());
    auto* center = new QWidget;
    auto* layout = new QVBoxLayout(center);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_pages, 1);
    setCentralWidget(center);
    m_notices = new NoticeStack(center);
    viewport().setFocus();
    connectPanels();
    showHistory();
}

StudioWindow::~StudioWindow()
{
    // The editors may die before the panel that edits through them; and the panels give up their
    // contents to this window, which must be a whole one.
    selectLayer(-1);
    m_documents->disconnect(this);
    m_workspace.reset();
    gMainWindow = m_previousRoot;
}

void StudioWindow::addTransport()
{
    m_transport->setClock(m_player);
    m_transport->addButtons(TransportBar::End::Left, m_menus->playback());
    m_transport->addWidget(TransportBar::End::Right, m_zoom);
    m_transport->addButtons(TransportBar::End::Right, m_menus->zooms().mid(0, 3));
    connect(m_zoom, &ZoomField::scaleEntered, this, [this](double scale) {
        viewport().zoomBy(scale / viewport().mapping().scale);
    });
}

void StudioWindow::addPanels()
{
    m_workspace->addPanel(u"layers"_qs, m_layers);
    m_workspace->addPanel(u"notDrawn"_qs, m_missing);
    m_workspace->addPanel(u"notes"_qs, m_notes);
    m_workspace->addPanel(u"viewport"_qs, m_documents);
    m_workspace->addPanel(u"attributes"_qs, m_attributes);
    m_workspace->addPanel(u"dopeSheet"_qs, m_dopeSheet);
    m_workspace->addPanel(u"graph"_qs, m_graph);
    m_workspace->addPanel(u"transport"_qs, m_transport, Workspace::Kind::Bar);
    m_menus->addPanels(m_workspace->panelActions());
}

void StudioWindow::offerMenus()
{
    const auto add = [this](QWidget& panel, auto fill) { // undo and redo below the panel's own rows
        ui::offerContextMenu(panel, [this, fill](ContextMenu& menu, QPoint point) {
            fill(menu, point);
            menu.addSeparator();
            menu.addActions(m_menus->history());
        });
    };
    ui::offerContextMenu(
        *m_documents, [this](ContextMenu& menu, QPoint) { m_menus->fillViewportMenu(menu); });
    ui::offerContextMenu(*m_layers, [this](ContextMenu& menu, QPoint) {
        menu.addActions(m_layers->menu()->actions());
    });
    ui::offerContextMenu(*m_transport, [this](ContextMenu& menu, QPoint) {
        menu.addActions(m_menus->playback());
        menu.addSeparator();
        m_transport->fillMenu(menu);
    });
    ui::offerContextMenu(
        *m_missing, [this](ContextMenu& menu, QPoint) { m_missing->fillMenu(menu); });
    add(*m_notes, [this](ContextMenu& menu, QPoint) { m_notes->fillMenu(menu); });
    add(*m_dopeSheet,
        [this](ContextMenu& menu, QPoint point) { m_dopeSheet->fillMenu(menu, point); });
    add(*m_graph, [this](ContextMenu& menu, QPoint) { m_graph->fillMenu(menu); });
    add(*m_attributes,
        [this](ContextMenu& menu, QPoint point) { m_attributes->fillMenu(menu, point); });
}

void StudioWindow::connectPanels()
{
    connect(m_player, &PlaybackClock::frameChanged, this, [this](int frame) {
        viewport().setFrame(frame);
        m_attributes->setFrame(frame);
    });
    connect(m_layers, &LayerPanel::layerSelected, this, [this](int layer) {
        page().layer = layer;
        viewport().setLayer(layer);
        m_attributes->setLayer(layer);
        m_dopeSheet->setLayer(layer);
        m_graph->setLayer(layer);
    });
    connect(m_dopeSheet, &DopeSheet::layerChosen, this, &StudioWindow::selectLayer);
    connect(m_documents, &DocumentTabs::layerClicked, this, &StudioWindow::selectLayer);
    connect(m_dopeSheet, &DopeSheet::keysChosen, m_graph, &GraphEditor::selectKeys);
    connect(m_graph, &GraphEditor::keysChosen, m_dopeSheet, &DopeSheet::selectKeys);
    connect(m_dopeSheet, &DopeSheet::failed, this, &StudioWindow::fail);
    connect(m_layers, &LayerPanel::wanted, this, [this] {
        m_workspace->setPanelOpen(u"layers"_qs, true);
    });
    connect(m_attributes, &AttributePanel::editingStarted, m_player, &PlaybackClock::pause);
    connect(m_documents, &DocumentTabs::currentChanged, this, &StudioWindow::showDocument);
    connect(m_documents, &DocumentTabs::currentEdited, this, &StudioWindow::showHistory);
    connect(m_documents, &DocumentTabs::unsavedChanged, this, &StudioWindow::showHistory);
    connect(m_documents, &DocumentTabs::restored, this, &StudioWindow::selectLayer);
    connect(m_documents, &DocumentTabs::scaleChanged, m_zoom, &ZoomField::setScale);
    connect(m_documents, &DocumentTabs::wanted, this, &StudioWindow::chooseFiles);
    connect(m_documents, &DocumentTabs::closing, this, &StudioWindow::finishEditing);
    connect(&m_documents->saver(), &FileSaver::failed, this, &StudioWindow::fail);
    const auto open = [this](const QStringList& paths, bool hasOthers) {
        openDropped(paths, hasOthers);
    };
    ui::offerFileDrops(*this, u"json"_qs, open);
    ui::offerFileDrops(*m_documents, u"json"_qs, open); // whose panel may float
    connect(m_documents, &DocumentTabs::notDrawnChanged, this, [this] {
        m_missing->setMissing(page().notDrawn());
    });
}

bool StudioWindow::openFile(const QString& path)
{
    return openFiles({path});
}

bool StudioWindow::openFiles(const QStringList& paths)
{
    const ui::OverrideCursor busy(Qt::WaitCursor);
    QStringList errors;
    for (const QString& path : paths) {
        errors.append(tryToOpen(path));
    }
    errors.removeAll(QString());
    for (const QString& error : std::as_const(errors)) { // seen last, as opening dismisses notices
        fail(error);
    }
    return errors.isEmpty();
}

/// @return one sentence for the user; empty when it is open
QString StudioWindow::tryToOpen(const QString& path)
{
    if (m_documents->showFile(path)) {
        m_notices->dismissAll();
        showViewport();
        return {};
    }
    ReadResult result = readFile(path);
    if (!result) {
        return result.error;
    }
    auto document = std::make_shared<Document>(*std::move(result.document));
    const QString title = titleOf(*document, path);
    openDocument(std::move(document), title, path);
    return {};
}

void StudioWindow::openDocument(
    std::shared_ptr<Document> document, const QString& title, const QString& path)
{
    m_notices->dismissAll();
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
    m_layers->setEditor(shown.editor());
    m_missing->setMissing(shown.notDrawn());
    m_notes->setEditor(shown.editor());
    m_dopeSheet->leaveDocument();
    const auto frames = ui::wholeFrames(document.inPoint, document.outPoint);
    m_player->setTrack(frames.first, frames.second, document.frameRate);
    m_player->seek(frame);
    m_dopeSheet->setDocument(shown.editor(), shown.dopeSheet);
    m_graph->setDocument(shown.editor());
    m_attributes->setFrame(frame);
    m_zoom->setScale(shown.viewport().mapping().scale);
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
    m_workspace->setDefaultLayout(contentsOf(u"style:layout.json"_qs));
    QString error;
    const bool isUsable = m_workspace->reset(&error);
    resize(kWindowSize);
    if (!isUsable) {
        const QString sentence = tr("The default layout cannot be used: %1.").arg(error);
        QMetaObject::invokeMethod(
            this, [this, sentence] { fail(sentence); }, Qt::QueuedConnection); // once we are heard
    }
}

void StudioWindow::keepLayoutIn(const QString& path)
{
    const auto loop = u"loop"_qs;
    m_layout = new LayoutFile(path, *m_workspace, *this);
    connect(m_layout, &LayoutFile::failed, this, &StudioWindow::fail);
    m_layout->restore();
    m_player->setLooping(m_layout->value(loop).toBool(m_player->isLooping()));
    connect(m_player, &PlaybackClock::loopingChanged, m_layout, [this, loop](bool looping) {
        m_layout->setValue(loop, looping);
    });
}

bool StudioWindow::keepUnsavedIn(const QString& folder)
{
    m_unsaved = std::make_unique<UnsavedKeeper>(folder, *m_documents, this);
    connect(m_unsaved.get(), &UnsavedKeeper::failed, this, &StudioWindow::fail);
    QStringList titles;
    const auto canBeRead = [this](const QByteArray& bytes) { return page().canBeRead(bytes); };
    for (const UnsavedDocument& unsaved : m_unsaved->recovery().take(canBeRead)) {
        ReadResult result = read(unsaved.contents.toStdString());
        openDocument(
            std::make_shared<Document>(*std::move(result.document)), unsaved.title, unsaved.path);
        page().setUnsaved(unsaved.fingerprint);
        titles.append(unsaved.title);
    }
    m_unsaved->recovery().setTakenOver();
    for (const QString& left : m_unsaved->recovery().unreadable()) {
        fail(tr("Unsaved changes in “%1” cannot be read. They stay there.")
                 .arg(QDir::toNativeSeparators(left)));
    }
    if (!titles.isEmpty()) {
        const QString sentence =
            tr("The studio had to end before changes were saved. They are here again.");
        const auto tell = [this, sentence] {
            m_notices->add(sentence, NoticeStack::Kind::Information);
        };
        QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection); // behind what opens now
    }
    return !titles.isEmpty();
}

void StudioWindow::putAway()
{
    finishEditing();
    if (m_layout) {
        m_layout->save();
    }
    m_documents->finishEditing();
    const QString error = m_unsaved ? m_unsaved->keep() : QString();
    if (!error.isEmpty()) {
        fail(error);
    }
}

void StudioWindow::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && !focusWidget()) {
        viewport().setFocus(Qt::ActiveWindowFocusReason);
    }
}

void StudioWindow::closeEvent(QCloseEvent* event)
{
    finishEditing();
    if (!m_documents->mayLeave(tr("Quit the studio?"))) {
        event->ignore();
        return;
    }
    if (m_layout) {
        m_layout->save();
    }
    if (m_unsaved) {
        m_unsaved->forget();
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
    m_menus->setGalleryShown(shown);
    if (shown) {
        m_player->pause();
    }
    showHistory();
}

void StudioWindow::openDropped(const QStringList& paths, bool hasOthers)
{
    openFiles(paths);
    if (paths.isEmpty()) {
        fail(tr("Drop Lottie files, with the extension .json, from this computer."));
    } else if (hasOthers) {
        fail(tr("Only what has the extension .json and is on this computer was opened."));
    }
}

/// What is being typed counts: it is what the user sees.
void StudioWindow::undo()
{
    finishEditing();
    editor().undo();
}

void StudioWindow::redo()
{
    finishEditing();
    editor().redo();
}

bool StudioWindow::save()
{
    finishEditing();
    return document() && m_documents->saver().save(page());
}

bool StudioWindow::saveAs()
{
    finishEditing();
    return document() && m_documents->saver().saveAs(page());
}

void StudioWindow::finishEditing()
{
    m_attributes->finishEditing();
    m_notes->finishEditing();
    m_dopeSheet->finishEditing();
    m_graph->finishEditing();
}

void StudioWindow::showHistory()
{
    const DocumentEditor& history = page().editor();
    m_menus->showHistory(history);
    if (const Document* shown = document()) {
        const QString size = sizeText(shown->width, shown->height);
        setWindowTitle(tr("%1 (%2)").arg(plainTitle(page().title()), size) + u"[*]"_qs);
    }
    setWindowModified(history.isModified());
}

void StudioWindow::chooseFiles()
{
    openFiles(QFileDialog::getOpenFileNames(
        this, tr("Open"), {}, tr("Lottie animations (*.json);;All files (*)")));
}

void StudioWindow::fail(const QString& sentence)
{
    m_notices->add(sentence);
    Q_EMIT failed(sentence);
}

} // namespace studio
