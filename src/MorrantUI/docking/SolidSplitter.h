// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QSplitter>

/// A splitter whose handles are solid bars that light up under the pointer.
///
/// Always laid out from left to right, whatever the application's direction: the first child is the
/// left one. Children are not collapsible. A double click on a handle makes its neighbours equal.
/// While ui::isLayoutLocked() handles stay where they are.
class MORRANT_UI_EXPORT SolidSplitter : public QSplitter
{
    Q_OBJECT

public:
    explicit SolidSplitter(QWidget* parent = nullptr);
    ~SolidSplitter() override;

protected:
    QSplitterHandle* createHandle() override;
};
