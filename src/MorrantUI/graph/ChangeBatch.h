// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/graph/GeneralGraphView.h>

#include <QPointer>
#include <QtGlobal>

namespace ui {

/// While one lives, a view's points and handles are moved without anybody being told; the end of
/// the outermost one tells of each that has changed, once. The host then sees all of them where
/// they are, and may delete whatever it wants to: Qt is not in the middle of moving it.
///
/// The view itself may be gone after the end.
class ChangeBatch
{
public:
    explicit ChangeBatch(GeneralGraphView* view)
        : m_view(view)
    {
        if (m_view) {
            m_view->openBatch();
        }
    }
    ~ChangeBatch()
    {
        if (m_view) {
            m_view->closeBatch();
        }
    }
    Q_DISABLE_COPY_MOVE(ChangeBatch)

private:
    QPointer<GeneralGraphView> m_view;
};

} // namespace ui
