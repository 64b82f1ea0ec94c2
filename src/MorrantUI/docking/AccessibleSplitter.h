// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "MorrantUI/controls/accessibility.h"

class QSplitter;
class QSplitterHandle;

/// Any splitter, Qt's own too, as assistive tools see it.
namespace ui {

/// The parts as they lie, with the handles between them.
class AccessibleSplitter : public AccessibleParts
{
public:
    explicit AccessibleSplitter(QSplitter* splitter);

protected:
    QWidgetList parts() const override;
};

/// A handle: a splitter with a value, the pixels from the near end of the whole, which can be set
/// unless the layout is locked. Named by what lies on both sides.
class AccessibleSplitHandle : public AccessibleNumberControl
{
public:
    explicit AccessibleSplitHandle(QSplitterHandle* handle);

    QString text(QAccessible::Text kind) const override;
};

} // namespace ui
