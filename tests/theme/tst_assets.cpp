// SPDX-License-Identifier: Apache-2.0
#include "support/TestCase.h"
#include "theme/contrast.h"
#include <MorrantUI/theme/VisualDesignDark.h>

#include <Core/FontRegistry.h>

using namespace ui::test;

namespace {

constexpr double kReadable = 4.5;   ///< WCAG 2.1 AA, body text
constexpr double kNoticeable = 3.0; ///< WCAG 2.1 AA, marks

} // namespace

/// The assets as a host ships them.
class AssetsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void theThemeFileHasEveryColorThatIsAskedFor()
    {
        const std::pair<const char*, const char*> asked[] = {
            {"QPalette",
             "Window Base AlternateBase WindowText Text ToolTipBase ToolTipText Button ButtonText "
             "BrightText Link LinkVisited Highlight HighlightedText Light Midlight Mid Dark "
             "Shadow"},
            {"colors",
             "WindowBase SubUIBackground TabBackground AppBackground ElementHeader Accent1 Accent2 "
             "Accent3 Accent4 Accent5 ConnectorAccent ConnectorAnchor HelperHints RowHighlight2 "
             "ViewportMask Red Yellow Blue Green Grey Black"}};
        for (const auto& [key, names] : asked) {
            for (const QString& name : words(names)) {
                const QString color = m_file[QLatin1String(key)][name].toString();
                QVERIFY2(QColor::isValidColor(color), qPrintable(name));
            }
        }
    }

    void textIsReadableOnItsGrounds()
    {
        const char* const panels = "Window Base AlternateBase Button WindowBase SubUIBackground "
                                   "TabBackground AppBackground "
                                   "ElementHeader Mid Midlight Dark Shadow RowHighlight2";
        const char* const quiet =
            "Window Base AlternateBase WindowBase SubUIBackground TabBackground "
            "AppBackground ElementHeader Mid";
        const std::tuple<const char*, const char*, double> pairs[] = {
            {"Text WindowText ButtonText", panels, kReadable},
            {"ToolTipText", "ToolTipBase Dark", kReadable},
            {"HighlightedText", "Highlight", kReadable},
            {"Link LinkVisited HelperHints", quiet, kReadable},
            {"PlaceholderText", "Window Base AlternateBase Shadow", kReadable},
            // Hidden layers and what is not drawn, in the studio's lists.
            {"Text HelperHints Accent4", "Base HoveredRow", kReadable},
            // Keys, the playhead and curves on the grounds of the editors.
            {"Light Accent1 Accent5 Yellow Green Blue Grey", "Base WindowBase", kNoticeable}};
        for (const bool highContrast : {true, false}) {
            m_theme.setHighContrastMode(highContrast);
            m_theme.updatePalette();
            for (const auto& [texts, grounds, least] : pairs) {
                for (const QString& text : words(texts)) {
                    for (const QString& name : words(grounds)) {
                        const QColor ground = color(name);
                        const QColor seen = over(color(text), ground);
                        const bool isRead = contrast(seen, ground) >= least;
                        QVERIFY2(isRead, qPrintable(text + u" on "_qs + name));
                    }
                }
            }
        }
    }

    void theFontIsTheOneShippedInTheStylesSize()
    {
        const QString family = m_theme.getFont().family();
        const QJsonArray fonts = m_file[QLatin1String("fonts")].toArray();
        QVERIFY(!fonts.isEmpty());
        for (const QJsonValue& font : fonts) {
            const QFileInfo file(font.toString());
            QVERIFY2(
                file.exists() && file.fileName().startsWith(family), qPrintable(font.toString()));
        }
        // The registry knows files only: a copy that the system has installed does not count.
        const auto shipped = morrant::gFontRegistry.typefaces(family.toStdString());
        QCOMPARE(int(shipped.size()), fonts.size());
        QCOMPARE(m_theme.getFont().pixelSize(), m_theme.getFontSize());
        QVERIFY(m_theme.getLargeFontSize() > m_theme.getFontSize());
    }

    void everyIconExistsAtBothResolutions()
    {
        QStringList icons =
            words("addIcon topDock sideDock cursors/scrub cursors/pan cursors/pan-grab");
        for (QString& icon : icons) { // which the library names
            icon = u"icons:%1.png"_qs.arg(icon);
        }
        QDirIterator files(u"icons:"_qs, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            icons << files.next();
        }
        QVERIFY(icons.size() > 100);
        for (const QString& path : icons) {
            if (!path.contains(u"@2x")) {
                const QImage plain(path);
                const QImage dense(path.chopped(4) + u"@2x.png"_qs);
                QVERIFY2(hasInk(plain) && dense.size() == plain.size() * 2, qPrintable(path));
            }
        }
    }

private:
    /// A palette role by its name in the file, or else a named colour, as widgets get them.

    QColor color(const QString& name) const
    {
        if (name == QLatin1String("HoveredRow")) { // as the style draws it in a list
            QColor highlight = m_theme.getColor(u"RowHighlight2"_qs);
            highlight.setAlphaF(0.5F);
            return over(highlight, m_theme.color(QPalette::Base));
        }
        const int role = QMetaEnum::fromType<QPalette::ColorRole>().keyToValue(qPrintable(name));
        return role >= 0 ? m_theme.color(QPalette::ColorRole(role)) : m_theme.getColor(name);
    }

    VisualDesignDark& m_theme = makeTheme<VisualDesignDark>(assetsPath());
    const QJsonDocument m_file = QJsonDocument::fromJson(
        VisualDesignBase::loadTextFromFile(u"style:theme.json"_qs).toUtf8());
};

const Registration<AssetsTest> kRegistration;

#include "tst_assets.moc"
