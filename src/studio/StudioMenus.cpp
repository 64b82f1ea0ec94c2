// SPDX-License-Identifier: Apache-2.0
#include "StudioMenus.h"

#include "DocumentTabs.h"
#include "StudioWindow.h"
#include "Viewport.h"
#include "commands.h"
#include "editing/DocumentEditor.h"
#include <MorrantUI/docking/saving/Workspace.h>
#include <MorrantUI/menus/CommandPalette.h>
#include <MorrantUI/menus/ContextMenu.h>
#include <MorrantUI/menus/NoticeStack.h>
#include <MorrantUI/menus/hostmenus.h>
#include <MorrantUI/theme/events.h>
#include <MorrantUI/timeline/TransportActions.h>

#include <QActionGroup>
#include <QFileInfo>
#include <QMenuBar>

#include <utility>

namespace studio {

namespace {

constexpr double kZoomStep = 1.25;
constexpr int kOwnMenus = 2; ///< before those of the panels: File and Edit

} // namespace

StudioMenus::StudioMenus(StudioWindow& window)
    : QObject(&window)
    , m_window(window)
    , m_palette(new CommandPalette(window.menuBar(), &window))
    , m_playback(new TransportActions(this))
{
    buildFileMenu();
    buildEditMenu();
    buildPlaybackMenu();
    buildViewMenu();
    ui::shareShortcuts(*window.menuBar()); // with floating panels
}

void StudioMenus::addPanels(const QList<QAction*>& panels)
{
    m_panels->addActions(panels);
}

void StudioMenus::addMenu(QMenu& menu)
{
    QMenuBar& bar = *m_window.menuBar();
    bar.insertMenu(bar.actions().at(kOwnMenus), &menu);
    m_editorActions.append(menu.menuAction());
}

void StudioMenus::buildFileMenu()
{
    QMenu& menu = *m_window.menuBar()->addMenu(tr("&File"));
    addCommands(menu, {{tr("&Open…"), u"open"_qs, {QKeySequence::Open}, [this] {
                            m_window.chooseFiles();
                        }}});
    QMenu* samples = menu.addMenu(tr("Open &Sample"));
    for (const QString& path : samplePaths()) {
        samples->addAction(
            QFileInfo(path).completeBaseName(), this, [this, path] { m_window.openFile(path); });
    }
    menu.addSeparator();
    m_editorActions += addCommands(
        menu,
        {
            {tr("&Save"), u"save"_qs, {QKeySequence::Save}, [this] { m_window.save(); }},
            {tr("Save &As…"),
             {},
             {Qt::CTRL | Qt::SHIFT | Qt::Key_S},
             [this] { m_window.saveAs(); }},
        });
    menu.addSeparator();
    const QList<QAction*> close =
        addCommands(menu, {{tr("&Close"), {}, {QKeySequence::Close}, [this] {
                                m_window.documents().closeCurrent();
                            }}});
    m_close = close.first();
    addCommands(menu, {{tr("&Quit"), {}, {QKeySequence::Quit}, [this] { m_window.close(); }}});
}

void StudioMenus::buildEditMenu()
{
    m_history = addCommands(
        *m_window.menuBar()->addMenu(tr("&Edit")),
        {
            {tr("&Undo"), u"undo"_qs, {QKeySequence::Undo}, [this] { m_window.undo(); }},
            {tr("&Redo"), u"redo"_qs, ui::redoKeys(), [this] { m_window.redo(); }},
        });
    m_history.at(0)->setObjectName(u"undo"_qs);
    m_history.at(1)->setObjectName(u"redo"_qs);
}

void StudioMenus::buildPlaybackMenu()
{
    m_playback->setClock(&m_window.player());
    m_window.menuBar()->addMenu(tr("&Playback"))->addActions(playback());
    m_editorActions += playback();
}

QList<QAction*> StudioMenus::playback() const
{
    return m_playback->actions();
}

void StudioMenus::buildViewMenu()
{
    QMenu& menu = *m_window.menuBar()->addMenu(tr("&View"));
    const auto viewport = [this]() -> Viewport& { return m_window.viewport(); };
    m_zooms = addCommands(
        menu,
        {
            {tr("Zoom &Out"),
             u"zoomOut"_qs,
             {Qt::Key_Minus},
             [viewport] { viewport().zoomBy(1.0 / kZoomStep); }},
            {tr("Zoom &In"),
             u"zoomIn"_qs,
             {Qt::Key_Plus, Qt::Key_Equal},
             [viewport] { viewport().zoomBy(kZoomStep); }},
            {tr("&Fit"), u"fit"_qs, {Qt::Key_F}, [viewport] { viewport().fit(); }},
            {tr("&Actual Size"), {}, {Qt::Key_1}, [viewport] { viewport().showActualSize(); }},
        });
    addBackdrops(*menu.addMenu(tr("&Backdrop")));
    m_editorActions += menu.actions();
    menu.addSeparator();
    m_panels = menu.addMenu(tr("&Panels"));
    m_editorActions.append(m_panels->menuAction());
    menu.addActions(m_window.documents().turnActions());
    m_editorActions += m_window.documents().turnActions();
    menu.addSeparator();
    const QList<QAction*> others = addCommands(
        menu,
        {
            {tr("&Reset Layout"), {}, {}, [this] { m_window.workspace().reset(); }},
            {tr("Control &Gallery"),
             {},
             {Qt::CTRL | Qt::Key_G},
             [this] { m_window.setGalleryShown(!m_isGalleryShown); }},
            {tr("&Dismiss Notice"),
             {},
             {Qt::Key_Escape},
             [this] { m_window.notices().dismissLatest(); }},
            {tr("&Command Palette…"),
             u"search"_qs,
             {Qt::CTRL | Qt::SHIFT | Qt::Key_P},
             [this] { m_palette->openOver(m_window); }},
        });
    m_galleryAction = others.at(1);
    m_galleryAction->setCheckable(true);
    m_palette->leaveOut(others.at(3));
}

void StudioMenus::addBackdrops(QMenu& menu)
{
    auto* group = new QActionGroup(this);
    const std::pair<CanvasBackdrop, QString> choices[] = {
        {CanvasBackdrop::Chequer, tr("&Chequer")},
        {CanvasBackdrop::Light, tr("&Light")},
        {CanvasBackdrop::Dark, tr("&Dark")},
    };
    for (const auto& [backdrop, name] : choices) {
        QAction* action = group->addAction(name);
        action->setCheckable(true);
        action->setChecked(backdrop == CanvasBackdrop::Chequer);
        connect(action, &QAction::triggered, this, [this, chosen = backdrop] {
            m_window.documents().setBackdrop(chosen);
        });
    }
    m_backdrops = group->actions();
    menu.addActions(m_backdrops);
}

void StudioMenus::fillViewportMenu(ContextMenu& menu) const
{
    menu.addActions(m_zooms);
    menu.addSeparator();
    auto* backdrops = new ContextMenu(&menu);
    backdrops->setTitle(tr("&Backdrop"));
    backdrops->addActions(m_backdrops);
    menu.addMenu(backdrops);
}

void StudioMenus::setGalleryShown(bool shown)
{
    m_isGalleryShown = shown;
    m_galleryAction->setChecked(shown);
    for (QAction* action : std::as_const(m_editorActions)) {
        action->setEnabled(!shown);
    }
}

void StudioMenus::showHistory(const DocumentEditor& editor)
{
    m_close->setEnabled(!m_isGalleryShown && m_window.documents().count() > 1);
    m_history.at(0)->setEnabled(!m_isGalleryShown && editor.canUndo());
    m_history.at(0)->setText(tr("&Undo %1").arg(ui::menuText(editor.undoText())).trimmed());
    m_history.at(1)->setEnabled(!m_isGalleryShown && editor.canRedo());
    m_history.at(1)->setText(tr("&Redo %1").arg(ui::menuText(editor.redoText())).trimmed());
}

} // namespace studio
