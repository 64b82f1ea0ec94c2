// SPDX-License-Identifier: Apache-2.0
#pragma once

class QMenu;
class TabItem;

/// The entries of a tab's context menu. They end with the tab and do nothing without its header.
namespace ui::tabs {

/// Close this tab, the others, those before or behind it.
void fillClosableMenu(QMenu& menu, TabItem& tab);

/// Rename and delete.
void fillRenamableMenu(QMenu& menu, TabItem& tab);

} // namespace ui::tabs
