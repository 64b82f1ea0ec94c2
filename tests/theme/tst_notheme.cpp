#include "support/TestCase.h"
#include <MorrantUI/theme/colors.h>
#include <MorrantUI/theme/fonts.h>
#include <MorrantUI/theme/icons.h>
#include <MorrantUI/theme/preferences.h>

#include <QPixmapCache>

/// What widgets see in a host that has not built its theme yet.
class NoThemeTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void colorsAreOpaqueBlack();
    void fontAndPreferencesAreQtsDefaults();
    void iconsAreEmptyWithoutAWordAboutMissingFiles();
};

void NoThemeTest::colorsAreOpaqueBlack()
{
    QCOMPARE(ui::colorQt(QStringLiteral("Window")), QColor(Qt::black));
    QVERIFY(ui::color("Window") == Color(0xFF000000U));
    QCOMPARE(ui::windowBackground().rgba(), qRgb(0, 0, 0));
    QCOMPARE(ui::windowPassthroughBackground().rgba(), qRgb(0, 0, 0));
}

void NoThemeTest::fontAndPreferencesAreQtsDefaults()
{
    QCOMPARE(ui::font(), QFont());
    QVERIFY(!ui::themePreference(QStringLiteral("FontSize")).isValid());
}

void NoThemeTest::iconsAreEmptyWithoutAWordAboutMissingFiles()
{
    const QString missing = QStringLiteral("icons:none.png");
    QVERIFY(ui::getCachedIcon(missing).isNull());
    QVERIFY(ui::getCachedPixmap(missing).isNull());
    QVERIFY(!ui::iconExists(missing));

    // A pixmap that somebody else cached under the name is not handed out either.
    const QString cached = QStringLiteral("cached by the host");
    QPixmapCache::insert(cached, QPixmap(4, 4));
    QVERIFY(ui::getCachedPixmap(cached).isNull());
}

const ui::test::Registration<NoThemeTest> kRegistration(ui::test::RunOrder::First);

#include "tst_notheme.moc"
