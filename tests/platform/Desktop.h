#pragma once

#include <QList>
#include <QWidget>

#include <memory>

namespace ui::test {

/// What the window system says about windows. On an X server without a window manager it plays that
/// part and grants what windows ask for.
class Desktop
{
public:
    Desktop();
    ~Desktop();

    /// False off screen, where nothing below ever holds.
    bool isReal() const;

    /// Whether title bars can be looked at here.
    bool showsTitleBars() const;

    bool hasDarkTitleBar(const QWidget& window) const;

    /// What Qt does on Windows when it follows the system's colours.
    void makeTitleBarLight(const QWidget& window);

    bool isAlwaysOnTop(const QWidget& window);
    bool isOwnedBy(const QWidget& window, const QWidget& owner) const;

    /// The windows among these that are on screen, the topmost first; none where there is nobody to
    /// stack them.
    QList<const QWidget*> stacked(const QList<const QWidget*>& windows) const;

private:
    class Connection;
    std::unique_ptr<Connection> m_connection;
};

} // namespace ui::test
