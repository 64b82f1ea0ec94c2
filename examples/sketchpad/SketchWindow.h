// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Document.h"

#include <QMainWindow>

#include <memory>

class LayoutFile;
class RosettePanel;
class RosetteView;
class Workspace;

/// The window of the sketchpad: drawing, attributes and history, which the user arranges as he
/// likes. The arrangement is kept between runs.
class SketchWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// @param layoutFile where the arrangement is kept
    explicit SketchWindow(const QString& layoutFile);
    ~SketchWindow() override;

    Document& document() { return m_document; }
    RosettePanel& panel() { return *m_panel; }
    RosetteView& view() { return *m_view; }

    /// Asks for another name.
    void rename();
    /// Writes the drawing as a PNG file and notifies the user, who may be in another program.
    void exportTo(const QString& path);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void addPanel(const QString& id, const QString& title, QWidget* content);
    void addPanels();
    void addMenus();
    void chooseExport();

    Document m_document;
    std::unique_ptr<Workspace> m_panels; ///< goes before the window around it
    LayoutFile* m_layout = nullptr;
    RosettePanel* m_panel = nullptr;
    RosetteView* m_view = nullptr;
};
