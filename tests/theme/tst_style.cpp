#include "support/TestCase.h"
#include "support/paths.h"
#include "support/pixels.h"
#include "support/themes.h"
#include "theme/contrast.h"
#include <MorrantUI/theme/Style.h>
#include <MorrantUI/theme/VisualDesignDark.h>
#include <MorrantUI/theme/palettes.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSlider>
#include <QSpinBox>
#include <QStyleOption>
#include <QToolButton>
#include <QToolTip>
#include <QTreeWidget>

#include <functional>
#include <limits>
#include <set>

namespace {

constexpr int kHuge = std::numeric_limits<int>::max();
constexpr int kTiny = std::numeric_limits<int>::min();

using Draw = std::function<void(QPainter&)>;

QImage drawn(QSize size, double ratio, const QColor& ground, const Draw& draw)
{
    QImage image((QSizeF(size) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(ground);
    QPainter painter(&image);
    draw(painter);
    return image;
}

/// The strongest contrast to the ground among a widget's pixels.
double strongestContrast(QWidget& widget)
{
    const QColor ground = widget.palette().color(QPalette::Window);
    QImage image = ui::test::renderWidget(widget);
    double strongest = 1.0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor seen = ui::test::over(image.pixelColor(x, y), ground);
            strongest = std::max(strongest, ui::test::contrast(seen, ground));
        }
    }
    return strongest;
}

template <typename Option>
Option optionWith(const QPalette& palette, const QRect& rect, QStyle::State state)
{
    Option option;
    option.palette = palette;
    option.rect = rect;
    option.state = state;
    return option;
}

std::set<QRgb> coloursAlong(const QImage& image, bool row, int at)
{
    std::set<QRgb> colours;
    for (int i = 0; i < (row ? image.width() : image.height()); ++i) {
        colours.insert(row ? image.pixel(i, at) : image.pixel(at, i));
    }
    return colours;
}

int countAlong(const QImage& image, bool row, int at, const QColor& other)
{
    int count = 0;
    for (int i = 0; i < (row ? image.width() : image.height()); ++i) {
        count += (row ? image.pixel(i, at) : image.pixel(at, i)) != other.rgba() ? 1 : 0;
    }
    return count;
}

constexpr QStyle::State kEnabled = QStyle::State_Enabled | QStyle::State_Active;

} // namespace

class StyleTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void settingTheStyleInstallsItsPalette();
    void metricsFollowTheFontSize();
    void aWidgetsOwnPaletteWins();
    void controlsStandOutFromAPanelThatHandsItsGroundDown();
    void theKeyboardFocusIsRinged_data();
    void theKeyboardFocusIsRinged();
    void aFieldShowsThatItIsEdited();
    void whatIsDisabledIsFaint_data();
    void whatIsDisabledIsFaint();
    void buttonTextStaysReadableInEveryState_data();
    void buttonTextStaysReadableInEveryState();
    void linesCoverWholeDevicePixels_data();
    void linesCoverWholeDevicePixels();
    void scrollBarsHaveNoArrowButtons_data();
    void scrollBarsHaveNoArrowButtons();
    void scrollBarHandlesReachBothEnds_data();
    void scrollBarHandlesReachBothEnds();
    void progressFillsItsShare_data();
    void progressFillsItsShare();
    void fieldArrowsAreAtTheTrailingEdge();
    void menuRowsHaveRoomForTextAndShortcut();
    void theStyleMayBeReplacedUnderOpenControls();

private:
    const QStyle& style() const { return *QApplication::style(); }

    VisualDesignDark* m_theme = nullptr;
    QPalette m_palette; ///< of the application before
    QPalette m_toolTipPalette;
    QFont m_font;
};

void StyleTest::initTestCase()
{
    m_palette = QApplication::palette();
    m_toolTipPalette = QToolTip::palette();
    m_font = QApplication::font();
    m_theme = &ui::test::makeTheme<VisualDesignDark>(ui::test::assetsPath());
    m_theme->applyAppStyle();
}

void StyleTest::cleanupTestCase()
{
    QApplication::setStyle(QStringLiteral("fusion"));
    QApplication::setPalette(m_palette);
    QToolTip::setPalette(m_toolTipPalette);
    QApplication::setFont(m_font);
}

void StyleTest::settingTheStyleInstallsItsPalette()
{
    QPalette other = m_theme->getPalette();
    other.setColor(QPalette::Window, QColor(1, 2, 3));
    Style style(other, 12, 15, false);
    style.polish(qApp);
    QCOMPARE(QApplication::palette().color(QPalette::Window), QColor(1, 2, 3));
    QCOMPARE(style.standardPalette(), other);
    QPalette polished;
    style.polish(polished);
    QCOMPARE(polished.color(QPalette::Button), other.color(QPalette::Button));
    m_theme->applyAppStyle();
    QCOMPARE(QApplication::palette().color(QPalette::Window), m_theme->color(QPalette::Window));
}

void StyleTest::metricsFollowTheFontSize()
{
    const QPalette palette = m_theme->getPalette();
    const Style small(palette, 12, 18, false);
    const Style large(palette, 12, 18, true);
    const Style same(palette, 18, 12, false);
    const Style none(palette, -4, 12, false);
    for (const QStyle::PixelMetric metric :
         {QStyle::PM_ScrollBarExtent,
          QStyle::PM_IndicatorWidth,
          QStyle::PM_ExclusiveIndicatorHeight,
          QStyle::PM_HeaderDefaultSectionSizeVertical,
          QStyle::PM_SliderThickness,
          QStyle::PM_TitleBarHeight})
    {
        QVERIFY2(
            small.pixelMetric(metric) < large.pixelMetric(metric),
            qPrintable(QString::number(metric)));
        QCOMPARE(large.pixelMetric(metric), same.pixelMetric(metric));
        QVERIFY(none.pixelMetric(metric) > 0);
    }
    QStyleOptionFrame field;
    const auto height = [&](const Style& style) {
        return style.sizeFromContents(QStyle::CT_LineEdit, &field, QSize(80, 8)).height();
    };
    QVERIFY(height(small) < height(large));
}

void StyleTest::aWidgetsOwnPaletteWins()
{
    QPushButton button;
    QPalette palette = button.palette();
    palette.setColor(QPalette::Button, Qt::red);
    button.setPalette(palette);
    button.resize(60, 24);
    QCOMPARE(ui::test::pixelAt(ui::test::renderWidget(button), {30, 12}), QColor(Qt::red));
}

void StyleTest::controlsStandOutFromAPanelThatHandsItsGroundDown()
{
    const QColor ground = m_theme->getColor(QStringLiteral("Window"));
    QWidget panel;
    ui::setWidgetBackground(&panel, ground);
    QPushButton button(&panel);
    QLineEdit field(&panel);
    button.resize(60, 24);
    field.resize(60, 24);
    const QColor buttonGround = ui::test::pixelAt(ui::test::renderWidget(button), {30, 12});
    const QColor fieldGround = ui::test::pixelAt(ui::test::renderWidget(field), {30, 12});
    QCOMPARE(buttonGround, m_theme->getColor(QStringLiteral("Button")));
    QCOMPARE(fieldGround, m_theme->getColor(QStringLiteral("Base")));
    ui::setWidgetBackground(&button, Qt::red);
    QCOMPARE(ui::test::pixelAt(ui::test::renderWidget(button), {30, 12}), QColor(Qt::red));
}

void StyleTest::theKeyboardFocusIsRinged_data()
{
    using DrawWith = std::function<void(const QStyle&, QPainter&, const QPalette&, QStyle::State)>;
    QTest::addColumn<DrawWith>("draw");
    const QRect rect(2, 2, 76, 22);
    const auto control = [rect](QStyle::ControlElement element, QStyle::State more = {}) {
        return [=](const QStyle& style,
                   QPainter& painter,
                   const QPalette& palette,
                   QStyle::State state) {
            const auto option = optionWith<QStyleOptionButton>(palette, rect, state | more);
            style.drawControl(element, &option, &painter);
        };
    };
    QTest::newRow("push button") << DrawWith(control(QStyle::CE_PushButton));
    QTest::newRow("check box") << DrawWith(control(QStyle::CE_CheckBox));
    QTest::newRow("checked box") << DrawWith(control(QStyle::CE_CheckBox, QStyle::State_On));
    QTest::newRow("radio button") << DrawWith(control(QStyle::CE_RadioButton));
    QTest::newRow("combo box") << DrawWith(
        [=](const QStyle& style, QPainter& painter, const QPalette& palette, QStyle::State state) {
            auto option = optionWith<QStyleOptionComboBox>(palette, rect, state);
            style.drawComplexControl(QStyle::CC_ComboBox, &option, &painter);
        });
    QTest::newRow("slider") << DrawWith(
        [=](const QStyle& style, QPainter& painter, const QPalette& palette, QStyle::State state) {
            auto option = optionWith<QStyleOptionSlider>(palette, rect, state);
            option.maximum = 10;
            option.sliderPosition = 5;
            option.subControls = QStyle::SC_SliderGroove | QStyle::SC_SliderHandle;
            style.drawComplexControl(QStyle::CC_Slider, &option, &painter);
        });
    QTest::newRow("tool button") << DrawWith(
        [=](const QStyle& style, QPainter& painter, const QPalette& palette, QStyle::State state) {
            auto option =
                optionWith<QStyleOptionToolButton>(palette, rect, state | QStyle::State_AutoRaise);
            option.subControls = QStyle::SC_ToolButton;
            style.drawComplexControl(QStyle::CC_ToolButton, &option, &painter);
        });
    QTest::newRow("tab") << DrawWith(
        [=](const QStyle& style, QPainter& painter, const QPalette& palette, QStyle::State state) {
            auto option =
                optionWith<QStyleOptionTab>(palette, rect, state | QStyle::State_Selected);
            style.drawControl(QStyle::CE_TabBarTab, &option, &painter);
        });
}

void StyleTest::theKeyboardFocusIsRinged()
{
    using DrawWith = std::function<void(const QStyle&, QPainter&, const QPalette&, QStyle::State)>;
    QFETCH(DrawWith, draw);
    const QPalette palette = m_theme->getPalette();
    const auto picture = [&](QStyle::State state) {
        return drawn({80, 26}, 1.0, palette.color(QPalette::Window), [&](QPainter& painter) {
            draw(style(), painter, palette, kEnabled | state);
        });
    };
    const QImage plain = picture(QStyle::State_None);
    const QImage clicked = picture(QStyle::State_HasFocus);
    const QImage tabbed = picture(QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange);
    QVERIFY(clicked == plain);
    QVERIFY(tabbed != plain);
}

void StyleTest::aFieldShowsThatItIsEdited()
{
    const QPalette palette = m_theme->getPalette();
    const auto edge = [&](QStyle::State state) {
        const QImage image =
            drawn({60, 22}, 1.0, palette.color(QPalette::Window), [&](QPainter& painter) {
                auto option =
                    optionWith<QStyleOptionFrame>(palette, {0, 0, 60, 22}, kEnabled | state);
                option.lineWidth = 1;
                style().drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter);
            });
        return ui::test::pixelAt(image, {30, 0});
    };
    QVERIFY(ui::test::closeTo(
        edge(QStyle::State_HasFocus), m_theme->getColor(QStringLiteral("Accent1"))));
    QVERIFY(!ui::test::closeTo(
        edge(QStyle::State_None), m_theme->getColor(QStringLiteral("Accent1")), 30));
}

void StyleTest::whatIsDisabledIsFaint_data()
{
    using Make = std::function<QWidget*()>;
    QTest::addColumn<Make>("make");
    const QString text = QStringLiteral("MMMM");
    const auto list = [=] {
        auto* widget = new QListWidget;
        widget->addItem(text);
        return widget;
    };
    const auto spinBox = [] {
        auto* widget = new QSpinBox;
        widget->setValue(88);
        return widget;
    };
    const auto comboBox = [=] {
        auto* widget = new QComboBox;
        widget->addItem(text);
        return widget;
    };
    const auto iconButton = [] {
        auto* widget = new QToolButton;
        QPixmap pixmap(16, 16);
        pixmap.fill(Qt::white);
        widget->setIcon(pixmap);
        return widget;
    };
    const auto checkBox = [=] {
        auto* widget = new QCheckBox(text);
        widget->setChecked(true);
        return widget;
    };
    QTest::newRow("label") << Make([=] { return new QLabel(text); });
    QTest::newRow("push button") << Make([=] { return new QPushButton(text); });
    QTest::newRow("radio button") << Make([=] { return new QRadioButton(text); });
    QTest::newRow("line edit") << Make([=] { return new QLineEdit(text); });
    QTest::newRow("check box") << Make(checkBox);
    QTest::newRow("icon") << Make(iconButton);
    QTest::newRow("spin box") << Make(spinBox);
    QTest::newRow("combo box") << Make(comboBox);
    QTest::newRow("list") << Make(list);
    QTest::newRow("slider") << Make([] { return new QSlider(Qt::Horizontal); });
}

void StyleTest::whatIsDisabledIsFaint()
{
    using Make = std::function<QWidget*()>;
    QFETCH(Make, make);
    const std::unique_ptr<QWidget> widget(make());
    widget->resize(120, 40);
    const double enabled = strongestContrast(*widget);
    widget->setEnabled(false);
    const double disabled = strongestContrast(*widget);
    QVERIFY2(
        disabled > 1.2 && disabled < 0.6 * enabled,
        qPrintable(QStringLiteral("enabled %1, disabled %2").arg(enabled).arg(disabled)));
}

void StyleTest::buttonTextStaysReadableInEveryState_data()
{
    QTest::addColumn<bool>("isDefault");
    QTest::addColumn<QStyle::State>("state");
    for (const bool isDefault : {false, true}) {
        const QByteArray kind = isDefault ? "default, " : "plain, ";
        const auto row = [&](const char* name, QStyle::State state) {
            QTest::newRow((kind + name).constData()) << isDefault << (kEnabled | state);
        };
        row("resting", QStyle::State_None);
        row("hovered", QStyle::State_MouseOver);
        row("pressed", QStyle::State_Sunken);
        row("on", QStyle::State_On);
        row("on, hovered", QStyle::State_On | QStyle::State_MouseOver);
    }
}

void StyleTest::buttonTextStaysReadableInEveryState()
{
    QFETCH(bool, isDefault);
    QFETCH(QStyle::State, state);
    const QPalette palette = m_theme->getPalette();
    const QImage image = drawn({60, 24}, 1.0, Qt::black, [&](QPainter& painter) {
        auto option = optionWith<QStyleOptionButton>(palette, {0, 0, 60, 24}, state);
        option.features = isDefault ? QStyleOptionButton::DefaultButton : QStyleOptionButton::None;
        style().drawControl(QStyle::CE_PushButtonBevel, &option, &painter);
    });
    const QColor text = palette.color(isDefault ? QPalette::HighlightedText : QPalette::ButtonText);
    const double ratio = ui::test::contrast(text, ui::test::pixelAt(image, {30, 12}));
    QVERIFY2(ratio >= 4.5, qPrintable(QString::number(ratio)));
}

void StyleTest::linesCoverWholeDevicePixels_data()
{
    QTest::addColumn<double>("ratio");
    QTest::addColumn<int>("thickness"); // device pixels
    QTest::newRow("1") << 1.0 << 1;
    QTest::newRow("1.25") << 1.25 << 1;
    QTest::newRow("1.5") << 1.5 << 1;
    QTest::newRow("1.75") << 1.75 << 1;
    QTest::newRow("2") << 2.0 << 2;
    QTest::newRow("3") << 3.0 << 3;
}

void StyleTest::linesCoverWholeDevicePixels()
{
    QFETCH(double, ratio);
    QFETCH(int, thickness);
    const QColor ground = Qt::black;
    const QPalette palette = m_theme->getPalette();
    // An odd origin, so that edges fall between device pixels at fractional ratios.
    const QRect frameRect(3, 5, 41, 21);
    const QImage frame = drawn({48, 32}, ratio, ground, [&](QPainter& painter) {
        auto option = optionWith<QStyleOptionFrame>(palette, frameRect, kEnabled);
        option.lineWidth = 1;
        style().drawPrimitive(QStyle::PE_FrameLineEdit, &option, &painter);
    });
    for (const bool row : {true, false}) {
        const QPointF middle = QPointF(frameRect.center()) * ratio;
        const int at = static_cast<int>(row ? middle.y() : middle.x());
        QCOMPARE(coloursAlong(frame, row, at).size(), std::size_t(2));
        QCOMPARE(countAlong(frame, row, at, ground), 2 * thickness);
    }
    const QImage rule = drawn({48, 32}, ratio, ground, [&](QPainter& painter) {
        auto option = optionWith<QStyleOptionFrame>(palette, {0, 7, 48, 3}, kEnabled);
        option.frameShape = QFrame::HLine;
        style().drawControl(QStyle::CE_ShapedFrame, &option, &painter);
    });
    QCOMPARE(coloursAlong(rule, false, 4).size(), std::size_t(2));
    QVERIFY(std::abs(countAlong(rule, false, 4, ground) - ratio) < 1.0);
}

void StyleTest::scrollBarsHaveNoArrowButtons_data()
{
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::newRow("lying") << Qt::Horizontal << Qt::LeftToRight;
    QTest::newRow("lying, right to left") << Qt::Horizontal << Qt::RightToLeft;
    QTest::newRow("standing") << Qt::Vertical << Qt::LeftToRight;
}

void StyleTest::scrollBarsHaveNoArrowButtons()
{
    QFETCH(Qt::Orientation, orientation);
    QFETCH(Qt::LayoutDirection, direction);
    const bool lying = orientation == Qt::Horizontal;
    const QRect rect = lying ? QRect(7, 3, 200, 10) : QRect(7, 3, 10, 200);
    auto option = optionWith<QStyleOptionSlider>(m_theme->getPalette(), rect, kEnabled);
    option.orientation = orientation;
    option.direction = direction;
    option.maximum = 100;
    option.pageStep = 100;
    option.sliderPosition = 50;
    const auto part = [&](QStyle::SubControl control) {
        return style().subControlRect(QStyle::CC_ScrollBar, &option, control);
    };
    QVERIFY(part(QStyle::SC_ScrollBarAddLine).isEmpty());
    QVERIFY(part(QStyle::SC_ScrollBarSubLine).isEmpty());
    QCOMPARE(part(QStyle::SC_ScrollBarGroove), rect);
    QCOMPARE(
        part(QStyle::SC_ScrollBarSubPage) | part(QStyle::SC_ScrollBarSlider)
            | part(QStyle::SC_ScrollBarAddPage),
        rect);
    const auto hit = [&](QPoint point) {
        return style().hitTestComplexControl(QStyle::CC_ScrollBar, &option, point);
    };
    const bool mirrored = lying && direction == Qt::RightToLeft;
    QCOMPARE(
        hit(rect.topLeft()), mirrored ? QStyle::SC_ScrollBarAddPage : QStyle::SC_ScrollBarSubPage);
    QCOMPARE(hit(rect.center()), QStyle::SC_ScrollBarSlider);
    QCOMPARE(
        hit(rect.bottomRight()),
        mirrored ? QStyle::SC_ScrollBarSubPage : QStyle::SC_ScrollBarAddPage);
}

void StyleTest::scrollBarHandlesReachBothEnds_data()
{
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("page");
    QTest::addColumn<int>("length");
    QTest::newRow("usual") << 0 << 300 << 100 << 200;
    QTest::newRow("tiny page") << 0 << 100000 << 1 << 200;
    QTest::newRow("no page") << -5 << 5 << 0 << 200;
    QTest::newRow("shorter than its handle") << 0 << 100 << 1 << 20;
    QTest::newRow("the whole range of int") << kTiny << kHuge << kHuge << 200;
}

void StyleTest::scrollBarHandlesReachBothEnds()
{
    QFETCH(int, minimum);
    QFETCH(int, maximum);
    QFETCH(int, page);
    QFETCH(int, length);
    auto option =
        optionWith<QStyleOptionSlider>(m_theme->getPalette(), {0, 0, 10, length}, kEnabled);
    option.orientation = Qt::Vertical;
    option.minimum = minimum;
    option.maximum = maximum;
    option.pageStep = page;
    const auto handleAt = [&](int position) {
        option.sliderPosition = position;
        return style().subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider);
    };
    QCOMPARE(handleAt(minimum).top(), 0);
    QCOMPARE(handleAt(maximum).bottom(), length - 1);
    const int least = std::min(length, style().pixelMetric(QStyle::PM_ScrollBarSliderMin));
    QVERIFY(handleAt(minimum).height() >= least);
}

void StyleTest::progressFillsItsShare_data()
{
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("value");
    QTest::addColumn<double>("share");
    QTest::newRow("none") << 0 << 100 << 0 << 0.0;
    QTest::newRow("half") << 0 << 100 << 50 << 0.5;
    QTest::newRow("all") << 0 << 100 << 100 << 1.0;
    QTest::newRow("from below zero") << -40 << 40 << -20 << 0.25;
    QTest::newRow("before the start") << 0 << 100 << -1 << 0.0;
    QTest::newRow("beyond the end") << 0 << 100 << 250 << 1.0;
    QTest::newRow("the whole range of int") << kTiny << kHuge << 0 << 0.5;
}

void StyleTest::progressFillsItsShare()
{
    QFETCH(int, minimum);
    QFETCH(int, maximum);
    QFETCH(int, value);
    QFETCH(double, share);
    const QPalette palette = m_theme->getPalette();
    const QImage image = drawn({100, 12}, 1.0, Qt::black, [&](QPainter& painter) {
        auto option = optionWith<QStyleOptionProgressBar>(
            palette, {0, 0, 100, 12}, kEnabled | QStyle::State_Horizontal);
        option.minimum = minimum;
        option.maximum = maximum;
        option.progress = value;
        style().drawControl(QStyle::CE_ProgressBarContents, &option, &painter);
    });
    QCOMPARE(countAlong(image, true, 6, Qt::black), qRound(100 * share));
}

void StyleTest::fieldArrowsAreAtTheTrailingEdge()
{
    const QRect rect(0, 0, 100, 22);
    QStyleOptionComboBox combo;
    combo.rect = rect;
    QStyleOptionSpinBox spin;
    spin.rect = rect;
    for (const bool mirrored : {false, true}) {
        combo.direction = spin.direction = mirrored ? Qt::RightToLeft : Qt::LeftToRight;
        const QRect comboArrow =
            style().subControlRect(QStyle::CC_ComboBox, &combo, QStyle::SC_ComboBoxArrow);
        const QRect up = style().subControlRect(QStyle::CC_SpinBox, &spin, QStyle::SC_SpinBoxUp);
        const QRect down =
            style().subControlRect(QStyle::CC_SpinBox, &spin, QStyle::SC_SpinBoxDown);
        const QRect edit =
            style().subControlRect(QStyle::CC_SpinBox, &spin, QStyle::SC_SpinBoxEditField);
        QCOMPARE(comboArrow.center().x() < 50, mirrored);
        QCOMPARE(up.center().x() < 50, mirrored);
        QVERIFY(up.bottom() < down.top());
        QVERIFY(!edit.intersects(up) && !edit.intersects(down));
    }
    spin.buttonSymbols = QAbstractSpinBox::NoButtons;
    QVERIFY(style().subControlRect(QStyle::CC_SpinBox, &spin, QStyle::SC_SpinBoxUp).isEmpty());
}

void StyleTest::menuRowsHaveRoomForTextAndShortcut()
{
    const QString text = QStringLiteral("A rather long entry of a menu");
    QMenu menu;
    QAction* action = menu.addAction(text);
    const int plain = menu.sizeHint().width();
    const int textWidth = menu.fontMetrics().horizontalAdvance(text);
    QVERIFY(plain > textWidth);
    action->setText(text + QStringLiteral("\tCtrl+Shift+PgDown"));
    const int shortcutWidth =
        menu.fontMetrics().horizontalAdvance(QStringLiteral("Ctrl+Shift+PgDown"));
    const int withShortcut = menu.sizeHint().width();
    QVERIFY(withShortcut > textWidth + shortcutWidth);
    action->setCheckable(true);
    QVERIFY(menu.sizeHint().width() > withShortcut);
}

void StyleTest::theStyleMayBeReplacedUnderOpenControls()
{
    QWidget window;
    auto* combo = new QComboBox(&window);
    combo->addItems({QStringLiteral("one"), QStringLiteral("two")});
    auto* tree = new QTreeWidget(&window);
    auto* parent = new QTreeWidgetItem(tree, {QStringLiteral("parent")});
    new QTreeWidgetItem(parent, {QStringLiteral("child")});
    tree->setGeometry(0, 40, 120, 90);
    window.resize(200, 140);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    combo->showPopup();
    tree->expandAll();
    for (int round = 0; round < 2; ++round) {
        const QPointer<QStyle> before = QApplication::style();
        m_theme->applyAppStyle();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(before.isNull());
        QCOMPARE(combo->style(), QApplication::style());
        QVERIFY(!ui::test::renderWidget(*combo->view()).isNull());
        QVERIFY(!ui::test::renderWidget(*tree).isNull());
    }
    combo->hidePopup();
}

namespace {
const ui::test::Registration<StyleTest> kRegistration;
}

#include "tst_style.moc"
