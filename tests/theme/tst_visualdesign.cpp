// SPDX-License-Identifier: Apache-2.0
#include "support/TestCase.h"
#include "theme/ApplicationLook.h"
#include <MorrantUI/MorrantUI.h>

using namespace ui::test;

namespace {

QString hex(const QColor& color)
{
    return color.isValid() ? color.name(QColor::HexArgb) : u"invalid"_qs;
}

// Outside the classes: moc loses its way in texts like these.
const char* const kNamedColors = R"({
    "QPalette": { "Light": "#112233", "Shared": "red", "NoRole": "#80010203" },
    "colors": { "Shared": "blue", "Accent4": "#445566", "Bad": "no colour" } })";

const char* const kLook = R"({
    "QPalette": { "Window": "#101010", "Dark": "#303030", "WindowText": "#dedede",
    "ToolTipBase": "#ffffff" },
    "FontSize": 11, "FontSizeLarge": 15 })";

const char* const kContrast = R"({
    "QPalette": { "Window": "#c8a050" }, "colors": { "WindowBase": "#c8a050" } })";

} // namespace

/// What widgets see in a host that has not built its theme yet.
class NoThemeTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void colorsAreBlackAndTheRestIsEmptyOrQts()
    {
        QCOMPARE(ui::colorQt(u"Window"_qs), QColor(Qt::black));
        QCOMPARE(ui::font(), QFont());
        QVERIFY(!ui::themePreference(u"FontSize"_qs).isValid());
        QVERIFY(ui::getCachedIcon(u"icons:none.png"_qs).isNull()); // and nothing is logged
        QPixmapCache::insert(u"cached by the host"_qs, QPixmap(4, 4));
        QVERIFY(ui::getCachedPixmap(u"cached by the host"_qs).isNull());
    }
};

class VisualDesignTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init() override
    {
        TestCase::init();
        m_assets = std::make_unique<QTemporaryDir>();
        for (const QString& folder : words("Style Fonts Textures Icons Learn")) {
            QVERIFY(QDir(m_assets->path()).mkdir(folder));
        }
        QPixmapCache::clear();
    }

    void cleanup() override
    {
        m_look.restore();
        TestCase::cleanup();
    }

    void filesAreFoundBelowTheAssetsAndReadAsUtf8WithPlainLineEnds()
    {
        const VisualDesignDark& theme = themeFrom("{}");
        writeAsset(u"Style/layout.json"_qs, "\xC3\xA4\r\nb\n");
        const QString text = VisualDesignBase::loadTextFromFile(theme.getLayoutFile());
        QCOMPARE(text, u"\u00E4\nb\n"_qs);
        QCOMPARE(VisualDesignBase::loadTextFromFile(QString()), QString());
        const QStringList prefixes = words("assets style fonts texture icons learn");
        const QStringList folders = words(". Style Fonts Textures Icons Learn");
        for (int i = 0; i < prefixes.size(); ++i) {
            writeAsset(folders.at(i) + u'/' + prefixes.at(i), "x");
            const QString path = u"%1:%1"_qs.arg(prefixes.at(i));
            QVERIFY2(ui::iconExists(path) && theme.iconExists(path), qPrintable(path));
        }
    }

    void namedColorsAreTheFilesOwnWithColorsWinningOverQPalette()
    {
        VisualDesignDark& theme = themeFrom(kNamedColors);
        QStringList colors;
        for (const QString& name : words("Light NoRole Shared Accent4 accent4 Bad")) {
            colors << hex(theme.getColor(name));
        }
        QCOMPARE(colors, words("#ff112233 #80010203 #ff0000ff #ff445566 #ff000000 invalid"));
        QCOMPARE(hex(ui::colorQt(u"accent4"_qs)), u"#ff000000"_qs);
        QCOMPARE(VisualDesignBase::takeMissedColors(), words("accent4"));
        theme.setColor(u"Accent4"_qs, QColor(Qt::white));
        QCOMPARE(ui::colorQt(u"Accent4"_qs), QColor(Qt::white));

        // A role that the file lacks is none, and black in high contrast if that changes it.
        for (const auto role : {QPalette::Window, QPalette::Text, QPalette::PlaceholderText}) {
            QCOMPARE(hex(theme.color(role)), u"invalid"_qs);
        }
        theme.setHighContrastMode(true);
        theme.updatePalette();
        QCOMPARE(hex(theme.color(QPalette::Window)), u"#ff000000"_qs);
        QCOMPARE(hex(theme.color(QPalette::Text)), u"invalid"_qs);
    }

    void highContrastDarkensTheGroundsOfTheFile()
    {
        // With the percentage of their brightness in high contrast.
        const std::pair<const char*, double> entries[] = {
            {"Window Base AlternateBase Mid Dark WindowBase SubUIBackground TabBackground "
             "ElementHeader",
             80.0},
            {"Midlight", 70.0},
            {"Shadow AppBackground", 90.0},
            {"WindowText Text ToolTipBase ToolTipText Button ButtonText BrightText Link "
             "LinkVisited "
             "Highlight HighlightedText Light Accent1",
             100.0}};
        const auto roleOf = [](const QString& name) { // below 0 for the widgets' own colours
            return QMetaEnum::fromType<QPalette::ColorRole>().keyToValue(qPrintable(name));
        };
        QMap<QString, QColor> colors; // each name has one of its own
        QVariantMap objects[2];
        for (const auto& [names, percent] : entries) {
            for (const QString& name : words(names)) {
                colors[name] = QColor(200, 160, int(60 + colors.size()));
                objects[roleOf(name) < 0 ? 1 : 0][name] = colors[name].name();
            }
        }
        const QVariantMap root{{u"QPalette"_qs, objects[0]}, {u"colors"_qs, objects[1]}};
        VisualDesignDark& theme = themeFrom(QJsonDocument::fromVariant(root).toJson());
        for (const bool highContrast : {false, true, false}) {
            if (highContrast != theme.highContrastMode()) {
                theme.setHighContrastMode(highContrast);
                theme.updatePalette();
            }
            for (const auto& [names, percent] : entries) {
                for (const QString& name : words(names)) {
                    const int role = roleOf(name);
                    const QColor& own = colors[name];
                    const QColor seen = ui::changeValue(own, highContrast ? percent : 100.0);
                    const bool isRole =
                        role < 0 || hex(theme.color(QPalette::ColorRole(role))) == hex(seen);
                    // A role's colour by its name stays the file's.
                    const bool isNamed = hex(theme.getColor(name)) == hex(role < 0 ? seen : own);
                    QVERIFY2(isRole && isNamed, qPrintable(name));
                }
            }
            QColor placeholder = colors[u"Text"_qs];
            placeholder.setAlpha(128);
            QCOMPARE(hex(theme.color(QPalette::PlaceholderText)), hex(placeholder));
        }
    }

    void preferencesAreBoolsNumbersAndStrings()
    {
        VisualDesignDark& theme = themeFrom(
            R"({"a": false, "b": 13, "c": "13", "d": "", "e": null, "f": [1], "g": {"a": 1}})");
        const QVariantList expected{false, 13.0, u"13"_qs, QString(), {}, {}, {}, {}};
        for (int i = 0; i < expected.size(); ++i) {
            const QString key(QChar(u'a' + i)); // the last one is not in the file
            QCOMPARE(theme.getPref(key), expected.at(i));
            QCOMPARE(ui::themePreference(key).metaType(), expected.at(i).metaType());
        }
        QVERIFY(!theme.getPref(u"A"_qs).isValid());
    }

    void theFileSetsAndRegistersFontsButNotTheStylesSize()
    {
        const QFont standard = themeFrom("{}").getFont();
        QCOMPARE(standard.families(), QFont().families());
        // Beside the program, since a registered font's file stays open until that ends: Windows
        // would not let the assets' folder go.
        const QString font = QCoreApplication::applicationDirPath() + u"/M\u00F6rrant.ttf"_qs;
        const QString source = dataPath(u"theme"_qs) + u"/MorrantTest.ttf"_qs;
        QVERIFY(QFile::exists(font) || QFile::copy(source, font));
        writeAsset(u"Fonts/noise.ttf"_qs, "no font");
        const QString family = u"Morrant Test"_qs; // which no system has
        QVERIFY(!QFontDatabase::families().contains(family));
        QByteArray json(
            R"({"fonts": ["fonts:none.ttf", "fonts:noise.ttf", "", 7, null, "a\u0000b", "@"],
            "FontFamilyWindows": "Morrant Test", "FontSize": 17})");
        const VisualDesignDark& theme = themeFrom(json.replace('@', font.toUtf8()));
        QVERIFY(QFontDatabase::families().contains(family));
        QCOMPARE(ui::font().family(), family);
        QCOMPARE(ui::font().pixelSize(), 17);
        QCOMPARE(theme.getFontSize(), 12);
        for (const QFont& seen : {standard, ui::font()}) {
            QCOMPARE(seen.weight(), QFont::Normal);
            QCOMPARE(seen.hintingPreference(), QFont::PreferNoHinting);
        }
    }

    void anIconIsFoundOnceItsFileAppearsAndKeptWhenItGoes()
    {
        themeFrom("{}");
        const QString name = u"icons:late.png"_qs;
        const QString line = u"debug: File doesn't exist: icons:late.png"_qs;
        QVERIFY(ui::getCachedIcon(name).isNull() && ui::getCachedPixmap(name).isNull());
        QCOMPARE(takeLog(), (QStringList{line, line}));

        writeIcon(u"late.png"_qs, 8, Qt::red);
        const qint64 key = ui::getCachedIcon(name).cacheKey();
        const QString path = assetPath(u"Icons/late.png"_qs);
        QVERIFY(QFile::remove(path) && !ui::getCachedIcon(name).isNull());
        QCOMPARE(ui::getCachedIcon(name).cacheKey(), key);
        QVERIFY(ui::getCachedIcon(path).isNull()); // the cache goes by the exact path
        QCOMPARE(takeLog().size(), 1);

        writeAsset(u"Icons/text.png"_qs, "no picture");
        QVERIFY(ui::getCachedPixmap(u"icons:text.png"_qs).isNull());
        QVERIFY(ui::getCachedPixmap(QString()).isNull() && ui::getCachedIcon(QString()).isNull());
    }

    void aPixmapComesThroughTheIconInTheFilesSize()
    {
        themeFrom("{}");
        writeIcon(u"a.png"_qs, 16, Qt::red);
        writeIcon(u"a@2x.png"_qs, 32, Qt::blue);
        const QColor expected = qApp->devicePixelRatio() > 1.0 ? Qt::blue : Qt::red;
        for (int round = 0; round < 2; ++round) { // a miss and a hit
            const QPixmap pixmap = ui::getCachedPixmap(u"icons:a.png"_qs);
            QCOMPARE(pixmap.deviceIndependentSize(), QSizeF(16, 16));
            QCOMPARE(pixmap.toImage().pixelColor(5, 5), expected);
        }
    }

    void applyingInstallsPaletteStyleFontAndToolTips()
    {
        makeTheme<VisualDesignBase>().applyAppStyle(); // has no style of its own
        QVERIFY(QApplication::style() && !qobject_cast<Style*>(QApplication::style()));
        VisualDesignDark& theme = themeFrom(kLook);
        theme.applyAppStyle();
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            const QPalette toolTips = QToolTip::palette();
            QCOMPARE(hex(QApplication::palette().color(group, QPalette::Window)), u"#ff101010"_qs);
            QCOMPARE(hex(toolTips.color(group, QPalette::ToolTipBase)), u"#ff303030"_qs);
            QCOMPARE(hex(toolTips.color(group, QPalette::ToolTipText)), u"#ffdedede"_qs);
        }
        QVERIFY(qobject_cast<Style*>(QApplication::style()));
        const int indicator = QApplication::style()->pixelMetric(QStyle::PM_IndicatorWidth);
        theme.setFontSizeOverride(-5); // switches to the large size, whatever it is
        QCOMPARE(QApplication::font().pixelSize(), 11);
        theme.applyAppStyle();
        QCOMPARE(QApplication::font().pixelSize(), 15);
        QVERIFY(QApplication::style()->pixelMetric(QStyle::PM_IndicatorWidth) > indicator);
    }

    void applyingAgainUnderOpenControlsTakesTheNewContrast()
    {
        VisualDesignDark& theme = themeFrom(kContrast);
        theme.applyAppStyle();
        QComboBox combo;
        combo.addItem(u"one"_qs);
        combo.show();
        combo.showPopup();
        QPointer<QStyle> before = QApplication::style();
        for (const bool highContrast : {true, false}) {
            theme.setHighContrastMode(highContrast);
            theme.applyAppStyle();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QVERIFY(before.isNull());
            QCOMPARE(combo.style(), QApplication::style());
            QVERIFY(!combo.view()->grab().isNull());
            const QString ground = QLatin1String(highContrast ? "#ffa08040" : "#ffc8a050");
            QTRY_COMPARE(hex(combo.palette().color(QPalette::Window)), ground);
            QCOMPARE(hex(ui::colorQt(u"WindowBase"_qs)), ground);
            before = QApplication::style();
            qApp->setStyleSheet(u"QLabel { margin: 1px; }"_qs); // for the second time
        }
    }

    void anyFileMakesATheme()
    {
        const char* const black = "#ff000000"; // no such name
        const char* const given = "#ff112233";
        const QByteArray light("{\"colors\": {\"Light\": \"#112233\"");
        const QByteArray deep = QByteArray(10000, '[') + QByteArray(10000, ']');
        const std::pair<QByteArray, const char*> files[] = {
            {"", black},
            {light, black}, // cut off
            {"[" + light + "}}]", black},
            {light + "}, \"deep\": " + deep + "}", black},
            {"\xEF\xBB\xBF" + light + "}}", given}, // a byte-order mark
            {QByteArray("{\"colors\": {\0}}", 15), black},
            {light + ", \"\xFF\xFE\": \"\xC0\"}}", given}, // not UTF-8
            {R"({"colors": {"Light": 1}})", "invalid"},
            {R"({"QPalette": [1], "colors": "red", "fonts": {"a": "b"}, "FontFamilyWindows": 1,
                "FontSize": "12", "FontSizeLarge": []})",
             black},
            {R"({"FontSize": -3, "FontSizeLarge": -3})", black},
            {R"({"FontSize": 1e300, "FontSizeLarge": 12.5})", black}};
        for (const auto& [file, expected] : files) {
            VisualDesignDark& theme = themeFrom(file);
            QCOMPARE(hex(ui::colorQt(u"Light"_qs)), QLatin1String(expected));
            theme.setHighContrastMode(true);
            theme.setFontSizeOverride(1);
            theme.applyAppStyle();
            QCOMPARE(hex(theme.getColor(u"Light"_qs)), QLatin1String(expected));
            QCOMPARE(theme.getFont().weight(), QFont::Normal);
        }
    }

private:
    bool lacksColors() const override { return true; }
    QString assetPath(const QString& name) const { return m_assets->filePath(name); }
    void writeAsset(const QString& name, const QByteArray& bytes) const
    {
        QFile file(assetPath(name));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
    void writeIcon(const QString& name, int size, const QColor& color) const
    {
        const QImage image = drawn(QSizeF(size, size), 1.0, color, [](QPainter&) {});
        QVERIFY(image.save(assetPath(u"Icons/"_qs + name)));
    }
    VisualDesignDark& themeFrom(const QByteArray& json) const
    {
        writeAsset(u"Style/theme.json"_qs, json);
        return makeTheme<VisualDesignDark>(m_assets->path());
    }

    const ApplicationLook m_look{}; // clang insists on the braces
    std::unique_ptr<QTemporaryDir> m_assets;
};

const Registration<NoThemeTest> kNoThemeRegistration(RunOrder::First);
const Registration<VisualDesignTest> kRegistration;

#include "tst_visualdesign.moc"
