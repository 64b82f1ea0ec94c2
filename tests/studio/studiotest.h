// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "StudioWindow.h"
#include "Viewport.h"
#include "editing/DocumentEditor.h"
#include "lottietexts.h"
#include "support/TestCase.h"
#include "support/themes.h"
#include <MorrantUI/docking/saving/Workspace.h>
#include <MorrantUI/menus/NoticeStack.h>
#include <MorrantUI/theme/VisualDesignDark.h>
#include <MorrantUI/timeline/PlaybackClock.h>

namespace studio::test {

/// Base of the tests of windows, which have the studio's look.
class StudioTest : public ui::test::TestCase
{
    Q_OBJECT

protected:
    Q_SLOT void initTestCase()
    {
        auto& theme = ui::test::makeTheme<VisualDesignDark>(ui::test::assetsPath());
        theme.applyAppStyle();
        theme.setUsePointerLock(false); // a fake pointer cannot be pinned
    }
};

using ui::test::showActive;

/// Closed windows are deleted, and layouts done, once control returns to the event loop.
inline void settle()
{
    for (int round = 0; round < 3; ++round) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
}

} // namespace studio::test
