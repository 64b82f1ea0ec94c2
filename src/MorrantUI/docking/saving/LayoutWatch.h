// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWidget>

namespace ui {

inline constexpr int kLayoutRest = 500; ///< milliseconds without a change; then a layout is at rest

} // namespace ui

/// Tells when the arrangement of panels, or place, size or state of their windows, has changed and
/// come to rest, so that it is saved then and not only when the program ends.
class MORRANT_UI_EXPORT LayoutWatch : public QObject
{
    Q_OBJECT

public:
    /// Watches gMainWindow as it is now, the windows that float, and one more.
    /// @param window the host's, which gMainWindow lies in; owns the watch, null for none
    explicit LayoutWatch(QWidget* window);
    ~LayoutWatch() override;

    /// Whether a change waits to be told.
    bool isPending() const { return m_rest.isActive(); }
    /// Something else has changed that is saved with the layout.
    void note() { m_rest.start(); }
    /// Forgets a change that waits, as it is saved already.
    void forget() { m_rest.stop(); }

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// Nothing has changed for kLayoutRest.
    void settled();

private:
    QTimer m_rest{this};
};
