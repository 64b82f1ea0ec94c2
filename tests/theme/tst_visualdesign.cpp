#include "support/TestCase.h"
#include "support/paths.h"
#include "support/themes.h"
#include <MorrantUI/theme/Style.h>
#include <MorrantUI/theme/VisualDesignDark.h>
#include <MorrantUI/theme/colors.h>
#include <MorrantUI/theme/fonts.h>
#include <MorrantUI/theme/icons.h>
#include <MorrantUI/theme/preferences.h>

#include <QApplication>
#include <QDir>
#include <QFontDatabase>
#include <QImage>
#include <QPixmapCache>
#include <QToolTip>

#include <vector>

namespace {

constexpr QPalette::ColorGroup kGroups[] = {
    QPalette::Active, QPalette::Inactive, QPalette::Disabled};

QString hex(const QColor& color)
{
    return color.isValid() ? color.name(QColor::HexArgb) : QStringLiteral("invalid");
}

void writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY2(file.open(QIODevice::WriteOnly), qPrintable(path));
    file.write(bytes);
}

void writeImage(const QString& path, int size, const QColor& color)
{
    QImage image(size, size, QImage::Format_ARGB32);
    image.fill(color);
    QVERIFY2(image.save(path), qPrintable(path));
}

} // namespace

class VisualDesignTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() override;
    void cleanup() override;

    void searchPathsLeadBelowTheAssets();
    void namedColorsAreTheFilesOwnWithColorsWinningOverQPalette();
    void paletteRolesComeFromTheFile_data();
    void paletteRolesComeFromTheFile();
    void highContrastDarkensColorsButNotWhatQPaletteNames();
    void aColorMissingInTheFileTurnsBlackOnlyInHighContrast();
    void preferencesAreBoolsNumbersAndStrings_data();
    void preferencesAreBoolsNumbersAndStrings();
    void pointerLockIsReportedAlsoWithoutAChange();

    void theFileSetsTheFontButNotTheStylesSize();
    void theSizeOverrideOnlySwitchesToTheLargeSize();
    void fontsOfTheFileReachQt();

    void anIconIsFoundOnceItsFileAppearsAndKeptWhenItGoes();
    void aPixmapComesThroughTheIconInTheFilesSize();
    void emptyAndUnreadablePathsGiveEmptyPictures();

    void applyingInstallsPaletteStyleFontAndToolTips();
    void applyingAgainOverAStyleSheetTakesTheNewContrast();
    void aThemeWithoutStyleKeepsTheApplications();

    void anyFileMakesATheme_data();
    void anyFileMakesATheme();
    void textFilesAreReadAsUtf8WithPlainLineEnds();

private:
    VisualDesignDark& themeFrom(const QByteArray& json);
    QString assetPath(const QString& name) const { return m_assets->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_assets;
    QPalette m_palette;
    QPalette m_toolTipPalette;
    QFont m_font;
};

void VisualDesignTest::initTestCase()
{
    m_palette = QApplication::palette();
    m_toolTipPalette = QToolTip::palette();
    m_font = QApplication::font();
}

void VisualDesignTest::init()
{
    TestCase::init();
    m_assets = std::make_unique<QTemporaryDir>();
    QVERIFY(m_assets->isValid());
    for (const char* folder : {"Style", "Fonts", "Textures", "Icons", "Learn"}) {
        QVERIFY(QDir(m_assets->path()).mkdir(QLatin1String(folder)));
    }
    QPixmapCache::clear();
}

void VisualDesignTest::cleanup()
{
    qApp->setStyleSheet(QString());
    QApplication::setStyle(QStringLiteral("fusion"));
    QApplication::setPalette(m_palette);
    QApplication::setFont(m_font);
    QToolTip::setPalette(m_toolTipPalette);
    TestCase::cleanup();
}

VisualDesignDark& VisualDesignTest::themeFrom(const QByteArray& json)
{
    writeFile(assetPath(QStringLiteral("Style/theme.json")), json);
    return ui::test::makeTheme<VisualDesignDark>(m_assets->path());
}

void VisualDesignTest::searchPathsLeadBelowTheAssets()
{
    const VisualDesignDark& theme = themeFrom("{}");
    writeFile(assetPath(QStringLiteral("Style/layout.json")), "the layout");
    QCOMPARE(
        VisualDesignBase::loadTextFromFile(theme.getLayoutFile()), QStringLiteral("the layout"));

    const std::pair<const char*, const char*> folders[] = {
        {"assets", ""},
        {"style", "Style/"},
        {"fonts", "Fonts/"},
        {"texture", "Textures/"},
        {"icons", "Icons/"},
        {"learn", "Learn/"}};
    for (const auto& [prefix, folder] : folders) {
        writeFile(assetPath(QLatin1String(folder) + QLatin1String(prefix)), "x");
        const QString path = QStringLiteral("%1:%1").arg(QLatin1String(prefix));
        QVERIFY2(ui::iconExists(path), prefix);
        QVERIFY2(theme.iconExists(path), prefix);
    }
}

void VisualDesignTest::namedColorsAreTheFilesOwnWithColorsWinningOverQPalette()
{
    VisualDesignDark& theme = themeFrom(R"({
        "QPalette": { "Light": "#112233", "Shared": "red", "NoRole": "#80010203" },
        "colors": { "Shared": "blue", "Accent4": "#445566", "Bad": "no colour" } })");

    QCOMPARE(hex(theme.getColor(QStringLiteral("Light"))), QStringLiteral("#ff112233"));
    QCOMPARE(hex(theme.getColor(QStringLiteral("NoRole"))), QStringLiteral("#80010203"));
    QCOMPARE(hex(theme.getColor(QStringLiteral("Shared"))), QStringLiteral("#ff0000ff"));
    QCOMPARE(hex(theme.getColor(QStringLiteral("Accent4"))), QStringLiteral("#ff445566"));
    QCOMPARE(hex(theme.getColor(QStringLiteral("accent4"))), QStringLiteral("#ff000000"));
    QCOMPARE(hex(theme.getColor(QStringLiteral("Bad"))), QStringLiteral("invalid"));

    theme.setColor(QStringLiteral("Accent4"), QColor(Qt::white));
    QCOMPARE(ui::colorQt(QStringLiteral("Accent4")), QColor(Qt::white));
}

void VisualDesignTest::paletteRolesComeFromTheFile_data()
{
    QTest::addColumn<QPalette::ColorRole>("role");
    QTest::addColumn<double>("contrastPercent");

    QTest::newRow("Window") << QPalette::Window << 80.0;
    QTest::newRow("Base") << QPalette::Base << 80.0;
    QTest::newRow("AlternateBase") << QPalette::AlternateBase << 80.0;
    QTest::newRow("WindowText") << QPalette::WindowText << 100.0;
    QTest::newRow("Text") << QPalette::Text << 100.0;
    QTest::newRow("ToolTipBase") << QPalette::ToolTipBase << 100.0;
    QTest::newRow("ToolTipText") << QPalette::ToolTipText << 100.0;
    QTest::newRow("Button") << QPalette::Button << 100.0;
    QTest::newRow("ButtonText") << QPalette::ButtonText << 100.0;
    QTest::newRow("BrightText") << QPalette::BrightText << 100.0;
    QTest::newRow("Link") << QPalette::Link << 100.0;
    QTest::newRow("LinkVisited") << QPalette::LinkVisited << 100.0;
    QTest::newRow("Highlight") << QPalette::Highlight << 100.0;
    QTest::newRow("HighlightedText") << QPalette::HighlightedText << 100.0;
    QTest::newRow("Light") << QPalette::Light << 100.0;
    QTest::newRow("Midlight") << QPalette::Midlight << 70.0;
    QTest::newRow("Mid") << QPalette::Mid << 80.0;
    QTest::newRow("Dark") << QPalette::Dark << 80.0;
    QTest::newRow("Shadow") << QPalette::Shadow << 90.0;
}

void VisualDesignTest::paletteRolesComeFromTheFile()
{
    QFETCH(const QPalette::ColorRole, role);
    QFETCH(const double, contrastPercent);
    const QColor color(200, 160, 80);
    const QByteArray name = QTest::currentDataTag();
    VisualDesignDark& theme = themeFrom(R"({"QPalette": {")" + name + R"(": "#c8a050"}})");

    for (const auto group : kGroups) {
        QCOMPARE(hex(theme.color(group, role)), hex(color));
        QColor placeholder = theme.color(group, QPalette::Text);
        placeholder.setAlpha(128);
        QCOMPARE(hex(theme.color(group, QPalette::PlaceholderText)), hex(placeholder));
    }
    theme.setHighContrastMode(true);
    QCOMPARE(hex(theme.color(role)), hex(color));
    theme.updatePalette();
    QCOMPARE(hex(theme.color(role)), hex(ui::changeValue(color, contrastPercent)));
    theme.setHighContrastMode(false);
    theme.updatePalette();
    QCOMPARE(hex(theme.getPalette().color(role)), hex(color));
}

void VisualDesignTest::highContrastDarkensColorsButNotWhatQPaletteNames()
{
    VisualDesignDark& theme = themeFrom(R"({
        "QPalette": { "Base": "#c8a050" },
        "colors": { "WindowBase": "#c8a050", "SubUIBackground": "#c8a050",
            "TabBackground": "#c8a050", "AppBackground": "#c8a050", "ElementHeader": "#c8a050",
            "Accent1": "#c8a050" } })");
    theme.setHighContrastMode(true);
    theme.updatePalette();

    const std::pair<const char*, double> expected[] = {
        {"WindowBase", 80.0},
        {"SubUIBackground", 80.0},
        {"TabBackground", 80.0},
        {"AppBackground", 90.0},
        {"ElementHeader", 80.0},
        {"Accent1", 100.0},
        {"Base", 100.0}};
    for (const auto& [name, percent] : expected) {
        const QColor color = ui::changeValue(QColor(0xC8, 0xA0, 0x50), percent);
        QVERIFY2(hex(theme.getColor(QLatin1String(name))) == hex(color), name);
    }
}

void VisualDesignTest::aColorMissingInTheFileTurnsBlackOnlyInHighContrast()
{
    VisualDesignDark& theme = themeFrom("{}");
    QCOMPARE(hex(theme.color(QPalette::Window)), QStringLiteral("invalid"));
    QCOMPARE(hex(theme.color(QPalette::PlaceholderText)), QStringLiteral("invalid"));

    theme.setHighContrastMode(true);
    theme.updatePalette();
    QCOMPARE(hex(theme.color(QPalette::Window)), QStringLiteral("#ff000000"));
    QCOMPARE(hex(theme.color(QPalette::Text)), QStringLiteral("invalid"));
    QCOMPARE(hex(theme.color(QPalette::Light)), QStringLiteral("invalid"));
}

void VisualDesignTest::preferencesAreBoolsNumbersAndStrings_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QVariant>("expected");

    QTest::newRow("bool") << QByteArray("false") << QVariant(false);
    QTest::newRow("whole number") << QByteArray("13") << QVariant(13.0);
    QTest::newRow("fraction") << QByteArray("-0.5") << QVariant(-0.5);
    QTest::newRow("string") << QByteArray("\"13\"") << QVariant(QStringLiteral("13"));
    QTest::newRow("empty string") << QByteArray("\"\"") << QVariant(QString());
    QTest::newRow("null") << QByteArray("null") << QVariant();
    QTest::newRow("array") << QByteArray("[1]") << QVariant();
    QTest::newRow("object") << QByteArray("{\"a\": 1}") << QVariant();
}

void VisualDesignTest::preferencesAreBoolsNumbersAndStrings()
{
    QFETCH(const QByteArray, json);
    QFETCH(const QVariant, expected);
    VisualDesignDark& theme = themeFrom("{\"key\": " + json + "}");

    QCOMPARE(theme.getPref(QStringLiteral("key")), expected);
    QCOMPARE(ui::themePreference(QStringLiteral("key")).metaType(), expected.metaType());
    QVERIFY(!theme.getPref(QStringLiteral("Key")).isValid());
}

void VisualDesignTest::pointerLockIsReportedAlsoWithoutAChange()
{
    VisualDesignBase& theme = themeFrom("{}");
    QVERIFY(theme.usePointerLock());
    QSignalSpy changed(&theme, &VisualDesignBase::usePointerLockChanged);
    theme.setUsePointerLock(true);
    theme.setUsePointerLock(true);
    theme.setUsePointerLock(false);
    QCOMPARE(changed, (QList<QList<QVariant>>{{true}, {true}, {false}}));
    QVERIFY(!theme.usePointerLock());
}

void VisualDesignTest::theFileSetsTheFontButNotTheStylesSize()
{
    const QFont standard = themeFrom("{}").getFont();
    QCOMPARE(standard.families(), QFont().families());
    QCOMPARE(standard.weight(), QFont::Normal);
    QCOMPARE(standard.hintingPreference(), QFont::PreferNoHinting);

    const VisualDesignDark& theme =
        themeFrom(R"({"FontFamilyWindows": "Some Family", "FontSize": 17, "FontSizeLarge": 21})");
    QCOMPARE(theme.getFont().family(), QStringLiteral("Some Family"));
    QCOMPARE(theme.getFont().pixelSize(), 17);
    QCOMPARE(theme.getFont().weight(), QFont::Normal);
    QCOMPARE(theme.getFont().hintingPreference(), QFont::PreferNoHinting);
    QCOMPARE(theme.getFontSize(), 12);
    QCOMPARE(theme.getLargeFontSize(), 21);
    QCOMPARE(ui::font(), theme.getFont());
}

void VisualDesignTest::theSizeOverrideOnlySwitchesToTheLargeSize()
{
    VisualDesignDark& theme = themeFrom(R"({"FontSize": 13, "FontSizeLarge": 16})");
    theme.setFontSizeOverride(5);
    QCOMPARE(theme.getFontSizeOverride(), 5);
    QCOMPARE(theme.getFont().pixelSize(), 16);
    theme.setFontSizeOverride(-1);
    QCOMPARE(theme.getFont().pixelSize(), 16);
    theme.setFontSizeOverride(0);
    QCOMPARE(theme.getFont().pixelSize(), 13);

    // A size that Qt cannot take leaves the font alone, without a warning.
    VisualDesignDark& broken = themeFrom(R"({"FontSize": 13, "FontSizeLarge": "big"})");
    broken.setFontSizeOverride(1);
    QCOMPARE(broken.getLargeFontSize(), 0);
    QCOMPARE(broken.getFont().pixelSize(), 13);
}

void VisualDesignTest::fontsOfTheFileReachQt()
{
    // A font of two letters under a name that no system has.
    const QString family = QStringLiteral("Morrant Test");
    QVERIFY(!QFontDatabase::families().contains(family));
    QVERIFY(QFile::copy(
        ui::test::dataPath(QStringLiteral("theme")) + QStringLiteral("/MorrantTest.ttf"),
        assetPath(QStringLiteral("Fonts/M\u00F6rrant.ttf"))));
    writeFile(assetPath(QStringLiteral("Fonts/noise.ttf")), "no font");

    themeFrom(R"({"fonts": ["fonts:none.ttf", "fonts:noise.ttf", "", 7, null, "a\u0000b",
        "fonts:Mörrant.ttf"], "FontFamilyWindows": "Morrant Test"})");
    QVERIFY(QFontDatabase::families().contains(family));
    QVERIFY(QFontInfo(ui::font()).exactMatch() || QFontInfo(ui::font()).family() == family);
}

void VisualDesignTest::anIconIsFoundOnceItsFileAppearsAndKeptWhenItGoes()
{
    themeFrom("{}");
    const QString name = QStringLiteral("icons:late.png");
    const QString line = QStringLiteral("debug: File doesn't exist: icons:late.png");
    QVERIFY(ui::getCachedIcon(name).isNull());
    QVERIFY(ui::getCachedPixmap(name).isNull());
    QCOMPARE(takeLog(), (QStringList{line, line}));

    writeImage(assetPath(QStringLiteral("Icons/late.png")), 8, Qt::red);
    const QIcon icon = ui::getCachedIcon(name);
    QVERIFY(!icon.isNull());

    QVERIFY(QFile::remove(assetPath(QStringLiteral("Icons/late.png"))));
    QCOMPARE(ui::getCachedIcon(name).cacheKey(), icon.cacheKey());
    // The cache goes by the exact path, not by the file.
    QVERIFY(ui::getCachedIcon(assetPath(QStringLiteral("Icons/late.png"))).isNull());
    QCOMPARE(takeLog().size(), 1);
}

void VisualDesignTest::aPixmapComesThroughTheIconInTheFilesSize()
{
    themeFrom("{}");
    writeImage(assetPath(QStringLiteral("Icons/a.png")), 16, Qt::red);
    writeImage(assetPath(QStringLiteral("Icons/a@2x.png")), 32, Qt::blue);
    const QString name = QStringLiteral("icons:a.png");
    const int ratio = qCeil(qApp->devicePixelRatio());

    const int cacheLimit = QPixmapCache::cacheLimit();
    const auto restore = qScopeGuard([cacheLimit] { QPixmapCache::setCacheLimit(cacheLimit); });
    for (const int limit : {cacheLimit, cacheLimit, 0}) { // a miss, a hit, and after eviction
        QPixmapCache::setCacheLimit(limit);
        const QPixmap pixmap = ui::getCachedPixmap(name);
        QCOMPARE(pixmap.deviceIndependentSize(), QSizeF(16, 16));
        QCOMPARE(pixmap.width(), 16 * ratio);
        QCOMPARE(pixmap.toImage().pixelColor(5, 5), ratio > 1 ? QColor(Qt::blue) : QColor(Qt::red));
    }
}

void VisualDesignTest::emptyAndUnreadablePathsGiveEmptyPictures()
{
    VisualDesignDark& theme = themeFrom("{}");
    QVERIFY(ui::getCachedIcon(QString()).isNull());
    QVERIFY(ui::getCachedPixmap(QString()).isNull());
    QVERIFY(theme.getCachedPixmap(QString()).isNull());

    writeFile(assetPath(QStringLiteral("Icons/text.png")), "no picture");
    QVERIFY(ui::getCachedPixmap(QStringLiteral("icons:text.png")).isNull());
    QVERIFY(ui::getCachedPixmap(m_assets->path()).isNull());
}

void VisualDesignTest::applyingInstallsPaletteStyleFontAndToolTips()
{
    VisualDesignDark& theme = themeFrom(R"({
        "QPalette": { "Window": "#101010", "Text": "#fefefe", "Dark": "#303030",
            "WindowText": "#dedede", "ToolTipBase": "#ffffff" },
        "FontSize": 11, "FontSizeLarge": 15 })");
    theme.applyAppStyle();

    const QPalette palette = QApplication::palette();
    for (const auto group : kGroups) {
        QCOMPARE(palette.color(group, QPalette::Window), QColor(0x10, 0x10, 0x10));
        QCOMPARE(palette.color(group, QPalette::Text), QColor(0xFE, 0xFE, 0xFE));
        QCOMPARE(QToolTip::palette().color(group, QPalette::ToolTipBase), QColor(0x30, 0x30, 0x30));
        QCOMPARE(QToolTip::palette().color(group, QPalette::ToolTipText), QColor(0xDE, 0xDE, 0xDE));
    }
    QVERIFY(qobject_cast<Style*>(QApplication::style()));
    QCOMPARE(QApplication::font().pixelSize(), 11);

    theme.setFontSizeOverride(1);
    QCOMPARE(QApplication::font().pixelSize(), 11);
    theme.applyAppStyle();
    QCOMPARE(QApplication::font().pixelSize(), 15);
}

void VisualDesignTest::applyingAgainOverAStyleSheetTakesTheNewContrast()
{
    VisualDesignDark& theme = themeFrom(R"({
        "QPalette": { "Window": "#c8a050", "Text": "#c8a050" },
        "colors": { "WindowBase": "#c8a050" } })");
    theme.applyAppStyle();
    const QPointer<QStyle> first = QApplication::style();
    qApp->setStyleSheet(QStringLiteral("QLabel { margin: 1px; }"));
    QWidget widget;

    theme.setHighContrastMode(true);
    theme.applyAppStyle();
    QCOMPARE(hex(QApplication::palette().color(QPalette::Window)), QStringLiteral("#ffa08040"));
    QTRY_COMPARE(hex(widget.palette().color(QPalette::Window)), QStringLiteral("#ffa08040"));
    QCOMPARE(hex(QApplication::palette().color(QPalette::Text)), QStringLiteral("#ffc8a050"));
    QCOMPARE(hex(ui::colorQt(QStringLiteral("WindowBase"))), QStringLiteral("#ffa08040"));

    theme.setHighContrastMode(false);
    theme.applyAppStyle();
    QCOMPARE(hex(QApplication::palette().color(QPalette::Window)), QStringLiteral("#ffc8a050"));
    QCOMPARE(hex(ui::colorQt(QStringLiteral("WindowBase"))), QStringLiteral("#ffc8a050"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!first);
}

void VisualDesignTest::aThemeWithoutStyleKeepsTheApplications()
{
    auto& theme = ui::test::makeTheme<VisualDesignBase>();
    const QPointer<QStyle> style = QApplication::style();
    theme.applyAppStyle();
    QCOMPARE(QApplication::style(), style.data());
    QVERIFY(theme.getLayoutFile().isEmpty());
}

void VisualDesignTest::anyFileMakesATheme_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("light"); ///< what "Light" is afterwards; black is "no such name"

    const QString black = QStringLiteral("#ff000000");
    const QString given = QStringLiteral("#ff112233");
    const QByteArray light(R"("Light": "#112233")");
    QTest::newRow("empty") << QByteArray() << black;
    QTest::newRow("no JSON") << QByteArray("Light = #112233") << black;
    QTest::newRow("cut off") << QByteArray("{\"colors\": {" + light) << black;
    QTest::newRow("root is an array") << QByteArray("[{\"colors\": {" + light + "}}]") << black;
    QTest::newRow("root is a number") << QByteArray("1") << black;
    QTest::newRow("10,000 arrays deep")
        << "{\"colors\": {" + light + "}, \"deep\": " + QByteArray(10000, '[')
               + QByteArray(10000, ']') + "}"
        << black;
    QTest::newRow("10 MB string") << "{\"colors\": {" + light + "}, \"long\": \""
                                         + QByteArray(10000000, 'x') + "\"}"
                                  << given;
    QTest::newRow("byte-order mark") << "\xEF\xBB\xBF{\"colors\": {" + light + "}}" << given;
    QTest::newRow("carriage returns") << "{\r\n\"colors\": {\r\n" + light + "\r\n}\r\n}" << given;
    QTest::newRow("NUL bytes") << QByteArray("{\"colors\": {\0}}", 15) << black;
    QTest::newRow("not UTF-8") << "{\"colors\": {\"\xFF\xFE\": \"\xC0\", " + light + "}}" << given;
    QTest::newRow("UTF-16") << QByteArray("\xFF\xFE{\0}\0", 6) << black;
    QTest::newRow("duplicate names")
        << "{\"colors\": {\"Light\": \"red\", " + light + "}}" << given;
    QTest::newRow("empty names") << "{\"\": 1, \"colors\": {\"\": \"\", " + light + "}}" << given;
    QTest::newRow("colour of a wrong type")
        << QByteArray(R"({"colors": {"Light": 1}})") << QStringLiteral("invalid");
    QTest::newRow("half a colour")
        << QByteArray(R"({"colors": {"Light": "#11223"}})") << QStringLiteral("invalid");
    QTest::newRow("wrong types throughout")
        << QByteArray(R"({"QPalette": [1], "colors": "red", "fonts": {"a": "b"},
            "FontFamilyWindows": 1, "FontSize": "12", "FontSizeLarge": []})")
        << black;
    QTest::newRow("sizes below 1")
        << QByteArray(R"({"FontSize": -3, "FontSizeLarge": -3})") << black;
    QTest::newRow("sizes out of range")
        << QByteArray(R"({"FontSize": 1e300, "FontSizeLarge": 12.5, "FontFamilyWindows": ""})")
        << black;
}

void VisualDesignTest::anyFileMakesATheme()
{
    QFETCH(const QByteArray, file);
    QFETCH(const QString, light);
    VisualDesignDark& theme = themeFrom(file);

    QCOMPARE(hex(ui::colorQt(QStringLiteral("Light"))), light);
    theme.setHighContrastMode(true);
    theme.setFontSizeOverride(1);
    theme.applyAppStyle();
    QCOMPARE(hex(theme.getColor(QStringLiteral("Light"))), light);
    QCOMPARE(theme.getFont().weight(), QFont::Normal);
}

void VisualDesignTest::textFilesAreReadAsUtf8WithPlainLineEnds()
{
    const QString path = assetPath(QStringLiteral("text"));
    writeFile(path, "\xC3\xA4\r\nb\n");
    QCOMPARE(VisualDesignBase::loadTextFromFile(path), QStringLiteral("\u00E4\nb\n"));
    for (const QString& unreadable : {QString(), m_assets->path(), path + u'x'}) {
        QCOMPARE(VisualDesignBase::loadTextFromFile(unreadable), QString());
    }
    const QJsonObject object{{QStringLiteral("a"), QStringLiteral("#01020304")}};
    QCOMPARE(
        hex(VisualDesignBase::colorFromJSON(object, QStringLiteral("a"))),
        QStringLiteral("#01020304"));
    QVERIFY(!VisualDesignBase::colorFromJSON(object, QStringLiteral("A")).isValid());
}

const ui::test::Registration<VisualDesignTest> kRegistration;

#include "tst_visualdesign.moc"
