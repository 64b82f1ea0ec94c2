// SPDX-License-Identifier: Apache-2.0
#include "SketchWindow.h"

#include "RosettePanel.h"
#include "RosetteView.h"
#include <MorrantUI/docking/DockableGroup.h>
#include <MorrantUI/docking/panelnavigation.h>
#include <MorrantUI/docking/saving/LayoutFile.h>
#include <MorrantUI/docking/saving/Workspace.h>
#include <MorrantUI/menus/ModalDialog.h>
#include <MorrantUI/menus/NoticeStack.h>
#include <MorrantUI/menus/dialogs.h>
#include <MorrantUI/menus/hostmenus.h>
#include <MorrantUI/platform/native.h>
#include <MorrantUI/platform/notifications.h>
#include <MorrantUI/theme/colors.h>
#include <MorrantUI/theme/events.h>

#include <QCloseEvent>
#include <QFileDialog>
#include <QMenu>
#include <QMenuBar>
#include <QUndoView>

SketchWindow::SketchWindow(const QString& layoutFile)
    : m_document({.name = tr("Rosette"), .color = ui::colorQt(QStringLiteral("Accent1"))})
    , m_panels(std::make_unique<Workspace>())
{
    morrant::native::setDarkTitleBar(this);
    addPanels();
    addMenus();
    resize(900, 600);
    // [restore]
    m_layout = new LayoutFile(layoutFile, *m_panels, *this); // a path of yours
    auto* notices = new NoticeStack(m_panels.get());
    connect(m_layout, &LayoutFile::failed, notices, [notices](const QString& sentence) {
        notices->add(sentence);
    });
    m_layout->restore();
    // [restore]

    const auto showTitle = [this] { setWindowTitle(m_document.rosette().name); };
    connect(&m_document, &Document::changed, this, showTitle);
    showTitle();
}

SketchWindow::~SketchWindow() = default;

void SketchWindow::addPanel(const QString& id, const QString& title, QWidget* content)
{
    content->setWindowTitle(title);
    m_panels->addPanel(id, content);
    m_panels->setPanelOpen(id, true);
}

void SketchWindow::addPanels()
{
    // [window]
    gMainWindow = &m_panels->root(); // a std::unique_ptr: it goes before the window around it
    setCentralWidget(m_panels.get());

    m_view = new RosetteView(m_document);
    m_panel = new RosettePanel(m_document);
    addPanel(QStringLiteral("drawing"), tr("Drawing"), m_view);
    addPanel(QStringLiteral("attributes"), tr("Attributes"), m_panel);
    addPanel(QStringLiteral("history"), tr("History"), new QUndoView(&m_document.history()));
    m_panels->windowOf(QStringLiteral("attributes"))
        ->dockInArea(m_panels->windowOf(QStringLiteral("history")), DockableArea::Bottom);
    m_panels->setDefaultLayout(m_panels->layout());
    // [window]
}

void SketchWindow::addMenus()
{
    QMenu* file = menuBar()->addMenu(tr("&File"));
    file->addAction(tr("Re&name…"), QKeySequence(Qt::Key_F2), this, &SketchWindow::rename);
    file->addAction(tr("&Export…"), QKeySequence(tr("Ctrl+E")), this, &SketchWindow::chooseExport);
    file->addAction(tr("&Quit"), QKeySequence::Quit, this, &QWidget::close);

    QMenu* edit = menuBar()->addMenu(tr("&Edit"));
    QAction* undo = m_document.history().createUndoAction(this, tr("&Undo"));
    undo->setShortcut(QKeySequence::Undo);
    QAction* redo = m_document.history().createRedoAction(this, tr("&Redo"));
    redo->setShortcuts(ui::redoKeys());
    edit->addActions({undo, redo});

    // [panels]
    QMenu* panels = menuBar()->addMenu(tr("&Panels"));
    panels->addActions(m_panels->panelActions());
    panels->addSeparator();
    panels->addAction(tr("&Reset"), this, [this] { m_panels->reset(); });
    // [panels]
    ui::shareShortcuts(*menuBar()); // in floating panels too
    ui::addPanelNavigation(this);   // F6 from the menu bar, too
}

void SketchWindow::rename()
{
    // [dialog]
    Rosette rosette = m_document.rosette();
    const auto name = ui::getStringInput(tr("Rename"), tr("Name"), rosette.name, this);
    if (name) {
        rosette.name = name->trimmed();
        m_document.preview(rosette);
        m_document.finishStep(tr("Rename"));
    }
    // [dialog]
}

void SketchWindow::chooseExport()
{
    const QString path = QFileDialog::getSaveFileName(
        this, tr("Export"), m_document.rosette().name + QStringLiteral(".png"), tr("PNG (*.png)"));
    if (!path.isEmpty()) {
        exportTo(path);
    }
}

void SketchWindow::exportTo(const QString& path)
{
    if (!m_view->grab().save(path, "PNG")) {
        ModalDialog::getChoice(
            tr("Not exported"),
            tr("%1 cannot be written.").arg(path),
            QDialogButtonBox::Close,
            QDialogButtonBox::Close,
            this);
        return;
    }
    // [notification]
    // The texts go into XML, where a name of the user's may not be a tag.
    sendNotification(
        tr("Export complete").toStdString(),
        m_document.rosette().name.toHtmlEscaped().toStdString());
    // [notification]
}

void SketchWindow::closeEvent(QCloseEvent* event)
{
    // [close]
    event->setAccepted(m_panels->root().mayClose());
    if (event->isAccepted()) {
        m_layout->save(); // the last change may be less than half a second old
    }
    // [close]
}
