#include "support/TestCase.h"
#include "support/paths.h"
#include "support/pixels.h"
#include "support/themes.h"
#include "theme/ApplicationLook.h"
#include "theme/contrast.h"
#include <MorrantUI/theme/Style.h>
#include <MorrantUI/theme/VisualDesignDark.h>
#include <MorrantUI/theme/palettes.h>

#include <QtWidgets>

#include <algorithm>
#include <limits>
#include <tuple>

using ui::test::pixelAt;
using ui::test::renderWidget;

namespace {

constexpr int kHuge = std::numeric_limits<int>::max();
constexpr int kTiny = std::numeric_limits<int>::min();

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
    QImage image((QSizeF(100, 32) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::black);
    QPainter painter(&image);
    if constexpr (std::is_same_v<Element, QStyle::PrimitiveElement>) {
        style().drawPrimitive(element, &option, &painter);
    } else if constexpr (std::is_same_v<Element, QStyle::ControlElement>) {
        style().drawControl(element, &option, &painter);
    } else {
        style().drawComplexControl(element, &option, &painter);
    }
    return image;
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

} // namespace

class StyleTest : public ui::test::TestCase
{
    Q_OBJECT

public:
    StyleTest() { m_theme.applyAppStyle(); }

private Q_SLOTS:
    void controlsStandOutFromAPanelThatHandsItsGroundDown()
    {
        QWidget panel;
        ui::setWidgetBackground(&panel, m_theme.getColor(u"Window"_qs));
        QPushButton button(&panel);
        QLineEdit field(&panel);
        const auto ground = [](QWidget& widget) {
            widget.resize(60, 24);
            return pixelAt(renderWidget(widget), {30, 12});
        };
        QCOMPARE(ground(button), m_theme.getColor(u"Button"_qs));
        QCOMPARE(ground(field), m_theme.getColor(u"Base"_qs));
        ui::setWidgetBackground(&button, Qt::red);
        QCOMPARE(ground(button), QColor(Qt::red));
    }

    void aFieldShowsItsFocusAndOthersOnlyThatOfTheKeyboard()
    {
        QVERIFY(onlyTheKeyboardRings<QStyleOptionButton>(QStyle::CE_PushButton));
        QVERIFY(onlyTheKeyboardRings<QStyleOptionButton>(QStyle::CE_CheckBox));
        QVERIFY(onlyTheKeyboardRings<QStyleOptionButton>(QStyle::CE_RadioButton));
        QVERIFY(
            onlyTheKeyboardRings<QStyleOptionTab>(QStyle::CE_TabBarTab, QStyle::State_Selected));
        QVERIFY(onlyTheKeyboardRings<QStyleOptionComboBox>(QStyle::CC_ComboBox));
        QVERIFY(onlyTheKeyboardRings<QStyleOptionSlider>(QStyle::CC_Slider));
        QVERIFY(onlyTheKeyboardRings<QStyleOptionToolButton>(
            QStyle::CC_ToolButton, QStyle::State_AutoRaise));

        auto option = enabledOption<QStyleOptionFrame>();
        option.lineWidth = 1;
        const QColor accent = m_theme.getColor(u"Accent1"_qs);
        for (const bool focused : {false, true}) {
            option.state.setFlag(QStyle::State_HasFocus, focused);
            const QColor edge = pixelAt(pictureOf(QStyle::PE_PanelLineEdit, option), {50, 0});
            QCOMPARE(ui::test::closeTo(edge, accent, 20), focused);
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
        const QList<QWidget*> widgets{&field, &check, &iconButton, &spin, &list, &slider};
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
                QVERIFY(ui::test::contrast(m_theme.color(role), pixelAt(image, {30, 12})) >= 4.5);
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
                QVERIFY(
                    first != last && first.width() + first.height() >= 10 + 20); // to be grabbed
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

private:
    const ui::test::ApplicationLook m_look;
    VisualDesignDark& m_theme = ui::test::makeTheme<VisualDesignDark>(ui::test::assetsPath());
};

const ui::test::Registration<StyleTest> kRegistration;

#include "tst_style.moc"
