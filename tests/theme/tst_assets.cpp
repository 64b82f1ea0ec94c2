#include "support/TestCase.h"
#include "support/paths.h"
#include "support/themes.h"
#include "theme/contrast.h"
#include <MorrantUI/theme/VisualDesignDark.h>
#include <MorrantUI/theme/fonts.h>
#include <MorrantUI/theme/icons.h>

#include <Core/FontRegistry.h>

#include <QDirIterator>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

constexpr double kReadable = 4.5;   ///< WCAG 2.1 AA, body text
constexpr double kNoticeable = 3.0; ///< WCAG 2.1 AA, marks

QJsonObject styleFile(const QString& name)
{
    QFile file(ui::test::assetsPath() + QStringLiteral("/Style/") + name);
    return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object()
                                          : QJsonObject();
}

/// The names of the panels in a layout's node and below, depth first.
QStringList panelsIn(const QJsonObject& node)
{
    if (node[QLatin1String("type")].toString() == QLatin1String("panel")) {
        return {node[QLatin1String("panel")].toString()};
    }
    QStringList names;
    for (const QJsonValue& child : node[QLatin1String("children")].toArray()) {
        names += panelsIn(child.toObject());
    }
    return names;
}

/// Whether every sized group has a positive size for each child.
bool sizesMatchChildren(const QJsonObject& node)
{
    const QJsonArray children = node[QLatin1String("children")].toArray();
    const QJsonArray sizes = node[QLatin1String("sizes")].toArray();
    const bool sized = node[QLatin1String("type")].toString() == QLatin1String("group");
    const auto positive = [](const QJsonValue& size) { return size.toInt() > 0; };
    return (!sized || (sizes.size() == children.size() && !sizes.isEmpty()))
           && std::all_of(sizes.begin(), sizes.end(), positive)
           && std::all_of(children.begin(), children.end(), [](const QJsonValue& child) {
                  return sizesMatchChildren(child.toObject());
              });
}

} // namespace

/// The assets as a host ships them.
class AssetsTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void theThemeFileHasEveryColourThatIsAskedFor();
    void textIsReadableOnItsGrounds_data();
    void textIsReadableOnItsGrounds();
    void theStylesFontSizeIsTheFiles();
    void theFontIsTheOneShipped();
    void iconsTheLibraryNamesHaveTheirSizes_data();
    void iconsTheLibraryNamesHaveTheirSizes();
    void everyIconExistsAtBothResolutions();
    void theLayoutPlacesEachPanelOnce();

private:
    /// A palette role by its name in the file, or else a named colour, as widgets get them.
    QColor colour(const QString& name) const;

    VisualDesignDark* m_theme = nullptr;
};

void AssetsTest::initTestCase()
{
    m_theme = &ui::test::makeTheme<VisualDesignDark>(ui::test::assetsPath());
}

QColor AssetsTest::colour(const QString& name) const
{
    if (name == QLatin1String("HoveredRow")) { // as the style draws it in a list
        QColor highlight = m_theme->getColor(QStringLiteral("RowHighlight2"));
        highlight.setAlphaF(0.5F);
        return ui::test::over(highlight, m_theme->color(QPalette::Base));
    }
    bool isRole = false;
    const int role =
        QMetaEnum::fromType<QPalette::ColorRole>().keyToValue(name.toLatin1().constData(), &isRole);
    return isRole ? m_theme->color(QPalette::ColorRole(role)) : m_theme->getColor(name);
}

void AssetsTest::theThemeFileHasEveryColourThatIsAskedFor()
{
    const QJsonObject root = styleFile(QStringLiteral("theme.json"));
    const QJsonObject palette = root[QLatin1String("QPalette")].toObject();
    const QJsonObject colors = root[QLatin1String("colors")].toObject();
    const QString roles = QStringLiteral(
        "Window Base AlternateBase WindowText Text ToolTipBase ToolTipText Button ButtonText "
        "BrightText Link LinkVisited Highlight HighlightedText Light Midlight Mid Dark Shadow");
    const QString names = QStringLiteral(
        "WindowBase SubUIBackground TabBackground AppBackground ElementHeader Accent1 Accent2 "
        "Accent3 Accent4 Accent5 ConnectorAccent ConnectorAnchor HelperHints RowHighlight2 "
        "ViewportMask Red Yellow Blue Green Grey Black");
    for (const QString& role : roles.split(u' ')) {
        QVERIFY2(QColor::isValidColor(palette[role].toString()), qPrintable(role));
    }
    for (const QString& name : names.split(u' ')) {
        QVERIFY2(QColor::isValidColor(colors[name].toString()), qPrintable(name));
    }
}

void AssetsTest::textIsReadableOnItsGrounds_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("grounds");
    QTest::addColumn<double>("least");
    const QString panels = QStringLiteral(
        "Window Base AlternateBase Button WindowBase SubUIBackground TabBackground AppBackground "
        "ElementHeader Mid Midlight Dark Shadow RowHighlight2");
    const QString quiet = QStringLiteral(
        "Window Base AlternateBase WindowBase SubUIBackground TabBackground AppBackground "
        "ElementHeader Mid");
    for (const char* text : {"Text", "WindowText", "ButtonText"}) {
        QTest::newRow(text) << QString::fromLatin1(text) << panels << kReadable;
    }
    QTest::newRow("tool tip") << QStringLiteral("ToolTipText") << QStringLiteral("ToolTipBase Dark")
                              << kReadable;
    QTest::newRow("selected") << QStringLiteral("HighlightedText") << QStringLiteral("Highlight")
                              << kReadable;
    for (const char* text : {"Link", "LinkVisited", "HelperHints"}) {
        QTest::newRow(text) << QString::fromLatin1(text) << quiet << kReadable;
    }
    QTest::newRow("placeholder") << QStringLiteral("PlaceholderText")
                                 << QStringLiteral("Window Base AlternateBase Shadow") << kReadable;
    // Hidden layers and what is not drawn, in the studio's lists.
    for (const char* text : {"Text", "HelperHints", "Accent4"}) {
        QTest::addRow("%s in a list", text)
            << QString::fromLatin1(text) << QStringLiteral("Base HoveredRow") << kReadable;
    }
    // Keys, the playhead and curves on the grounds of the editors.
    for (const char* mark : {"Light", "Accent1", "Accent5", "Yellow", "Green", "Blue", "Grey"}) {
        QTest::newRow(mark) << QString::fromLatin1(mark) << QStringLiteral("Base WindowBase")
                            << kNoticeable;
    }
}

void AssetsTest::textIsReadableOnItsGrounds()
{
    QFETCH(QString, text);
    QFETCH(QString, grounds);
    QFETCH(double, least);
    for (const bool highContrast : {true, false}) {
        m_theme->setHighContrastMode(highContrast);
        m_theme->updatePalette();
        for (const QString& name : grounds.split(u' ')) {
            const QColor ground = colour(name);
            const double ratio = ui::test::contrast(ui::test::over(colour(text), ground), ground);
            QVERIFY2(
                ratio >= least,
                qPrintable(QStringLiteral("%1 on %2, high contrast %3: %4")
                               .arg(text, name)
                               .arg(highContrast)
                               .arg(ratio)));
        }
    }
}

void AssetsTest::theStylesFontSizeIsTheFiles()
{
    QCOMPARE(m_theme->getFont().pixelSize(), m_theme->getFontSize());
    QVERIFY(m_theme->getLargeFontSize() > m_theme->getFontSize());
}

void AssetsTest::theFontIsTheOneShipped()
{
    const QString family = m_theme->getFont().family();
    const QJsonArray fonts =
        styleFile(QStringLiteral("theme.json"))[QLatin1String("fonts")].toArray();
    QVERIFY(!fonts.isEmpty());
    for (const QJsonValue& font : fonts) {
        const QFileInfo file(font.toString());
        QVERIFY2(file.exists(), qPrintable(font.toString()));
        QVERIFY2(file.fileName().startsWith(family), qPrintable(file.fileName()));
    }
    // The registry knows files only: a copy that the system has installed does not count.
    const auto shipped = morrant::gFontRegistry.typefaces(family.toStdString());
    QCOMPARE(int(shipped.size()), fonts.size());
}

void AssetsTest::iconsTheLibraryNamesHaveTheirSizes_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QSize>("size");
    QTest::newRow("add button") << QStringLiteral("icons:addIcon.png") << QSize(18, 18);
    QTest::newRow("grip, lying") << QStringLiteral("icons:topDock.png") << QSize(22, 10);
    QTest::newRow("grip, standing") << QStringLiteral("icons:sideDock.png") << QSize(10, 22);
    QTest::newRow("scrub cursor") << QStringLiteral("icons:cursors/scrub.png") << QSize(24, 24);
    QTest::newRow("pan cursor") << QStringLiteral("icons:cursors/pan.png") << QSize(24, 24);
    QTest::newRow("grab cursor") << QStringLiteral("icons:cursors/pan-grab.png") << QSize(24, 24);
}

void AssetsTest::iconsTheLibraryNamesHaveTheirSizes()
{
    QFETCH(QString, path);
    QFETCH(QSize, size);
    const QPixmap pixmap = ui::getCachedPixmap(path);
    QCOMPARE(pixmap.deviceIndependentSize().toSize(), size);
    QCOMPARE(pixmap.devicePixelRatio(), qApp->devicePixelRatio());
}

void AssetsTest::everyIconExistsAtBothResolutions()
{
    int icons = 0;
    QDirIterator files(
        ui::test::assetsPath() + QStringLiteral("/Icons"),
        {QStringLiteral("*.png")},
        QDir::Files,
        QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = files.next();
        if (path.contains(u"@2x")) {
            continue;
        }
        ++icons;
        const QImage plain(path);
        const QImage dense(path.chopped(4) + QStringLiteral("@2x.png"));
        QVERIFY2(!plain.isNull() && !dense.isNull(), qPrintable(path));
        QCOMPARE(dense.size(), plain.size() * 2);
        const QImage empty = [&] {
            QImage image(plain.size(), plain.format());
            image.fill(Qt::transparent);
            return image;
        }();
        QVERIFY2(plain != empty, qPrintable(path));
    }
    QVERIFY(icons > 50);
}

void AssetsTest::theLayoutPlacesEachPanelOnce()
{
    const QJsonObject root =
        styleFile(QStringLiteral("layout.json"))[QLatin1String("root")].toObject();
    QStringList panels = panelsIn(root);
    panels.sort();
    const QString expected = QStringLiteral("graph inspector layers timeline viewport");
    QCOMPARE(panels.join(u' '), expected);
    QVERIFY(sizesMatchChildren(root));
}

namespace {
const ui::test::Registration<AssetsTest> kRegistration;
}

#include "tst_assets.moc"
