// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/docking/saving/savedlayouts.h>
#include <MorrantUI/morrantui_export.h>

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace ui {

/// Arrangements under names that the user gives them, each a file of a folder. Names that differ
/// in the case of a letter are two, on every system.
class MORRANT_UI_EXPORT NamedLayouts
{
public:
    /// @param folder which is made when a layout is first saved
    explicit NamedLayouts(const QString& folder);

    /// In alphabetical order, as people count them.
    QStringList names() const;

    /// Saves the arrangement as it is, in place of one that has the name. As a whole or not at all.
    /// @return false for a name without any visible character or of more than about 80, and of
    ///     capitals other than A to Z of more than 40, for what is no layout, as without
    ///     gMainWindow, and when the file cannot be written; but for the first, which is one line
    ///     in the log
    bool save(const QString& name) const;
    /// The same with a layout that there is, such as Workspace::layout().
    bool save(const QString& name, const QByteArray& layout) const;
    /// The layout as it was saved, for Workspace::setLayout(); empty when there is no such layout.
    QByteArray layout(const QString& name) const;
    /// As restoreLayout(); false when there is no such layout.
    bool restore(const QString& name, const PanelForName& panelForName) const;
    bool remove(const QString& name) const; ///< whether there was one

private:
    QString path(const QString& name) const;

    QString m_folder;
};

} // namespace ui
