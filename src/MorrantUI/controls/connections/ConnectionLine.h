#pragma once

#include "MorrantUI/controls/connections/ConnectionOverlay.h"

#include <QPointer>

#include <vector>

/// The line of a connection over all windows of the application: an overlay in each window that it
/// crosses, made when it first does.
class ConnectionLine
{
public:
    ConnectionLine() = default;
    ~ConnectionLine();
    Q_DISABLE_COPY_MOVE(ConnectionLine)

    void show(const ConnectionPicture& picture);
    const ConnectionPicture& picture() const { return m_picture; }

private:
    void coverWindows();

    ConnectionPicture m_picture;
    std::vector<QPointer<ConnectionOverlay>> m_overlays;
};
