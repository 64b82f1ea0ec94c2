// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/menus/ListView.h"

ListView::ListView(QWidget* parent)
    : TreeView(parent)
{
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setIndentation(0);
}

ListView::~ListView() = default;
