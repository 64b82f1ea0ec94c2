// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QByteArray>
#include <QList>
#include <QString>

#include <functional>

class DockableWindow;

/// The arrangement of panels, kept between runs.
///
/// A panel goes by its object name, which the host gives it; panels without one are not saved. The
/// text is JSON with a version, in logical pixels: the tree below gMainWindow with sizes and the
/// tab in front, the windows that float with place, screen and state, headers that are hidden, and
/// the panels that are kept but closed. The window around gMainWindow is the host's own affair
/// (QWidget::saveGeometry()).
namespace ui {

/// The window of a panel by its name: one that there is, docked or not, or a new one; null to leave
/// the panel out.
using PanelForName = std::function<DockableWindow*(const QString& name)>;

/// Every panel below or above gMainWindow, those that are closed but kept included, in the order of
/// the tree and then as they came. Without groups, and without what has closed for good.
MORRANT_UI_EXPORT QList<DockableWindow*> allPanels();
/// The first of allPanels() with this name; null for none.
MORRANT_UI_EXPORT DockableWindow* panelNamed(const QString& name);
/// The windows that float, groups among them, in the order in which they came.
MORRANT_UI_EXPORT QList<DockableWindow*> floatingWindows();

/// The arrangement as it is; empty without gMainWindow. One that was restored before gMainWindow
/// was shown is given back as it was.
MORRANT_UI_EXPORT QByteArray saveLayout();

/// Arranges all panels as they were saved, in one step and with one layoutChanged(). Each panel of
/// the layout is asked for once; what cannot be had is left out, and the others take its room.
/// Panels that there are and that the layout does not mention come at the end of gMainWindow, those
/// that it has as closed are closed. A floating window whose screen is gone comes to the closest
/// one, whole. Before gMainWindow is shown the sizes count as proportions; they are exact from then
/// on.
///
/// What a content restores when it is shown or hidden is arranged when control returns to the event
/// loop.
/// @param error if not null and this fails: what is wrong, the rest of a translated sentence
/// @return false, and nothing is changed, for what is no layout, without gMainWindow and for an
///     empty function
MORRANT_UI_EXPORT bool restoreLayout(
    const QByteArray& json, const PanelForName& panelForName, QString* error = nullptr);
/// The same with the panels that there are.
MORRANT_UI_EXPORT bool restoreLayout(const QByteArray& json, QString* error = nullptr);

/// Docks a panel where it stands in a saved layout: beside those of its neighbours that are docked,
/// or else at the end of gMainWindow. For a panel that was closed and is wanted again. Null and
/// what is docked already are ignored.
MORRANT_UI_EXPORT void dockAsInLayout(DockableWindow* panel, const QByteArray& json);

} // namespace ui
