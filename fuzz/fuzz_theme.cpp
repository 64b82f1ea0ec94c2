// SPDX-License-Identifier: Apache-2.0
// Any bytes as a theme file: construction, both contrasts and look-ups never fail and never warn.

#include "QtHost.h"
#include <MorrantUI/theme/VisualDesignDark.h>
#include <MorrantUI/theme/colors.h>
#include <MorrantUI/theme/themesettings.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdint>
#include <memory>

namespace {

// The style learns no more of the file than its palette, so a sample of the sizes will do.
constexpr std::size_t kApplyEvery = 16;

/// The application and the folder that every input's theme is read from.
struct Host : QtHost
{
    Host()
    {
        check(assets.isValid() && QDir(assets.path()).mkdir(QStringLiteral("Style")), "a folder");
    }

    VisualDesignDark& loadTheme(const std::uint8_t* data, std::size_t size)
    {
        QFile file(assets.filePath(QStringLiteral("Style/theme.json")));
        check(file.open(QIODevice::WriteOnly), "the theme file opens");
        file.write(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
        file.close();
        // The older theme dies only when it is no longer the current one.
        theme = std::make_unique<VisualDesignDark>(assets.path());
        return *theme;
    }

    QTemporaryDir assets;
    std::unique_ptr<VisualDesignDark> theme;
};

void checkLookUps(VisualDesignDark& theme)
{
    check(
        ui::colorQt(QStringLiteral("no theme has this name")) == QColor(Qt::black),
        "an unknown colour is black");
    const QVariant preference = ui::themePreference(QStringLiteral("FontSize"));
    check(
        !preference.isValid() || preference.metaType() == QMetaType::fromType<double>()
            || preference.metaType() == QMetaType::fromType<bool>()
            || preference.metaType() == QMetaType::fromType<QString>(),
        "a preference is a bool, a number or a string");
    check(theme.getFont().weight() == QFont::Normal, "the font is of normal weight");
}

void checkContrasts(VisualDesignDark& theme)
{
    const QColor text = theme.color(QPalette::Text);
    const QColor window = theme.color(QPalette::Window);

    theme.setHighContrastMode(true);
    theme.updatePalette();
    check(theme.color(QPalette::Text) == text, "high contrast leaves text alone");
    check(
        theme.color(QPalette::Window) == ui::changeValue(window, 80.0),
        "high contrast darkens the window");

    theme.setHighContrastMode(false);
    theme.updatePalette();
    check(theme.color(QPalette::Window) == window, "normal contrast gives the colour back");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static auto* const host = new Host;
    VisualDesignDark& theme = host->loadTheme(data, size);
    checkLookUps(theme);
    checkContrasts(theme);
    if (size % kApplyEvery == 0) {
        theme.setFontSizeOverride(1);
        theme.applyAppStyle();
    }
    return 0;
}
