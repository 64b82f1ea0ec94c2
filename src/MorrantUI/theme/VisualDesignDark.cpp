// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/theme/VisualDesignDark.h"

#include <MorrantUI/theme/Style.h>
#include <MorrantUI/theme/colors.h>

#include <Core/FontRegistry.h>

#include <QDir>
#include <QFileInfo>
#include <QFontDatabase>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <utility>
#include <vector>

namespace {

constexpr QLatin1String kPaletteKey("QPalette");
constexpr QLatin1String kColorsKey("colors");

constexpr int kPlaceholderAlpha = 128;

struct PaletteEntry
{
    QLatin1String name;
    QPalette::ColorRole role;
};

/// Every role that the file sets. The order is of no consequence to Qt.
constexpr PaletteEntry kPaletteEntries[] = {
    {QLatin1String("Window"), QPalette::Window},
    {QLatin1String("Base"), QPalette::Base},
    {QLatin1String("AlternateBase"), QPalette::AlternateBase},
    {QLatin1String("WindowText"), QPalette::WindowText},
    {QLatin1String("Text"), QPalette::Text},
    {QLatin1String("ToolTipBase"), QPalette::ToolTipBase},
    {QLatin1String("ToolTipText"), QPalette::ToolTipText},
    {QLatin1String("Button"), QPalette::Button},
    {QLatin1String("ButtonText"), QPalette::ButtonText},
    {QLatin1String("BrightText"), QPalette::BrightText},
    {QLatin1String("Link"), QPalette::Link},
    {QLatin1String("LinkVisited"), QPalette::LinkVisited},
    {QLatin1String("Highlight"), QPalette::Highlight},
    {QLatin1String("HighlightedText"), QPalette::HighlightedText},
    {QLatin1String("Light"), QPalette::Light},
    {QLatin1String("Midlight"), QPalette::Midlight},
    {QLatin1String("Mid"), QPalette::Mid},
    {QLatin1String("Dark"), QPalette::Dark},
    {QLatin1String("Shadow"), QPalette::Shadow},
};

struct ContrastEntry
{
    QLatin1String name;
    double percent; ///< of the brightness in the file
};

/// What high contrast does to the palette. Text and Light deliberately stay as they are: darker
/// grounds are the whole effect.
constexpr ContrastEntry kPaletteContrast[] = {
    {QLatin1String("Window"), 80.0},
    {QLatin1String("Base"), 80.0},
    {QLatin1String("AlternateBase"), 80.0},
    {QLatin1String("Midlight"), 70.0},
    {QLatin1String("Mid"), 80.0},
    {QLatin1String("Dark"), 80.0},
    {QLatin1String("Shadow"), 90.0},
};

/// What high contrast does to the widgets' own colours.
constexpr ContrastEntry kColorsContrast[] = {
    {QLatin1String("WindowBase"), 80.0},
    {QLatin1String("SubUIBackground"), 80.0},
    {QLatin1String("TabBackground"), 80.0},
    {QLatin1String("AppBackground"), 90.0},
    {QLatin1String("ElementHeader"), 80.0},
};

/// The colours of one object of the theme file, in the file's order of iteration; a handful are
/// looked up by name once per palette update, so there is no index.
class ColorTable
{
public:
    explicit ColorTable(const QJsonObject& object)
    {
        m_entries.reserve(static_cast<std::size_t>(object.size()));
        for (auto it = object.constBegin(); it != object.constEnd(); ++it) {
            m_entries.emplace_back(it.key(), QColor::fromString(it->toString()));
        }
    }

    /// The colour of that name, added as an invalid one if the file lacks it.
    QColor& operator[](QLatin1String name)
    {
        const auto found = std::find_if(
            m_entries.begin(), m_entries.end(), [name](const auto& e) { return e.first == name; });
        return found != m_entries.end() ? found->second
                                        : m_entries.emplace_back(name, QColor()).second;
    }

    auto begin() const { return m_entries.begin(); }
    auto end() const { return m_entries.end(); }

private:
    std::vector<std::pair<QString, QColor>> m_entries;
};

template <std::size_t Size>
void raiseContrast(ColorTable& table, const ContrastEntry (&entries)[Size])
{
    for (const ContrastEntry& entry : entries) {
        QColor& color = table[entry.name];
        color = ui::changeValue(color, entry.percent);
    }
}

void registerSearchPaths(const QString& assetsPath)
{
    QDir::setSearchPaths(QStringLiteral("assets"), {assetsPath});
    QDir::setSearchPaths(QStringLiteral("style"), {QStringLiteral("assets:Style")});
    QDir::setSearchPaths(QStringLiteral("fonts"), {QStringLiteral("assets:Fonts")});
    QDir::setSearchPaths(QStringLiteral("texture"), {QStringLiteral("assets:Textures")});
    QDir::setSearchPaths(QStringLiteral("icons"), {QStringLiteral("assets:Icons")});
    QDir::setSearchPaths(QStringLiteral("learn"), {QStringLiteral("assets:Learn")});
}

/// Whether Qt takes the text as a file name without warning about it.
bool isFileName(const QString& path)
{
    return !path.isEmpty() && !path.contains(QChar::Null);
}

/// The theme file's root; empty for one that cannot be read.
QJsonObject readThemeFile()
{
    const QString text = VisualDesignBase::loadTextFromFile(QStringLiteral("style:theme.json"));
    return QJsonDocument::fromJson(text.toUtf8()).object();
}

} // namespace

VisualDesignDark::VisualDesignDark(const QString& assetsPath)
{
    registerSearchPaths(assetsPath);
    setPreferences(readThemeFile());

    updatePalette();
    // After updatePalette(), so that the named colours start out as the file has them.
    storeNamedColors(kPaletteKey);
    storeNamedColors(kColorsKey);

    registerFonts();
    readFont();
}

VisualDesignDark::~VisualDesignDark() = default;

QString VisualDesignDark::getLayoutFile() const
{
    return QStringLiteral("style:layout.json");
}

QStyle* VisualDesignDark::createStyle()
{
    updatePalette();
    return new Style(getPalette(), getFontSize(), getLargeFontSize(), getFontSizeOverride() != 0);
}

void VisualDesignDark::updatePalette()
{
    ColorTable palette(preferences().value(kPaletteKey).toObject());
    ColorTable colors(preferences().value(kColorsKey).toObject());
    if (highContrastMode()) {
        raiseContrast(palette, kPaletteContrast);
        raiseContrast(colors, kColorsContrast);
    }

    for (const PaletteEntry& entry : kPaletteEntries) {
        setColor(entry.role, palette[entry.name]);
    }
    QColor placeholder = color(QPalette::Text);
    placeholder.setAlpha(kPlaceholderAlpha);
    setColor(QPalette::PlaceholderText, placeholder);

    for (const auto& [name, color] : colors) {
        setColor(name, color);
    }
}

void VisualDesignDark::storeNamedColors(QLatin1String objectKey)
{
    for (const auto& [name, color] : ColorTable(preferences().value(objectKey).toObject())) {
        setColor(name, color);
    }
}

void VisualDesignDark::registerFonts()
{
    morrant::gFontRegistry.setFontFileCallback([](const std::string& path) {
        QFontDatabase::addApplicationFont(QString::fromStdString(path));
    });
    const QJsonArray fonts = preferences().value(QLatin1String("fonts")).toArray();
    for (const QJsonValue& font : fonts) {
        if (isFileName(font.toString())) {
            const QFileInfo file(font.toString());
            morrant::gFontRegistry.addFont(file.absoluteFilePath().toStdString());
        }
    }
}

void VisualDesignDark::readFont()
{
    const QJsonObject& root = preferences();
    QFont font = getFont();
    const auto family = root.constFind(QLatin1String("FontFamilyWindows"));
    if (family != root.constEnd()) {
        font = QFont(family->toString());
    }
    font.setWeight(QFont::Normal);
    font.setHintingPreference(QFont::PreferNoHinting);
    // Qt ignores a size of 0 or less too, but not without a warning.
    const int pixelSize = root.value(QLatin1String("FontSize")).toInt();
    if (pixelSize > 0) {
        font.setPixelSize(pixelSize);
    }
    setFont(font);

    const auto largeFontSize = root.constFind(QLatin1String("FontSizeLarge"));
    if (largeFontSize != root.constEnd()) {
        setLargeFontSize(largeFontSize->toInt());
    }
}
