// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/docking/DockableWindow.h>

#include <QtWidgets>

#include <functional>
#include <utility>

namespace ui::test {

/// What the session deletes on purpose goes with all in it.
class Deleting
{
public:
    Deleting() { ++depth; }
    ~Deleting() { --depth; }
    Q_DISABLE_COPY_MOVE(Deleting)

    static inline int depth = 0;
    static inline int lost = 0; ///< panels that died without being closed or deleted
};

/// A panel with something in it; some refuse to close, and some are kept when they do.
class FuzzedPanel : public DockableWindow
{
public:
    explicit FuzzedPanel(int number)
        : DockableWindow(number % 2 == 0 ? static_cast<QWidget*>(new QLineEdit) : new QListView)
        , m_refuses(number % 5 == 4)
    {
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
        resize(60 + 20 * (number % 7), 50 + 30 * (number % 4));
        content()->setMinimumSize(number % 3 == 1 ? 40 + 10 * number % 90 : 0, 30);
        if (number % 6 == 2) {
            content()->setMaximumSize(120, 90);
        } else if (number % 6 == 5) {
            content()->setFixedHeight(40);
        }
        setAttribute(Qt::WA_DeleteOnClose, number % 4 != 3);
    }
    ~FuzzedPanel() override { Deleting::lost += isClosing() || Deleting::depth > 0 ? 0 : 1; }
    Q_DISABLE_COPY_MOVE(FuzzedPanel)

    void setRefuses(bool refuses) { m_refuses = refuses; }
    std::function<void()> onClose;

protected:
    void closeEvent(QCloseEvent* event) override
    {
        event->setAccepted(!m_refuses);
        if (onClose) {
            std::exchange(onClose, nullptr)();
        }
    }

private:
    bool m_refuses;
};

/// Acts once, in the next signal that is connected to it, or when one that it watches is shown or
/// hidden.
class Trap : public QObject
{
public:
    std::function<void()> action;

    void spring()
    {
        if (const auto once = std::exchange(action, nullptr)) {
            once();
        }
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const bool springs = event->type() == QEvent::Show || event->type() == QEvent::Hide;
        if (springs && qobject_cast<DockableWindow*>(watched->parent())) {
            spring();
        }
        return false;
    }
};

} // namespace ui::test
