// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/menus/TreeView.h>

/// A list in the theme: a tree of one level, which does all that a TreeView does with its rows.
class MORRANT_UI_EXPORT ListView : public TreeView
{
    Q_OBJECT

public:
    explicit ListView(QWidget* parent = nullptr);
    ~ListView() override;
};
