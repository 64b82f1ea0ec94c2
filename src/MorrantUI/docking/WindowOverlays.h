// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPointer>

class DockableWindow;
class DropIndicatorMain;
class FlashFrame;
class QColor;
class QPropertyAnimation;
class WindowDimmer;

namespace ui::docking {

/// What lies over the contents of a dockable window: drop zones, a sheet that dims it, the line
/// that marks the focus. All are the window's children.
class WindowOverlays
{
public:
    explicit WindowOverlays(DockableWindow& window);

    DropIndicatorMain& dropIndicator() const { return *m_dropIndicator; }

    /// After the window has got another size.
    void fit();
    /// After the window has got another child.
    void raiseDimmer();

    void setDim(bool dim);
    bool isDim() const { return m_dim; }

    void setFocusFrameVisible(bool visible);
    bool isFocusFrameVisible() const;
    /// Invalid colours are ignored.
    void flashFocusFrame(const QColor& color);
    /// The same, and a focus frame that is hidden shows as long as it takes.
    void callAttention();

private:
    DockableWindow& m_window; ///< owns this
    DropIndicatorMain* m_dropIndicator;
    WindowDimmer* m_dimmer;
    FlashFrame* m_focusFrame;
    QPointer<QPropertyAnimation> m_flash;
    bool m_dim = false;
    bool m_lent = false; ///< the focus frame shows for its flash only
};

} // namespace ui::docking
