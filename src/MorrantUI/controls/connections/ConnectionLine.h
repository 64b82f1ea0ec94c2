// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "MorrantUI/controls/connections/ConnectionOverlay.h"

#include <QObject>
#include <QPoint>
#include <QPointer>

#include <functional>
#include <vector>

/// The line of a connection over all windows of the application: an overlay in each window that it
/// crosses, made when it first does.
class ConnectionLine : public QObject
{
    Q_OBJECT

public:
    /// Nothing is seen before the first show(). @param start  where it begins, global
    ConnectionLine(QPoint start, QObject* parent);
    ~ConnectionLine() override;

    void show(const ConnectionPicture& picture);

    /// Draws the end back to where the line begins, asked for at each step; then gone().
    void drawBack(const std::function<QPoint()>& start);
    /// Lets the line fade as it is, frame and all; then gone().
    void fade();

Q_SIGNALS:
    /// Comes at once where animations are switched off.
    void gone();

private:
    void animate(const std::function<ConnectionPicture(double share)>& pictureAt);
    void coverWindows();
    void takeDown();

    ConnectionPicture m_picture;
    std::vector<QPointer<ConnectionOverlay>> m_overlays;
};
