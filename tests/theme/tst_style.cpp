// SPDX-License-Identifier: Apache-2.0
#include "controls/StyledApplication.h"
#include "theme/contrast.h"
#include <MorrantUI/MorrantUI.h>

using namespace ui::test;

namespace {

constexpr int kHuge = std::numeric_limits<int>::max();
constexpr int kTiny = std::numeric_limits<int>::min();
constexpr QRect kPlace(3, 5, 90, 22); ///< off the pixel grid at ratios 1.25 and 1.5
constexpr QColor kInk(255, 60, 0);
constexpr QColor kPlainInk(0, 60, 255); ///< of the pixels for ratio 1

const QStyle& style()
{
    return *QApplication::style();
}

/// An option in the application's palette.
template <typename Option>
Option enabledOption(QStyle::State state = {}, const QRect& rect = {0, 0, 100, 20})
{
    Option option;
    option.rect = rect;
    option.state = QStyle::State_Enabled | QStyle::State_Active | state;
    return option;
}

/// An element drawn on black.
template <typename Element, typename Option>
QImage pictureOf(Element element, const Option& option, double ratio = 1.0)
{
    return drawn({100, 32}, ratio, Qt::black, [&](QPainter& painter) {
        if constexpr (std::is_same_v<Element, QStyle::PrimitiveElement>) {
            style().drawPrimitive(element, &option, &painter);
        } else if constexpr (std::is_same_v<Element, QStyle::ControlElement>) {
            style().drawControl(element, &option, &painter);
        } else {
            style().drawComplexControl(element, &option, &painter);
        }
    });
}

/// The device pixels along a row or column that are not black.
QList<QRgb> inkAlong(const QImage& image, bool row, int at)
{
    QList<QRgb> ink;
    for (int i = 0; i < (row ? image.width() : image.height()); ++i) {
        ink << (row ? image.pixel(i, at) : image.pixel(at, i));
    }
    ink.removeAll(qRgb(0, 0, 0));
    return ink;
}

template <typename Option, typename Element>
bool onlyTheKeyboardRings(Element element, QStyle::State more = {})
{
    const auto picture = [=](QStyle::State state) {
        return pictureOf(element, enabledOption<Option>(state | more));
    };
    const QStyle::State focus = QStyle::State_HasFocus;
    return picture({}) == picture(focus)
           && picture({}) != picture(focus | QStyle::State_KeyboardFocusChange);
}

/// The brightness of a widget's brightest pixel on black, 0 to 255.
int brightest(QWidget& widget)
{
    QImage image = renderWidget(widget);
    image.reinterpretAsFormat(QImage::Format_RGB32); // premultiplied
    image.convertTo(QImage::Format_Grayscale8);
    return *std::max_element(image.constBits(), image.constBits() + image.sizeInBytes());
}

/// 16 logical pixels square with a stem over the middle half, which is whole pixels at any ratio
/// that has them for a quarter of the icon. Its pixels for ratio 1 are of another colour, and must
/// not be enlarged.
QIcon stemIcon()
{
    QIcon icon;
    for (const auto& [ratio, ink] : {std::pair(1.0, kPlainInk), {2.0, kInk}}) {
        const auto draw = [ink = ink](QPainter& painter) { painter.fillRect(4, 0, 8, 16, ink); };
        icon.addPixmap(QPixmap::fromImage(drawn({16, 16}, ratio, Qt::transparent, draw)));
    }
    return icon;
}

/// Draws one control that shows the icon and nothing else.
using DrawWithIcon = void (*)(const QIcon& icon, QPainter& painter);

const std::pair<const char*, DrawWithIcon> kControls[] = {
    {"button",
     [](const QIcon& icon, QPainter& painter) {
         auto option = enabledOption<QStyleOptionButton>({}, kPlace);
         option.icon = icon;
         option.iconSize = QSize(16, 16);
         style().drawControl(QStyle::CE_PushButtonLabel, &option, &painter);
     }},
    {"tool button",
     [](const QIcon& icon, QPainter& painter) {
         auto option = enabledOption<QStyleOptionToolButton>(QStyle::State_AutoRaise, kPlace);
         option.icon = icon;
         option.iconSize = QSize(16, 16);
         option.subControls = QStyle::SC_ToolButton;
         style().drawComplexControl(QStyle::CC_ToolButton, &option, &painter);
     }},
    {"combo box",
     [](const QIcon& icon, QPainter& painter) {
         auto option = enabledOption<QStyleOptionComboBox>({}, kPlace);
         option.currentIcon = icon;
         option.iconSize = QSize(16, 16);
         style().drawControl(QStyle::CE_ComboBoxLabel, &option, &painter);
     }},
    {"menu row",
     [](const QIcon& icon, QPainter& painter) {
         auto option = enabledOption<QStyleOptionMenuItem>({}, kPlace);
         option.icon = icon;
         option.maxIconWidth = 16;
         style().drawControl(QStyle::CE_MenuItem, &option, &painter);
     }},
    {"list row", [](const QIcon& icon, QPainter& painter) {
         auto option = enabledOption<QStyleOptionViewItem>({}, kPlace);
         option.features = QStyleOptionViewItem::HasDecoration;
         option.icon = icon;
         option.decorationSize = QSize(16, 16);
         option.decorationAlignment = Qt::AlignCenter;
         style().drawControl(QStyle::CE_ItemViewItem, &option, &painter);
     }}};

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

class StyleTest : public StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void controlsStandOutFromAPanelThatHandsItsGroundDown()
    {
        QWidget panel;
        ui::setWidgetBackground(&panel, theme().getColor(u"Window"_qs));
        QPushButton button(&panel);
        QLineEdit field(&panel);
        const auto ground = [](QWidget& widget) {
            widget.resize(60, 24);
            return pixelAt(renderWidget(widget), {30, 12});
        };
        QCOMPARE(ground(button), theme().getColor(u"Button"_qs));
        QCOMPARE(ground(field), theme().getColor(u"Base"_qs));
        ui::setWidgetBackground(&button, Qt::red);
        QCOMPARE(ground(button), QColor(Qt::red));
    }

    void aFieldShowsItsFocusAndOthersOnlyThatOfTheKeyboard()
    {
        for (const auto button :
             {QStyle::CE_PushButton, QStyle::CE_CheckBox, QStyle::CE_RadioButton}) {
            QVERIFY(onlyTheKeyboardRings<QStyleOptionButton>(button));
        }
        const auto selected = QStyle::State_Selected;
        QVERIFY(onlyTheKeyboardRings<QStyleOptionTab>(QStyle::CE_TabBarTab, selected));
        QVERIFY(onlyTheKeyboardRings<QStyleOptionComboBox>(QStyle::CC_ComboBox));
        QVERIFY(onlyTheKeyboardRings<QStyleOptionSlider>(QStyle::CC_Slider));
        const auto raised = QStyle::State_AutoRaise;
        QVERIFY(onlyTheKeyboardRings<QStyleOptionToolButton>(QStyle::CC_ToolButton, raised));

        auto option = enabledOption<QStyleOptionFrame>();
        option.lineWidth = 1;
        const QColor accent = theme().getColor(u"Accent1"_qs);
        for (const bool focused : {false, true}) {
            option.state.setFlag(QStyle::State_HasFocus, focused);
            const QColor edge = pixelAt(pictureOf(QStyle::PE_PanelLineEdit, option), {50, 0});
            QCOMPARE(closeTo(edge, accent, 20), focused);
        }
    }

    void whatIsDisabledIsFaint()
    {
        QLineEdit field(u"MMMM"_qs);
        QCheckBox check;
        check.setChecked(true);
        QToolButton iconButton;
        QPixmap icon(16, 16);
        icon.fill(Qt::white);
        iconButton.setIcon(icon);
        QSpinBox spin;
        QListWidget list;
        list.addItem(u"MMMM"_qs);
        QSlider slider(Qt::Horizontal);
        QLabel rich(u"<b>MMM</b>"_qs);
        QLabel selectable(u"MMM"_qs);
        selectable.setTextInteractionFlags(Qt::TextSelectableByMouse);
        QLCDNumber digits;
        digits.setSegmentStyle(QLCDNumber::Flat);
        digits.display(88888);
        const QList<QWidget*> widgets{
            &field, &check, &iconButton, &spin, &list, &slider, &rich, &selectable, &digits};
        for (QWidget* widget : widgets) {
            widget->resize(120, 40);
            const int enabled = brightest(*widget);
            widget->setEnabled(false);
            const double share = double(brightest(*widget)) / enabled;
            QVERIFY2(share > 0.2 && share < 0.6, widget->metaObject()->className());
        }
    }

    void buttonTextStaysReadableInEveryState()
    {
        for (const auto state :
             {QStyle::State_None, QStyle::State_On, QStyle::State_MouseOver, QStyle::State_Sunken})
        {
            for (const auto role : {QPalette::ButtonText, QPalette::HighlightedText}) {
                auto option = enabledOption<QStyleOptionButton>(state);
                const bool isDefault = role == QPalette::HighlightedText;
                option.features.setFlag(QStyleOptionButton::DefaultButton, isDefault);
                const QImage image = pictureOf(QStyle::CE_PushButtonBevel, option);
                QVERIFY(contrast(theme().color(role), pixelAt(image, {30, 12})) >= 4.5);
            }
        }
    }

    void linesCoverWholeDevicePixels()
    {
        // An odd origin, so that edges fall between device pixels at fractional ratios.
        auto option = enabledOption<QStyleOptionFrame>({}, {3, 5, 41, 21});
        option.lineWidth = 1;
        for (const double ratio : {1.0, 1.25, 1.5, 1.75, 2.0, 3.0}) {
            const QImage frame = pictureOf(QStyle::PE_FrameLineEdit, option, ratio);
            for (const bool row : {true, false}) {
                const QList<QRgb> ink = inkAlong(frame, row, int((row ? 15 : 23) * ratio));
                QCOMPARE(ink, QList<QRgb>(2 * int(ratio), ink.value(0)));
            }
        }
    }

    void aHostDrawsWithTheStylesVerbs()
    {
        const QColor accent = theme().getColor(u"Accent1"_qs);
        const auto drawnBy = [](const auto& draw) {
            return drawn({100, 32}, 2.0, Qt::black, [&draw](QPainter& painter) {
                painter.translate(4, 4);
                const QTransform before = painter.transform();
                draw(painter);
                QCOMPARE(painter.transform(), before);
            });
        };
        const QImage chequer = drawnBy([](QPainter& painter) {
            ui::fillChequer(painter, {0, 0, 16, 16});
        });
        QVERIFY(pixelAt(chequer, {5, 5}) != pixelAt(chequer, {9, 5}));
        QCOMPARE(pixelAt(chequer, {5, 5}), pixelAt(chequer, {9, 9}));
        const QImage wash = drawnBy([](QPainter& painter) {
            ui::drawHoverWash(painter, {0, 0, 40, 20});
        });
        QColor quiet = theme().getColor(u"RowHighlight2"_qs);
        quiet.setAlphaF(0.5F);
        QVERIFY(closeTo(pixelAt(wash, {20, 10}), over(quiet, Qt::black)));
        for (const auto edge : {Qt::TopEdge, Qt::LeftEdge, Qt::RightEdge, Qt::BottomEdge}) {
            const QImage line = drawnBy([edge](QPainter& painter) {
                ui::drawSelectionEdge(painter, {0, 0, 40, 20}, edge);
            });
            const QList<std::pair<Qt::Edge, QPointF>> middles{
                {Qt::TopEdge, {24, 5}},
                {Qt::LeftEdge, {5, 14}},
                {Qt::RightEdge, {43, 14}},
                {Qt::BottomEdge, {24, 23}}};
            for (const auto& [side, middle] : middles) {
                QCOMPARE(pixelAt(line, middle) == accent, side == edge);
            }
        }
        const QImage down = drawnBy([](QPainter& painter) {
            ui::drawDropMark(painter, {10, 0}, {10, 20});
        });
        const QImage left = drawnBy([](QPainter& painter) {
            ui::drawDropMark(painter, {40, 9}, {0, 9});
        });
        QCOMPARE(inkAlong(down, true, 2 * 22).size(), 4); // 2 pixels at ratio 2
        QVERIFY(inkAlong(down, true, 2 * 7).size() > 8);  // the dot
        QCOMPARE(inkAlong(left, false, 2 * 8).size(), 4);
        QVERIFY(inkAlong(left, false, 2 * 41).size() > 8);
    }

    void scrollBarHandlesReachBothEndsWithoutArrowButtons()
    {
        auto lying = enabledOption<QStyleOptionSlider>({}, {7, 3, 200, 10});
        auto mirrored = lying;
        mirrored.direction = Qt::RightToLeft;
        auto standing = enabledOption<QStyleOptionSlider>({}, {7, 3, 10, 200});
        standing.orientation = Qt::Vertical;
        const std::tuple<int, int, int> ranges[] = {
            {0, 300, 100}, {-5, 5, 0}, {0, 1000000, 1}, {kTiny, kHuge, kHuge}};
        for (QStyleOptionSlider option : {lying, mirrored, standing}) {
            const auto part = [&](QStyle::SubControl control) {
                return style().subControlRect(QStyle::CC_ScrollBar, &option, control);
            };
            QVERIFY(part(QStyle::SC_ScrollBarAddLine).isEmpty());
            QVERIFY(part(QStyle::SC_ScrollBarSubLine).isEmpty());
            for (const auto& [minimum, maximum, page] : ranges) {
                option.minimum = option.sliderPosition = minimum;
                option.maximum = maximum;
                option.pageStep = page;
                const QRect first = part(QStyle::SC_ScrollBarSlider);
                QCOMPARE(first | part(QStyle::SC_ScrollBarAddPage), option.rect);
                option.sliderPosition = maximum;
                const QRect last = part(QStyle::SC_ScrollBarSlider);
                QCOMPARE(part(QStyle::SC_ScrollBarSubPage) | last, option.rect);
                const bool fromRight = option.direction == Qt::RightToLeft;
                QCOMPARE((fromRight ? last : first).topLeft(), option.rect.topLeft());
                QCOMPARE((fromRight ? first : last).bottomRight(), option.rect.bottomRight());
                QVERIFY(first != last);
                QVERIFY(first.width() + first.height() >= 10 + 20); // to be grabbed
            }
        }
    }

    void progressFillsItsShare()
    {
        const std::tuple<int, int, int, int> cases[] = {
            {-40, 40, -20, 25}, {0, 100, -1, 0}, {0, 100, 250, 100}, {kTiny, kHuge, 0, 50}};
        auto option = enabledOption<QStyleOptionProgressBar>(QStyle::State_Horizontal);
        for (const auto& [minimum, maximum, value, expected] : cases) {
            option.minimum = minimum;
            option.maximum = maximum;
            option.progress = value;
            const QImage image = pictureOf(QStyle::CE_ProgressBarContents, option);
            QCOMPARE(inkAlong(image, true, 10).size(), expected);
        }
    }

    void iconsCoverWholeDevicePixels()
    {
        const QColor ground = theme().color(QPalette::Window);
        for (const auto& [name, draw] : kControls) {
            for (const double ratio : {1.0, 1.25, 1.5, 2.0}) {
                const QImage image =
                    drawn({110, 40}, ratio, ground, [&draw = draw](QPainter& painter) {
                        draw(stemIcon(), painter);
                    });
                QRect inked;
                int partial = 0; // in the middle row
                for (int y = 0; y < image.height(); ++y) {
                    for (int x = 0; x < image.width(); ++x) {
                        const QColor seen = image.pixelColor(x, y);
                        if (closeTo(seen, ratio > 1.0 ? kInk : kPlainInk, 3)) {
                            inked |= QRect(x, y, 1, 1);
                        } else if (y == qRound((kPlace.top() + kPlace.height() / 2) * ratio)) {
                            partial += closeTo(seen, ground, 3) ? 0 : 1;
                        }
                    }
                }
                QVERIFY2(inked.size() == QSize(qRound(8 * ratio), qRound(16 * ratio)), name);
                QVERIFY2(partial == 0, name);
            }
        }
    }

    void unpolishingTakesEverythingBackButFromAMenuThatWasShown()
    {
        Style first(theme().getPalette(), 12, 15, false);
        Style second(theme().getPalette(), 12, 15, false);
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
        const auto option = enabledOption<QStyleOptionTab>(
            QStyle::State_Selected | QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange,
            {0, 0, 80, 26});
        const QImage image = drawn({80, 26}, 1.0, Qt::magenta, [&option](QPainter& painter) {
            painter.setClipRect(0, 0, 40, 26);
            style().drawControl(QStyle::CE_TabBarTabShape, &option, &painter);
            QCOMPARE(painter.clipBoundingRect(), QRectF(0, 0, 40, 26));
        });
        QVERIFY(image.pixelColor(20, 2) != QColor(Qt::magenta));
        for (int y = 0; y < image.height(); ++y) {
            QCOMPARE(image.pixelColor(60, y), QColor(Qt::magenta));
        }
    }

    void dialogsGetTheThemesPictures()
    {
        const QProxyStyle fusion(u"fusion"_qs);
        const auto seen = [](const QStyle& from, auto picture) {
            return from.standardIcon(picture).pixmap(QSize(16, 16)).toImage();
        };
        for (const auto picture :
             {QStyle::SP_MessageBoxWarning,
              QStyle::SP_DirIcon,
              QStyle::SP_FileIcon,
              QStyle::SP_FileDialogNewFolder,
              QStyle::SP_ArrowUp,
              QStyle::SP_LineEditClearButton})
        {
            const QImage own = seen(style(), picture);
            QVERIFY2(!own.isNull() && own != seen(fusion, picture), QByteArray::number(picture));
        }
    }
};

const Registration<StyleTest> kRegistration;

#include "tst_style.moc"
