// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/theme/VisualDesignBase.h"

#include "MorrantUI/log.h"
#include "MorrantUI/theme/currenttheme.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QJsonValue>
#include <QMap>
#include <QPixmapCache>
#include <QSet>
#include <QToolTip>

#include <utility>

namespace {

constexpr int kDefaultFontSize = 12; ///< pixels

VisualDesignBase* gCurrentTheme = nullptr;

/// Of all themes. Never destroyed, since what is static may still ask for colours.
QSet<QString>& missedColors()
{
    static auto* const names = new QSet<QString>;
    return *names;
}

/// Whether an image may be loaded from `path`; says so in the log if not. An empty path is no
/// mistake: it stands for "no image".
bool checkFile(const QString& path)
{
    if (path.isEmpty() || QFileInfo::exists(path)) {
        return true;
    }
    ui::log::debug("File doesn't exist: {}", path.toStdString());
    return false;
}

} // namespace

VisualDesignBase* ui::currentTheme()
{
    return gCurrentTheme;
}

struct VisualDesignBase::Data
{
    QPalette palette;
    QFont font;
    int fontSize = kDefaultFontSize;
    int largeFontSize = kDefaultFontSize;
    int fontSizeOverride = 0;
    QMap<QString, QColor> colors;
    QMap<QString, QIcon> iconCache;
    bool usePointerLock = true;
    bool highContrastMode = false;
};

VisualDesignBase::VisualDesignBase()
    : m_data(std::make_unique<Data>())
{
    gCurrentTheme = this;
}

VisualDesignBase::~VisualDesignBase() = default;

QString VisualDesignBase::getLayoutFile() const
{
    return {};
}

QStyle* VisualDesignBase::createStyle()
{
    return nullptr;
}

void VisualDesignBase::applyAppStyle()
{
    // Qt ignores a palette equal to the one it has; the detour over black makes it take this one.
    QApplication::setPalette(QPalette(Qt::black, Qt::black));
    QApplication::setPalette(getPalette());
    QApplication::setStyle(createStyle());
    QApplication::setFont(getFont());

    // After the application's palette, which would overwrite it.
    QPalette toolTipPalette = QToolTip::palette();
    toolTipPalette.setColor(QPalette::ToolTipBase, getColor(QStringLiteral("Dark")));
    toolTipPalette.setColor(QPalette::ToolTipText, getColor(QStringLiteral("WindowText")));
    QToolTip::setPalette(toolTipPalette);
}

QColor VisualDesignBase::getColor(const QString& name) const
{
    const auto found = m_data->colors.constFind(name);
    if (found != m_data->colors.constEnd()) {
        return *found;
    }
    missedColors().insert(name);
    return QColor(Qt::black);
}

QStringList VisualDesignBase::takeMissedColors()
{
    QStringList names = std::exchange(missedColors(), {}).values();
    names.sort();
    return names;
}

void VisualDesignBase::setColor(const QString& name, const QColor& color)
{
    m_data->colors.insert(name, color);
}

QColor VisualDesignBase::color(QPalette::ColorRole role) const
{
    return m_data->palette.color(role);
}

QColor VisualDesignBase::color(QPalette::ColorGroup group, QPalette::ColorRole role) const
{
    return m_data->palette.color(group, role);
}

void VisualDesignBase::setColor(QPalette::ColorRole role, const QColor& color)
{
    m_data->palette.setColor(QPalette::All, role, color);
}

void VisualDesignBase::setColor(
    QPalette::ColorGroup group, QPalette::ColorRole role, const QColor& color)
{
    m_data->palette.setColor(group, role, color);
}

QPalette VisualDesignBase::getPalette() const
{
    return m_data->palette;
}

QFont VisualDesignBase::getFont() const
{
    QFont font = m_data->font;
    // Qt ignores a size of 0 or less too, but not without a warning.
    if (m_data->fontSizeOverride != 0 && m_data->largeFontSize > 0) {
        font.setPixelSize(m_data->largeFontSize);
    }
    return font;
}

void VisualDesignBase::setFont(QFont font)
{
    m_data->font = std::move(font);
}

int VisualDesignBase::getFontSize() const
{
    return m_data->fontSize;
}

int VisualDesignBase::getLargeFontSize() const
{
    return m_data->largeFontSize;
}

void VisualDesignBase::setLargeFontSize(int pixels)
{
    m_data->largeFontSize = pixels;
}

int VisualDesignBase::getFontSizeOverride() const
{
    return m_data->fontSizeOverride;
}

void VisualDesignBase::setFontSizeOverride(int override)
{
    m_data->fontSizeOverride = override;
}

bool VisualDesignBase::highContrastMode() const
{
    return m_data->highContrastMode;
}

void VisualDesignBase::setHighContrastMode(bool on)
{
    m_data->highContrastMode = on;
}

bool VisualDesignBase::usePointerLock() const
{
    return m_data->usePointerLock;
}

void VisualDesignBase::setUsePointerLock(bool on)
{
    m_data->usePointerLock = on;
    Q_EMIT usePointerLockChanged(on);
}

const QJsonObject& VisualDesignBase::preferences() const
{
    return m_preferences;
}

void VisualDesignBase::setPreferences(const QJsonObject& root)
{
    m_preferences = root;
}

QVariant VisualDesignBase::getPref(const QString& key)
{
    const QJsonValue value = m_preferences.value(key);
    switch (value.type()) {
    case QJsonValue::Bool: return value.toBool();
    case QJsonValue::Double: return value.toDouble();
    case QJsonValue::String: return value.toString();
    default: return {};
    }
}

QString VisualDesignBase::loadTextFromFile(const QString& path)
{
    QFile file(path);
    // Qt warns about opening a file without a name.
    if (path.isEmpty() || !file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        return {};
    }
    return QString::fromUtf8(file.readAll());
}

QColor VisualDesignBase::colorFromJSON(const QJsonObject& object, const QString& key)
{
    return QColor::fromString(object.value(key).toString());
}

QIcon VisualDesignBase::getCachedIcon(const QString& path)
{
    const auto cached = m_data->iconCache.constFind(path);
    if (cached != m_data->iconCache.constEnd()) {
        return *cached;
    }
    if (!checkFile(path)) {
        return {};
    }
    QIcon icon;
    icon.addFile(path, QSize(), QIcon::Normal, QIcon::Off);
    m_data->iconCache.insert(path, icon);
    return icon;
}

QPixmap VisualDesignBase::getCachedPixmap(const QString& path)
{
    QPixmap loaded;
    if (!QPixmapCache::find(path, &loaded)) {
        if (!checkFile(path)) {
            return {};
        }
        loaded = QPixmap(path);
        QPixmapCache::insert(path, loaded);
    }
    // Loading a file picks no @2x variant, only the icon engine does.
    return getCachedIcon(path).pixmap(
        QSize(loaded.width(), loaded.height()), QIcon::Normal, QIcon::Off);
}

bool VisualDesignBase::iconExists(const QString& path) const
{
    return QFileInfo::exists(path);
}
