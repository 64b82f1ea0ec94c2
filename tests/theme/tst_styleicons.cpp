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

#include <initializer_list>
#include <utility>

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

const std::pair<const char*, DrawWithIcon> kControls[] = {
    {"button",
     [](const QStyle& style, const QIcon& icon, QPainter& painter) {
         auto option = optionAt<QStyleOptionButton>(kPlace);
         option.icon = icon;
         option.iconSize = QSize(16, 16);
         style.drawControl(QStyle::CE_PushButtonLabel, &option, &painter);
     }},
    {"tool button",
     [](const QStyle& style, const QIcon& icon, QPainter& painter) {
         auto option = optionAt<QStyleOptionToolButton>(kPlace);
         option.icon = icon;
         option.iconSize = QSize(16, 16);
         option.subControls = QStyle::SC_ToolButton;
         option.state |= QStyle::State_AutoRaise;
         style.drawComplexControl(QStyle::CC_ToolButton, &option, &painter);
     }},
    {"combo box",
     [](const QStyle& style, const QIcon& icon, QPainter& painter) {
         auto option = optionAt<QStyleOptionComboBox>(kPlace);
         option.currentIcon = icon;
         option.iconSize = QSize(16, 16);
         style.drawControl(QStyle::CE_ComboBoxLabel, &option, &painter);
     }},
    {"menu row",
     [](const QStyle& style, const QIcon& icon, QPainter& painter) {
         auto option = optionAt<QStyleOptionMenuItem>(kPlace);
         option.icon = icon;
         option.maxIconWidth = 16;
         style.drawControl(QStyle::CE_MenuItem, &option, &painter);
     }},
    {"list row", [](const QStyle& style, const QIcon& icon, QPainter& painter) {
         auto option = optionAt<QStyleOptionViewItem>(kPlace);
         option.features = QStyleOptionViewItem::HasDecoration;
         option.icon = icon;
         option.decorationSize = QSize(16, 16);
         option.decorationAlignment = Qt::AlignCenter;
         style.drawControl(QStyle::CE_ItemViewItem, &option, &painter);
     }}};

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
    void initTestCase()
    {
        m_palette = QApplication::palette();
        auto& theme = ui::test::makeTheme<VisualDesignDark>(ui::test::assetsPath());
        QApplication::setStyle(theme.createStyle());
    }

    void cleanupTestCase()
    {
        QApplication::setStyle(u"fusion"_qs);
        QApplication::setPalette(m_palette);
    }

    void iconsCoverWholeDevicePixels()
    {
        const QColor ground = style().standardPalette().color(QPalette::Window);
        for (const auto& [name, draw] : kControls) {
            for (const double ratio : {1.0, 1.25, 1.5, 2.0}) {
                QImage image(
                    (QSizeF(110, 40) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
                image.setDevicePixelRatio(ratio);
                image.fill(ground);
                QPainter painter(&image);
                draw(style(), stemIcon(), painter);
                painter.end();

                QRect inked;
                int partial = 0; // in the middle row
                for (int y = 0; y < image.height(); ++y) {
                    for (int x = 0; x < image.width(); ++x) {
                        const QColor seen = image.pixelColor(x, y);
                        if (ui::test::closeTo(seen, ratio > 1.0 ? kInk : kPlainInk, 3)) {
                            inked |= QRect(x, y, 1, 1);
                        } else if (y == qRound((kPlace.top() + kPlace.height() / 2) * ratio)) {
                            partial += ui::test::closeTo(seen, ground, 3) ? 0 : 1;
                        }
                    }
                }
                QVERIFY2(inked.size() == QSize(qRound(8 * ratio), qRound(16 * ratio)), name);
                QVERIFY2(partial == 0, name);
            }
        }
    }

    void disabledDocumentsAndDigitsAreFaint()
    {
        QLabel plain(u"HHH"_qs);
        QLabel rich(u"<b>HHH</b>"_qs);
        QLabel selectable(u"HHH"_qs);
        selectable.setTextInteractionFlags(Qt::TextSelectableByMouse);
        QLCDNumber digits;
        digits.setSegmentStyle(QLCDNumber::Flat);
        digits.setFrameShape(QFrame::NoFrame);
        digits.display(88888);
        for (QWidget* widget : std::initializer_list<QWidget*>{&plain, &rich, &selectable, &digits})
        {
            QFont font = widget->font();
            font.setPixelSize(40);
            widget->setFont(font);
            widget->resize(200, 60);
            const double enabled = strongestContrast(*widget);
            widget->setEnabled(false);
            const double disabled = strongestContrast(*widget);
            QVERIFY(disabled < enabled * 0.5);
            QVERIFY(disabled > 2.0); // faded once, not twice
        }
    }

    void unpolishingTakesEverythingBackButFromAMenuThatWasShown()
    {
        Style first(m_palette, 12, 15, false);
        Style second(m_palette, 12, 15, false);
        QMenu menu;
        QTabBar tabs;
        for (QWidget* widget : {static_cast<QWidget*>(&menu), static_cast<QWidget*>(&tabs)}) {
            const auto before = traitsOf(*widget);
            first.polish(widget);
            QVERIFY(traitsOf(*widget) != before);
            first.unpolish(widget);
            QVERIFY(traitsOf(*widget) == before);
        }
        menu.setAttribute(Qt::WA_TranslucentBackground); // what the owner wants stays
        first.polish(&menu);
        first.unpolish(&menu);
        QVERIFY(menu.testAttribute(Qt::WA_TranslucentBackground));

        QMenu shown;
        first.polish(&shown);
        shown.winId();
        const auto polished = traitsOf(shown);
        first.unpolish(&shown);
        second.polish(&shown);
        QVERIFY(traitsOf(shown) == polished);
    }

    void aTabKeepsWithinItsPaintersClip()
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

    void dialogsGetTheThemesPictures()
    {
        const QProxyStyle fusion(u"fusion"_qs);
        const QSize size(16, 16);
        for (const QStyle::StandardPixmap picture :
             {QStyle::SP_MessageBoxWarning,
              QStyle::SP_DirIcon,
              QStyle::SP_FileIcon,
              QStyle::SP_FileDialogNewFolder,
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

private:
    const QStyle& style() const { return *QApplication::style(); }

    QPalette m_palette; ///< of the application before
};

const ui::test::Registration<StyleIconsTest> kRegistration;

#include "tst_styleicons.moc"
