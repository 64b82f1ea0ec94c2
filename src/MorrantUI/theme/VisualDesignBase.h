// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QColor>
#include <QFont>
#include <QIcon>
#include <QJsonObject>
#include <QObject>
#include <QPalette>
#include <QPixmap>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <memory>

class QStyle;

/// The theme: application palette and font, named colours, free preferences and the icon cache.
///
/// The host constructs one before its first widget, calls applyAppStyle() and keeps it alive as
/// long as the application: the theme constructed last is the current one, which the functions of
/// namespace ui ask, and the pointer to it is never cleared.
///
/// This base works on its own but knows no style and no layout file.
class MORRANT_UI_EXPORT VisualDesignBase : public QObject
{
    Q_OBJECT

public:
    VisualDesignBase();
    ~VisualDesignBase() override;

    /// Where the host finds the default arrangement of its panels; empty when the theme has none.
    virtual QString getLayoutFile() const;

    /// A new application style, owned by the caller; null when the theme has none.
    virtual QStyle* createStyle();

    /// Installs palette, style, font and the tool tips' palette in the application. Call it again
    /// after a change of contrast or of the size override; widgets pick named colours up by
    /// themselves the next time they paint.
    virtual void applyAppStyle();

    /// The named colour, case-sensitive; opaque black for an unknown.
    QColor getColor(const QString& name) const;
    /// The unknown names that themes were asked for since the last call, sorted. Nobody is told of
    /// a misspelt name, which is black: a host looks here, and its tests do.
    static QStringList takeMissedColors();
    /// Adds or replaces a named colour. An invalid colour is stored as it is.
    void setColor(const QString& name, const QColor& color);

    QColor color(QPalette::ColorRole role) const; ///< of the active group
    QColor color(QPalette::ColorGroup group, QPalette::ColorRole role) const; ///< of the palette
    QPalette getPalette() const;

    /// The application font, in the large size as long as the size override is not 0.
    QFont getFont() const;
    int getFontSize() const;      ///< pixels, for the style
    int getLargeFontSize() const; ///< pixels
    int getFontSizeOverride() const;
    /// Anything but 0 switches the font to the large size; the value itself is deliberately no
    /// size. Shows after the next applyAppStyle().
    void setFontSizeOverride(int override);

    bool highContrastMode() const;
    /// Darkens the background colours. Shows after the next applyAppStyle().
    void setHighContrastMode(bool on);

    /// Whether dragging a value hides and pins the pointer.
    bool usePointerLock() const;
    /// Emits usePointerLockChanged() also when nothing changed.
    void setUsePointerLock(bool on);

    /// A value at the root of the theme file: a bool, a number as double or a string. Invalid for
    /// absent keys and other JSON types.
    QVariant getPref(const QString& key);

    /// The whole of a UTF-8 file with line ends as "\n"; empty when it cannot be opened.
    static QString loadTextFromFile(const QString& path);
    /// The colour written under `key` in any form QColor::fromString() knows; otherwise invalid.
    static QColor colorFromJSON(const QJsonObject& object, const QString& key);

    /// The icon of a file, read once for each exact path. A file that does not exist gives an empty
    /// icon and a debug line, and nothing is cached; an empty path gives an empty icon.
    QIcon getCachedIcon(const QString& path);
    /// The icon's pixmap in the file's own size, with the pixels of the application's device ratio.
    /// The file's size is kept in QPixmapCache, so it may be read again.
    QPixmap getCachedPixmap(const QString& path);
    bool iconExists(const QString& path) const; ///< as a file

Q_SIGNALS:
    /// After every setUsePointerLock().
    void usePointerLockChanged(bool value);

protected:
    /// Sets one role of the palette, for all groups or for one.
    void setColor(QPalette::ColorRole role, const QColor& color);
    void setColor(QPalette::ColorGroup group, QPalette::ColorRole role, const QColor& color);

    void setFont(QFont font);          ///< shows with the next applyAppStyle()
    void setLargeFontSize(int pixels); ///< see setFontSizeOverride()

    /// The root object of the theme file.
    const QJsonObject& preferences() const;
    void setPreferences(const QJsonObject& root);

private:
    struct Data;

    std::unique_ptr<Data> m_data;
    QJsonObject m_preferences;
};
