// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QSet>
#include <QString>

class QModelIndex;
class QTreeView;

/// What a tree has open, selected and current, by the names of its rows, so that it is found again
/// in a model that was filled anew.
class TreeMemory
{
public:
    /// Remembers what can be seen: rows below a closed one are not visited.
    /// @param keyRole the role whose value names a row; of several siblings with the same name
    ///     the first, the second and so on count as the same
    void keep(const QTreeView& tree, int keyRole);

    enum class Part
    {
        All,
        OpenRows ///< the host has chosen a row itself
    };

    /// Opens, selects and makes current what there still is of it, and scrolls to where it was.
    void restore(QTreeView& tree, int keyRole, Part part = Part::All);

private:
    QSet<QString> m_open;
    QSet<QString> m_selected;
    QString m_current;
    QString m_top; ///< the row at the upper edge
    bool m_isEmpty = true;
};
