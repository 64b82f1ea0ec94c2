// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/theme/VisualDesignBase.h>

#include <QString>

/// The theme read from "style:theme.json"; docs/theme.md describes that file.
///
/// A missing or unreadable file gives an empty theme, in which every named colour is black and
/// every palette role invalid; nobody is told.
class MORRANT_UI_EXPORT VisualDesignDark : public VisualDesignBase
{
    Q_OBJECT

public:
    /// Registers the search paths "assets", "style", "fonts", "texture", "icons" and "learn" below
    /// `assetsPath` and reads the theme file and the fonts it lists. Named colours start out as the
    /// file has them, whatever the contrast.
    explicit VisualDesignDark(const QString& assetsPath);
    ~VisualDesignDark() override;

    QString getLayoutFile() const override;

    /// Rebuilds the palette first, so that the style has the contrast of now.
    QStyle* createStyle() override;

    /// Sets the palette and the named colours of "colors" from the file, darkened in high-contrast
    /// mode. Named colours that come from "QPalette" stay as they are.
    void updatePalette();

private:
    void storeNamedColors(QLatin1String objectKey);
    void registerFonts();
    void readFont();
};
