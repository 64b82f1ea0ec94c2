#include "support/TestCase.h"
#include "support/paths.h"
#include "support/pixels.h"
#include "support/themes.h"
#include "theme/contrast.h"
#include <MorrantUI/theme/Style.h>
#include <MorrantUI/theme/VisualDesignDark.h>

#include <QLCDNumber>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleOption>
#include <QTabBar>

#include <functional>

namespace {

constexpr QStyle::State kEnabled = QStyle::State_Enabled | QStyle::State_Active;
constexpr QRect kPlace(3, 5, 90, 22); ///< off the pixel grid at ratios 1.25 and 1.5
constexpr QColor kInk(255, 60, 0);
constexpr QColor kPlainInk(0, 60, 255); ///< of the pixels for ratio 1

/// 16 logical pixels square with a stem over the middle half, which is whole pixels at any ratio
/// that has them for a quarter of the icon. Its pixels for ratio 1 are of another colour, and must
/// not be enlarged.
QIcon stemIcon()
{
    QPixmap plain(16, 16);
    plain.fill(Qt::transparent);
    QPainter(&plain).fillRect(4, 0, 8, 16, kPlainInk);
    QPixmap pixmap(32, 32);
    pixmap.setDevicePixelRatio(2.0);
    pixmap.fill(Qt::transparent);
    QPainter(&pixmap).fillRect(4, 0, 8, 16, kInk);
    QIcon icon(plain);
    icon.addPixmap(pixmap);
    return icon;
}

template <typename Option>
Option optionAt(const QRect& rect)
{
    Option option;
    option.palette = QApplication::style()->standardPalette();
    option.rect = rect;
    option.state = kEnabled;
    return option;
}

/// Draws one control that shows the icon and nothing else.
using DrawWithIcon = void (*)(const QStyle& style, const QIcon& icon, QPainter& painter);

void drawButton(const QStyle& style, const QIcon& icon, QPainter& painter)
{
    auto option = optionAt<QStyleOptionButton>(kPlace);
    option.icon = icon;
    option.iconSize = QSize(16, 16);
    style.drawControl(QStyle::CE_PushButtonLabel, &option, &painter);
}

void drawToolButton(const QStyle& style, const QIcon& icon, QPainter& painter)
{
    auto option = optionAt<QStyleOptionToolButton>(kPlace);
    option.icon = icon;
    option.iconSize = QSize(16, 16);
    option.subControls = QStyle::SC_ToolButton;
    option.state |= QStyle::State_AutoRaise;
    style.drawComplexControl(QStyle::CC_ToolButton, &option, &painter);
}

void drawComboBox(const QStyle& style, const QIcon& icon, QPainter& painter)
{
    auto option = optionAt<QStyleOptionComboBox>(kPlace);
    option.currentIcon = icon;
    option.iconSize = QSize(16, 16);
    option.subControls = QStyle::SC_All;
    style.drawControl(QStyle::CE_ComboBoxLabel, &option, &painter);
}

void drawMenuRow(const QStyle& style, const QIcon& icon, QPainter& painter)
{
    auto option = optionAt<QStyleOptionMenuItem>(kPlace);
    option.icon = icon;
    option.maxIconWidth = 16;
    style.drawControl(QStyle::CE_MenuItem, &option, &painter);
}

void drawListRow(const QStyle& style, const QIcon& icon, QPainter& painter)
{
    auto option = optionAt<QStyleOptionViewItem>(kPlace);
    option.features = QStyleOptionViewItem::HasDecoration;
    option.icon = icon;
    option.decorationSize = QSize(16, 16);
    option.decorationAlignment = Qt::AlignCenter;
    style.drawControl(QStyle::CE_ItemViewItem, &option, &painter);
}

double strongestContrast(QWidget& widget)
{
    const QColor ground = widget.palette().color(QPalette::Window);
    const QImage image = ui::test::renderWidget(widget);
    double strongest = 1.0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor seen = ui::test::over(image.pixelColor(x, y), ground);
            strongest = std::max(strongest, ui::test::contrast(seen, ground));
        }
    }
    return strongest;
}

/// What polish() may change of a widget.
std::tuple<Qt::WindowFlags, bool, bool, bool> traitsOf(const QWidget& widget)
{
    return {
        widget.windowFlags(),
        widget.testAttribute(Qt::WA_TranslucentBackground),
        widget.testAttribute(Qt::WA_NoSystemBackground),
        widget.testAttribute(Qt::WA_Hover)};
}

} // namespace

/// How the style treats what is not its own drawing: icons, and widgets that paint by themselves.
class StyleIconsTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void iconsCoverWholeDevicePixels_data();
    void iconsCoverWholeDevicePixels();
    void disabledDocumentsAndDigitsAreFaint_data();
    void disabledDocumentsAndDigitsAreFaint();
    void unpolishingTakesEverythingBack();
    void aMenuThatWasShownIsTranslucentUnderTheNextStyleToo();
    void aTabKeepsWithinItsPaintersClip();
    void dialogsGetTheThemesPictures();

private:
    const QStyle& style() const { return *QApplication::style(); }

    QPalette m_palette; ///< of the application before
};

void StyleIconsTest::initTestCase()
{
    m_palette = QApplication::palette();
    auto& theme = ui::test::makeTheme<VisualDesignDark>(ui::test::assetsPath());
    QApplication::setStyle(theme.createStyle());
}

void StyleIconsTest::cleanupTestCase()
{
    QApplication::setStyle(QStringLiteral("fusion"));
    QApplication::setPalette(m_palette);
}

void StyleIconsTest::iconsCoverWholeDevicePixels_data()
{
    QTest::addColumn<DrawWithIcon>("draw");
    QTest::addColumn<double>("ratio");
    const std::pair<const char*, DrawWithIcon> controls[] = {
        {"button", drawButton},
        {"tool button", drawToolButton},
        {"combo box", drawComboBox},
        {"menu row", drawMenuRow},
        {"list row", drawListRow}};
    for (const auto& [name, draw] : controls) {
        for (const double ratio : {1.0, 1.25, 1.5, 2.0}) {
            QTest::addRow("%s at %g", name, ratio) << draw << ratio;
        }
    }
}

void StyleIconsTest::iconsCoverWholeDevicePixels()
{
    QFETCH(DrawWithIcon, draw);
    QFETCH(double, ratio);
    const QColor ink = ratio > 1.0 ? kInk : kPlainInk;
    const QColor ground = style().standardPalette().color(QPalette::Window);
    QImage image((QSizeF(110, 40) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(ground);
    QPainter painter(&image);
    draw(style(), stemIcon(), painter);
    painter.end();

    const int middle = qRound((kPlace.top() + kPlace.height() / 2) * ratio);
    int full = 0;
    int partial = 0;
    for (int x = 0; x < image.width(); ++x) {
        const QColor seen = image.pixelColor(x, middle);
        const bool inked = ui::test::closeTo(seen, ink, 3);
        full += inked ? 1 : 0;
        partial += !inked && !ui::test::closeTo(seen, ground, 3) ? 1 : 0;
    }
    QCOMPARE(full, qRound(8 * ratio));
    QCOMPARE(partial, 0);
    int high = 0;
    for (int y = 0; y < image.height(); ++y) {
        int across = 0;
        for (int x = 0; x < image.width(); ++x) {
            across += ui::test::closeTo(image.pixelColor(x, y), ink, 3) ? 1 : 0;
        }
        high += across > 0 ? 1 : 0;
    }
    QCOMPARE(high, qRound(16 * ratio));
}

void StyleIconsTest::disabledDocumentsAndDigitsAreFaint_data()
{
    QTest::addColumn<std::function<QWidget*()>>("make");
    const auto label = [](const QString& text, Qt::TextInteractionFlags flags) {
        return std::function<QWidget*()>([=] {
            auto* made = new QLabel(text);
            made->setTextInteractionFlags(flags);
            return made;
        });
    };
    QTest::newRow("plain label") << label(QStringLiteral("HHH"), Qt::NoTextInteraction);
    QTest::newRow("rich label") << label(QStringLiteral("<b>HHH</b>"), Qt::NoTextInteraction);
    QTest::newRow("selectable label") << label(QStringLiteral("HHH"), Qt::TextSelectableByMouse);
    QTest::newRow("digits") << std::function<QWidget*()>([] {
        auto* digits = new QLCDNumber;
        digits->setSegmentStyle(QLCDNumber::Flat);
        digits->setFrameShape(QFrame::NoFrame);
        digits->display(88888);
        return digits;
    });
}

void StyleIconsTest::disabledDocumentsAndDigitsAreFaint()
{
    QFETCH(std::function<QWidget*()>, make);
    const std::unique_ptr<QWidget> widget(make());
    QFont font = widget->font();
    font.setPixelSize(40);
    widget->setFont(font);
    widget->resize(200, 60);
    const double enabled = strongestContrast(*widget);
    widget->setEnabled(false);
    const double disabled = strongestContrast(*widget);
    QVERIFY2(disabled < enabled * 0.5, qPrintable(QString::number(disabled)));
    QVERIFY2(disabled > 2.0, qPrintable(QString::number(disabled))); // faded once, not twice
}

void StyleIconsTest::unpolishingTakesEverythingBack()
{
    Style made(m_palette, 12, 15, false);
    QMenu menu;
    QTabBar tabs;
    QWidget* const widgets[] = {&menu, &tabs};
    for (QWidget* widget : widgets) {
        const auto before = traitsOf(*widget);
        made.polish(widget);
        QVERIFY(traitsOf(*widget) != before);
        made.unpolish(widget);
        QVERIFY(traitsOf(*widget) == before);
    }
    menu.setAttribute(Qt::WA_TranslucentBackground); // what the owner wants stays
    made.polish(&menu);
    made.unpolish(&menu);
    QVERIFY(menu.testAttribute(Qt::WA_TranslucentBackground));
}

void StyleIconsTest::aMenuThatWasShownIsTranslucentUnderTheNextStyleToo()
{
    Style first(m_palette, 12, 15, false);
    Style second(m_palette, 12, 15, false);
    QMenu menu;
    first.polish(&menu);
    menu.winId();
    const auto polished = traitsOf(menu);
    first.unpolish(&menu);
    second.polish(&menu);
    QVERIFY(traitsOf(menu) == polished);
}

void StyleIconsTest::aTabKeepsWithinItsPaintersClip()
{
    auto option = optionAt<QStyleOptionTab>({0, 0, 80, 26});
    option.state |=
        QStyle::State_Selected | QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange;
    QImage image(80, 26, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    painter.setClipRect(0, 0, 40, 26);
    style().drawControl(QStyle::CE_TabBarTabShape, &option, &painter);
    QCOMPARE(painter.clipBoundingRect(), QRectF(0, 0, 40, 26));
    painter.end();
    QVERIFY(image.pixelColor(20, 2) != QColor(Qt::magenta));
    for (int y = 0; y < image.height(); ++y) {
        QCOMPARE(image.pixelColor(60, y), QColor(Qt::magenta));
    }
}

void StyleIconsTest::dialogsGetTheThemesPictures()
{
    const QProxyStyle fusion(QStringLiteral("fusion"));
    const QSize size(16, 16);
    for (const QStyle::StandardPixmap picture :
         {QStyle::SP_MessageBoxInformation,
          QStyle::SP_MessageBoxQuestion,
          QStyle::SP_MessageBoxWarning,
          QStyle::SP_MessageBoxCritical,
          QStyle::SP_DirIcon,
          QStyle::SP_DirHomeIcon,
          QStyle::SP_FileIcon,
          QStyle::SP_DriveHDIcon,
          QStyle::SP_FileDialogToParent,
          QStyle::SP_FileDialogNewFolder,
          QStyle::SP_FileDialogListView,
          QStyle::SP_FileDialogDetailedView,
          QStyle::SP_ArrowUp,
          QStyle::SP_LineEditClearButton})
    {
        const QImage own = style().standardIcon(picture).pixmap(size).toImage();
        QVERIFY2(!own.isNull(), qPrintable(QString::number(picture)));
        QVERIFY(own != fusion.standardIcon(picture).pixmap(size).toImage());
    }
    QStyleOption mirrored;
    mirrored.direction = Qt::RightToLeft;
    const auto seen = [&](QStyle::StandardPixmap picture, const QStyleOption* option) {
        return style().standardIcon(picture, option).pixmap(size).toImage();
    };
    QCOMPARE(seen(QStyle::SP_ArrowBack, nullptr), seen(QStyle::SP_ArrowLeft, nullptr));
    QCOMPARE(seen(QStyle::SP_ArrowBack, &mirrored), seen(QStyle::SP_ArrowRight, &mirrored));
    QCOMPARE(style().styleHint(QStyle::SH_DialogButtonBox_ButtonsHaveIcons), 0);
}

namespace {
const ui::test::Registration<StyleIconsTest> kRegistration;
}

#include "tst_styleicons.moc"
