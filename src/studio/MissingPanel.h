// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Panel.h"

#include <QStringList>

#include <vector>

class ContextMenu;
class QStackedWidget;
class QTreeWidget;
class QTreeWidgetItem;

namespace studio {

struct MissingFeature;

struct MissingOfLayer
{
    QString layer;
    QStringList features;

    bool operator==(const MissingOfLayer&) const = default;
};

/// Gathers features by layer, twins of one name apart, both in order of first appearance.
std::vector<MissingOfLayer> byLayer(const std::vector<MissingFeature>& missing);

/// What the document asks for and the viewport does not draw.
class MissingPanel : public Panel
{
    Q_OBJECT

public:
    explicit MissingPanel(QWidget* parent = nullptr);

    void setMissing(const std::vector<MissingFeature>& missing);
    /// Adds the rows of its context menu, which copy the list as text.
    void fillMenu(ContextMenu& menu);

private:
    QString textOf(const QList<QTreeWidgetItem*>& rows) const;

    QLabel* m_hint;
    QTreeWidget* m_tree;
    QStackedWidget* m_pages;
};

} // namespace studio
