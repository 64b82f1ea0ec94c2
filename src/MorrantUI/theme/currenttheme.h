// SPDX-License-Identifier: Apache-2.0
#pragma once

class VisualDesignBase;

namespace ui {

/// The theme constructed last; null only as long as none was ever constructed. The pointer is
/// deliberately never cleared: the host keeps its theme alive as long as the application.
VisualDesignBase* currentTheme();

} // namespace ui
