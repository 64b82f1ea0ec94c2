// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/theme/Widget.h>

class ContextMenu;
class QAction;
class QHBoxLayout;
class QLabel;
class NumericField;
class PendingValue;
class TimeCodeField;

namespace studio {

class FrameSlider;
class Player;

/// The bar below the viewport: buttons, a slider over the frames, and the read-outs of a player.
class TransportBar : public Widget
{
    Q_OBJECT

public:
    /// @param player must outlive the bar
    /// @param playback buttons at the left of the slider
    /// @param view buttons at the right end, beside the zoom
    TransportBar(
        Player& player,
        const QList<QAction*>& playback,
        const QList<QAction*>& view,
        QWidget* parent = nullptr);

    /// @param scale logical pixels a composition pixel
    void setZoom(double scale);

    /// Adds the rows of the context menu that are about the time code.
    void fillMenu(ContextMenu& menu);

Q_SIGNALS:
    /// The user has entered a zoom, or scrubs it.
    void zoomEntered(double scale);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void addButtons(const QList<QAction*>& actions);
    QLabel* addReadout(const QString& hint, const QString& widest);
    void connectFields();
    NumericField* addField(const QString& hint, const QString& widest);
    void scrub(int frame);
    void showTrack();
    void showFrame();

    Player& m_player;
    QHBoxLayout* m_layout;
    FrameSlider* m_slider;
    TimeCodeField* m_code;
    QLabel* m_time = nullptr;
    NumericField* m_frame = nullptr;
    PendingValue* m_shownFrame = nullptr;
    QLabel* m_rate = nullptr;
    QLabel* m_dropped = nullptr;
    NumericField* m_zoom = nullptr;
    PendingValue* m_shownZoom = nullptr;
};

} // namespace studio
