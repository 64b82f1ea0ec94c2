#include "MorrantUI/controls/connections/ConnectionLine.h"

#include "MorrantUI/controls/connections/connectiongeometry.h"

#include <QApplication>

#include <algorithm>

namespace {

constexpr double kMargin = 16.0; ///< logical pixels, more than anything is drawn beside the line

} // namespace

ConnectionLine::~ConnectionLine()
{
    for (const auto& overlay : m_overlays) {
        if (overlay != nullptr && QCoreApplication::instance() != nullptr) {
            overlay->hide();
            overlay->deleteLater(); // it may be in one of its own events
        }
    }
}

void ConnectionLine::show(const ConnectionPicture& picture)
{
    m_picture = picture;
    coverWindows();
    for (const auto& overlay : m_overlays) {
        if (overlay != nullptr) {
            overlay->setPicture(picture);
        }
    }
}

void ConnectionLine::coverWindows()
{
    const ui::ConnectionCurve curve{m_picture.start, m_picture.end};
    const QRect reach = curve.path().boundingRect().toAlignedRect().marginsAdded(
        QMargins() + static_cast<int>(kMargin));
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        const bool isCovered =
            std::any_of(m_overlays.begin(), m_overlays.end(), [window](const auto& overlay) {
                return overlay != nullptr && overlay->parentWidget() == window;
            });
        if (!isCovered && ConnectionOverlay::fits(*window) && reach.intersects(window->geometry()))
        {
            m_overlays.emplace_back(new ConnectionOverlay(window)); // the window owns it
        }
    }
}
