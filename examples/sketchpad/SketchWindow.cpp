// SPDX-License-Identifier: Apache-2.0
#include "SketchWindow.h"

#include "RosettePanel.h"
#include "RosetteView.h"
#include <MorrantUI/docking/DockableGroup.h>
#include <MorrantUI/docking/saving/savedlayouts.h>
#include <MorrantUI/menus/ModalDialog.h>
#include <MorrantUI/menus/dialogs.h>
#include <MorrantUI/menus/hostmenus.h>
#include <MorrantUI/platform/native.h>
#include <MorrantUI/platform/notifications.h>
#include <MorrantUI/theme/colors.h>

#include <QCloseEvent>
#include <QFileDialog>
#include <QMenu>
#include <QMenuBar>
#include <QUndoView>

namespace {

const QString kLayoutKey = QStringLiteral("layout");
const QString kGeometryKey = QStringLiteral("geometry");

} // namespace

SketchWindow::SketchWindow()
    : m_document({.name = tr("Rosette"), .color = ui::colorQt(QStringLiteral("Accent1"))})
    , m_root(std::make_unique<DockableGroup>())
{
    morrant::native::setDarkTitleBar(this);
    addPanels();
    addMenus();
    resize(900, 600);
    // [restore]
    restoreGeometry(m_settings.value(kGeometryKey).toByteArray());
    ui::restoreLayout(m_settings.value(kLayoutKey).toByteArray()); // all panels are there
    // [restore]

    const auto showTitle = [this] { setWindowTitle(m_document.rosette().name); };
    connect(&m_document, &Document::changed, this, showTitle);
    showTitle();
}

SketchWindow::~SketchWindow() = default;

DockableWindow* SketchWindow::addPanel(const QString& id, const QString& title, QWidget* content)
{
    auto* panel = new DockableWindow(content);
    panel->setObjectName(id);
    panel->setText(title);
    panel->setAttribute(Qt::WA_DeleteOnClose, false); // closed, it can be shown again
    return panel;
}

void SketchWindow::addPanels()
{
    // [window]
    m_root->setAttribute(Qt::WA_DeleteOnClose, false);
    gMainWindow = m_root.get(); // a std::unique_ptr: it goes before the window around it
    setCentralWidget(m_root.get());
    // [window]

    m_view = new RosetteView(m_document);
    m_panel = new RosettePanel(m_document);
    DockableWindow* drawing = addPanel(QStringLiteral("drawing"), tr("Drawing"), m_view);
    DockableWindow* attributes = addPanel(QStringLiteral("attributes"), tr("Attributes"), m_panel);
    DockableWindow* history =
        addPanel(QStringLiteral("history"), tr("History"), new QUndoView(&m_document.history()));
    m_root->dockInArea(drawing, DockableArea::Left);
    drawing->dockInArea(attributes, DockableArea::Right);
    attributes->dockInArea(history, DockableArea::Bottom);
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
    redo->setShortcut(QKeySequence::Redo);
    edit->addActions({undo, redo});

    QMenu* panels = menuBar()->addMenu(tr("&Panels"));
    const QByteArray standard = ui::saveLayout();
    for (DockableWindow* panel : ui::allPanels()) {
        panels->addAction(panel->getText(), panel, [panel, standard] {
            ui::dockAsInLayout(panel, standard); // nothing for one that is docked
        });
    }
    ui::shareShortcuts(*menuBar()); // in floating panels too
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
    event->setAccepted(m_root->mayClose());
    if (event->isAccepted()) {
        m_settings.setValue(kGeometryKey, saveGeometry());
        m_settings.setValue(kLayoutKey, ui::saveLayout());
    }
    // [close]
}
